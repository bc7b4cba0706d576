#ifndef SINGLESLIDERIMPL_H
#define SINGLESLIDERIMPL_H

#include "SliderImpl.h"

class QLabel;
class QLineEdit;
class SliderBarImpl;

/*!
  The slider of a numeric field's rotation of entry mechanisms: the value at
  the top, with the digit that the ruler moves marked, and under it one
  ruler between x10 and /10, which choose that digit. "-" and "+" step the
  value by that digit within the limits; every value reached is sent at
  once. Enter keeps it, Cancel asks the field to restore the value it had,
  and the rotation key asks for the keypad.
*/
class SingleSliderImpl : public SliderImpl
{
    Q_OBJECT

public:
    SingleSliderImpl(QWidget* parent, double value, double lower, double upper, int precision);

    void setValue(const QString& value, const QString& unit) override;
    void updateValue(const QString& value, const QString& unit) override;
    void updateCursorPosition() override;
    void changePrecision(int precision) override;
    void updateLimits(double lower, double upper) override;
    int getWidth() const override;
    int getHeight() const override;
    double getPower() const override;
    //! Makes the ruler move the digit worth 10 to the power of \a power, truncated.
    void setPower(double power);
    void setStep(double step);

    void retranslate() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    void submit();
    void increment() override;
    void decrement() override;
    void incrementStep();
    void decrementStep();
    void rotate();
    //! Shows and sends \a value, which the ruler came to.
    void updateIndicatorValue(const QString& value, const QString& unit);

signals:
    //! Asks the field for the next mechanism; \a entry is "SingleSlider".
    void rotateEntryMechanism(QString entry);

private:
    void layOutRuler(QWidget* parent);
    void stepBy(double direction);
    void applyStyle();

    QLineEdit* m_reading = nullptr;
    const int m_sliderWidth = 480;
    const int m_sliderHeight = 220;
    QString m_unit;
    SliderBarImpl* m_bar;
    QString m_styleText;
    QLabel* m_gapLabel = nullptr;
};

#endif // SINGLESLIDERIMPL_H
