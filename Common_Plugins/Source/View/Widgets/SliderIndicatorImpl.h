#ifndef SLIDERINDICATORIMPL_H
#define SLIDERINDICATORIMPL_H

#include <QColor>
#include <QFrame>

class SliderBarImpl;

/*!
  The read-out of the double slider: the value in large white digits with
  its unit behind, and over the digits that each ruler moves a rounded
  band in that ruler's colours, green for the active ruler and blue for
  the other.
*/
class SliderIndicatorImpl : public QFrame
{
    Q_OBJECT

public:
    //! \a bottom may be null: then only \a top's digits are banded.
    SliderIndicatorImpl(SliderBarImpl* top, SliderBarImpl* bottom);

    //! Shows \a value in \a unit; empty texts blank the read-out.
    void setValue(const QString& value, const QString& unit);
    //! The fine ruler is the active one when \a active holds, else the coarse one.
    void setBottomActive(bool active);
    //! A ruler's step changed; its band moves with it.
    void setMinorStep();
    void setMajorStep();

    //! The width of \a text when every character counts as one of the three kinds.
    static int calcWidth(const QString& text, int minusWidth, int dotWidth, int digitWidth);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Band
    {
        SliderBarImpl* bar = nullptr;
        QColor rim;
        QColor fill;
    };

    void paintBand(QPainter& painter, const Band& band, const QString& number, const QRect& digits,
                   int minusWidth, int dotWidth, int digitWidth) const;

    Band m_top;
    Band m_bottom;
    QString m_text;
};

#endif // SLIDERINDICATORIMPL_H
