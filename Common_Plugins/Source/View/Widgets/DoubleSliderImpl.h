#ifndef DOUBLESLIDERIMPL_H
#define DOUBLESLIDERIMPL_H

#include "SliderImpl.h"

class SliderBarImpl;
class SliderIndicatorImpl;

/*!
  The two-ruler slider, for a host that asks a numeric field for it: a
  coarse ruler and a fine one, a digit lower, around one large read-out
  that bands the digits each ruler moves. Moving either ruler moves the
  other with it and sends the value once; Enter ends the entry. It takes no
  part in the rotation of mechanisms.
*/
class DoubleSliderImpl : public SliderImpl
{
    Q_OBJECT

public:
    DoubleSliderImpl(QWidget* parent, double value, double lower, double upper, int precision);

    void setValue(const QString& value, const QString& unit) override;
    void changePrecision(int precision) override;
    void updateLimits(double lower, double upper) override;
    //! Blanks the read-out; the rulers stay where they are.
    void clear() override;
    int getWidth() const override;
    int getHeight() const override;

private slots:
    void decTopBar();
    void incTopBar();
    void decBtmBar();
    void incBtmBar();
    void submit();
    void updateValueTopBar(const QString& value, const QString& unit);
    void updateValueBtmBar(const QString& value, const QString& unit);

private:
    //! One ruler between its x10 and /10 keys, named \a prefix + "IncStep" and "DecStep".
    QFrame* rulerRow(SliderBarImpl* bar, const QString& prefix, void (DoubleSliderImpl::*coarser)(),
                     void (DoubleSliderImpl::*finer)());
    static QString style();

    SliderIndicatorImpl* m_indicator = nullptr;
    SliderBarImpl* m_topBar;
    SliderBarImpl* m_bottomBar;
    const int m_sliderWidth = 480;
    const int m_sliderHeight = 240;
};

#endif // DOUBLESLIDERIMPL_H
