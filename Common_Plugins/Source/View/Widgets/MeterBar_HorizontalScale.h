#ifndef METERBAR_HORIZONTALSCALE_H
#define METERBAR_HORIZONTALSCALE_H

#include "MeterBar_ScaleBase.h"

/*!
  A limit below a horizontal meter bar: the limit text with a tick at the
  top centre of the label. The meter moves it sideways so that it stays
  centred on the position it marks.
*/
class MeterBar_HorizontalScale : public MeterBar_ScaleBase
{
    Q_OBJECT

public:
    explicit MeterBar_HorizontalScale(const QString& text = QString(), QWidget* parent = nullptr);

public slots:
    //! Centres the label on \a xPos, in the parent's coordinates.
    void updateHPos(int xPos);

protected:
    int textMargin() const override;
    QString dashResource() const override;
    void paintDecoration(QPainter& painter, const QPixmap& dash) override;
};

#endif // METERBAR_HORIZONTALSCALE_H
