#ifndef SPINWHEELIMPL_H
#define SPINWHEELIMPL_H

#include "ContainerImpl.h"
#include "DigitStep.h"
#include "GestureClock.h"

#include <QList>

class QFrame;
class QLineEdit;
class QPushButton;

//! Where the finger was on the dial: an angle in radians at a time since the press.
struct RadSample
{
    double radians = 0.0;
    int milliseconds = 0;
};

/*!
  The round dial of a numeric field's entry mechanisms. The operator runs
  a finger round the circle and a glowing marker follows it; once the
  finger has turned steadily one way for a while, the value moves by one to
  four steps of the marked digit, faster turns taking larger strides, and
  each change goes to the engine at once. x10 and /10 choose the digit;
  Enter closes, Cancel puts back the value from before the opening, and the
  rotate key hands over to the next mechanism. A step that would pass a
  limit is dropped.
*/
class SpinWheelImpl : public ContainerImpl
{
    Q_OBJECT

public:
    //! \a lower and \a upper in the unit shown.
    SpinWheelImpl(QWidget* parent, double lower, double upper, int precision, int width, int height);

    //! Shows \a text, which becomes the value the steps start from.
    void setValue(const QString& text);
    void changePrecision(int precision);
    void updateLimits(double lower, double upper);
    //! The steps change the units digit again.
    void resetStep();
    //! Marks in the read-out the digit that a step changes.
    void updateCursorPosition();
    void retranslate() override;

    //! The clock that times the finger; a test may drive it.
    GestureClock& gestureClock();

signals:
    //! A steady turn at \a speed radians per millisecond, clockwise positive.
    void updateValue(double speed);
    //! The value stepped to, to be sent at once.
    void valueChanged(QString value);
    void closeEntry();
    void cancelEntry();
    //! Asks the field for its next mechanism; \a entry is "SpinWheel".
    void rotateEntryMechanism(QString entry);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private slots:
    void wheelIncrement(double speed);
    void decrement();
    void increment();
    void rotate();

private:
    QPushButton* addKey(QWidget* parent, const char* name, const QRect& area, const char* text);
    bool withinCircle(const QPoint& point, int radius) const;
    double getRadians(int dx, int dy) const;
    void placeMarker(double radians);
    void moveMarker(double radians);
    void analyzeSpeed();
    void changeStep(double places);

    int m_wheelWidth;
    int m_wheelHeight;
    int m_wheelRadius = 110;
    //! Analyses that must pass between two steps.
    int m_spinThreshold = 5;
    int m_spinCount = 0;
    int m_precision;
    double m_lower;
    double m_upper;
    double m_currentValue = 0.0;
    DigitStep m_step;
    bool m_outsideWheel = false;
    QPushButton* m_marker = nullptr;
    QList<RadSample> m_radSamples;
    QList<double> m_speedSamples;
    GestureClock m_pressTime;
    QLineEdit* m_wheelEdit = nullptr;
    QFrame* m_spinFrame = nullptr;
    QString m_styleText;
};

#endif // SPINWHEELIMPL_H
