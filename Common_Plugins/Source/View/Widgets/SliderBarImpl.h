#ifndef SLIDERBARIMPL_H
#define SLIDERBARIMPL_H

#include "DigitStep.h"
#include "DxSample.h"
#include "GestureClock.h"

#include <QFrame>

#include <vector>

/*!
  The ruler of a slider: the values around the present one, one tick apart,
  under a fixed mark at the centre. The nearer a tick lies to the mark, the
  larger and brighter its label; each label shows only the three digits
  around the one that a tick moves, and the stretch beyond a limit is
  shaded. The operator drags it sideways (to the right lowers the value);
  flicked, it coasts and slows down, and at rest it settles on the nearest
  tick. It never passes a limit and sends no value beyond one.
*/
class SliderBarImpl : public QFrame
{
    Q_OBJECT

public:
    SliderBarImpl(QWidget* parent, double value, double lower, double upper, int precision);

    //! The value under the mark, as the field has it; a different one than the field last gave resets the step.
    void setValue(const QString& value, const QString& unit);
    /*!
      A missing (NaN) limit leaves that side open; limits given the wrong way
      round are taken the right way round.
    */
    void updateLimits(double lower, double upper);
    void changePrecision(int precision);
    //! Moves the digit that a tick is worth by \a places, within what the value and limits allow.
    void changeStep(double places);
    //! A tick is worth \a step, as shown at the present precision; a step that shows as nothing is refused.
    void setStep(double step);
    //! A tick is worth one of the bar's own digit again: the units, or the tenths of a fine bar.
    void resetBar();
    //! The last value that came from outside; NaN keeps the present one as that.
    void updateLastValue(double value);
    //! Makes this the fine bar of a pair: its own digit is one place right of the coarse bar's.
    void setBottomMode();

    QString fixDecPlaces(double value) const;
    /*!
      The characters of \a text, a value as shown, that a label shows: the
      three digits around the one a tick moves, from \a start up to \a end.
      \a start may lie before the text when the digit lies at its left.
    */
    void getBound(const QString& text, int& start, int& end) const;

    double currentValue() const;
    double lowerLimit() const;
    double upperLimit() const;
    const DigitStep& stepDigit() const;
    void setStepExponent(double exponent);
    //! The clock by which the speed of a flick is weighed.
    GestureClock& gestureClock();

signals:
    void valueChanged(QString value, QString unit);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    void paintTick(QPainter& painter, int index) const;
    QString label(double value) const;
    void keepWithinLimits();
    void coast();
    void settle();
    void assessPosition();
    //! A gesture has brought \a value under the mark: it is sent, unless it lies beyond a limit.
    void reach(double value);
    void startMotion();
    void stopMotion();

    //! \a value as the precision shows it.
    double asShown(double value) const;
    bool withinLimits(double value) const;
    //! The value under the mark once the ruler has moved \a ticks to the right.
    double tickValue(double ticks) const;
    //! How many ticks to the right the tick nearest the mark has moved.
    int nearestTick() const;
    //! How many pixels to the right of a whole tick the ruler lies.
    int pastTick() const;
    int offsetOfTicks(double ticks) const;
    //! The offsets at which the last tick within a limit lies under the mark.
    int offsetAtLower() const;
    int offsetAtUpper() const;

    int m_precision;
    QString m_unit;
    DigitStep m_stepDigit;
    double m_homeExponent = 0.0;
    double m_step = 1.0;
    //! The value under the mark when the last gesture ended.
    double m_value;
    //! The last value sent during a gesture.
    double m_draggedValue;
    double m_lower = 0.0;
    double m_upper = 0.0;
    int m_tickSpacing = 0;
    int m_pressX = 0;
    //! Present displacement of the ruler, in pixels.
    int m_offset = 0;
    //! Pixels per second at the release; positive to the left.
    int m_velocity = 0;
    //! Which way the ruler settles: negative to the left.
    int m_direction = 0;
    int m_timerId = 0;
    std::vector<DxSample> m_samples;
    bool m_momentum = false;
    bool m_snapping = false;
    int m_releaseTime = 0;
    double m_lastValue;
    GestureClock m_clock;
};

#endif // SLIDERBARIMPL_H
