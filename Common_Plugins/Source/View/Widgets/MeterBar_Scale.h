#ifndef METERBAR_SCALE_H
#define METERBAR_SCALE_H

#include "MeterBar_ScaleBase.h"

/*!
  A limit beside a vertical meter bar: the limit text in a label with a
  thick rounded left end and a dash pointing at the bar. The meter moves it
  up and down so that it stays centred on the height it marks.
*/
class MeterBar_Scale : public MeterBar_ScaleBase
{
    Q_OBJECT

public:
    explicit MeterBar_Scale(const QString& text = QString(), QWidget* parent = nullptr);

public slots:
    //! Centres the label on \a yPos, in the parent's coordinates.
    void updateVPos(int yPos);

protected:
    int textMargin() const override;
    QString dashResource() const override;
    void paintDecoration(QPainter& painter, const QPixmap& dash) override;
};

#endif // METERBAR_SCALE_H
