#include "SliderBarImpl.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

//! Milliseconds between two steps of coasting or settling.
constexpr int frameInterval = 25;
//! How fast a flicked ruler slows down, in pixels per second per second.
constexpr int deceleration = 500;
//! Pixels per second above which a released ruler coasts on.
constexpr int flickSpeed = 400;
//! A step of coasting shorter than this ends it, in pixels.
constexpr int restingDelta = 4;
constexpr int ticksAcross = 7;
//! Ticks painted each side of the mark: the outer ones reach in from beyond the edge as the ruler moves.
constexpr int ticksEachSide = 5;
//! Counting whole ticks up to a limit forgives the rounding of a decimal step.
constexpr double tickTolerance = 1e-9;
//! The powers of ten that a double can hold.
constexpr double smallestExponent = -324.0;
constexpr double largestExponent = 308.0;

//! A step of nothing, or one the wrong way, would stop or turn the ruler for good.
bool usableStep(double step) { return step > 0.0 && std::isfinite(step); }

//! Far enough for any gesture, near enough that pixel sums never overflow.
int toPixels(double pixels)
{
    constexpr double most = std::numeric_limits<int>::max() / 2;
    return int(qBound(-most, pixels, most));
}

int floorDivision(int dividend, int divisor)
{
    const int quotient = dividend / divisor;
    return dividend % divisor != 0 && (dividend < 0) != (divisor < 0) ? quotient - 1 : quotient;
}

QFont enlarged(QFont font, int points)
{
    if (font.pointSizeF() > 0.0)
        font.setPointSizeF(font.pointSizeF() + points);
    else
        font.setPixelSize(font.pixelSize() + points * 4 / 3);
    return font;
}

//! \a font, smaller where \a text would otherwise run past \a width into its neighbours.
QFont fitted(QFont font, const QString& text, int width)
{
    const int needed = QFontMetrics(font).horizontalAdvance(text);
    if (needed <= width || width <= 0)
        return font;
    const double factor = double(width) / needed;
    if (font.pointSizeF() > 0.0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else
        font.setPixelSize(std::max(1, int(font.pixelSize() * factor)));
    return font;
}

struct TickLook
{
    int weight;
    int extraPoints;
    Qt::GlobalColor colour;
    int top;
};

//! The nearer the mark a label is, the larger and brighter it is drawn.
TickLook tickLook(int distance, int spacing)
{
    if (distance < spacing / 4)
        return {QFont::Bold, 4, Qt::white, 4};
    if (distance < spacing / 3)
        return {QFont::Bold, 3, Qt::lightGray, 5};
    if (distance < spacing / 2)
        return {QFont::Bold, 2, Qt::gray, 7};
    return {QFont::Normal, 0, Qt::black, 10};
}

} // namespace

SliderBarImpl::SliderBarImpl(QWidget* parent, double value, double lower, double upper, int precision)
    : QFrame(parent)
    , m_precision(precision)
    , m_value(std::isfinite(value) ? value : 0.0)
    , m_draggedValue(m_value)
    , m_lastValue(m_value)
{
    setObjectName(QStringLiteral("sliderBar"));
    setFont(enlarged(font(), 2));
    updateLimits(lower, upper);
}

void SliderBarImpl::setValue(const QString& value, const QString& unit)
{
    m_unit = unit;
    const double number = value.toDouble();
    // Text that is no number leaves the ruler where it is.
    if (!std::isfinite(number))
        return;
    m_value = number;
    if (m_lastValue != m_value) {
        resetBar();
        m_lastValue = m_value;
    }
    update();
}

void SliderBarImpl::updateLimits(double lower, double upper)
{
    m_lower = std::isnan(lower) ? -std::numeric_limits<double>::infinity() : lower;
    m_upper = std::isnan(upper) ? std::numeric_limits<double>::infinity() : upper;
    if (m_lower > m_upper)
        std::swap(m_lower, m_upper);
    update();
}

void SliderBarImpl::changePrecision(int precision)
{
    m_precision = precision;
    update();
}

void SliderBarImpl::changeStep(double places)
{
    const double step = asShown(m_step * std::pow(10.0, places));
    if (usableStep(step) && m_stepDigit.change(places, m_value, m_lower, m_upper, m_precision)) {
        m_step = step;
        update();
    }
}

void SliderBarImpl::setStep(double step)
{
    const double shown = asShown(step);
    if (usableStep(shown)) {
        m_step = shown;
        update();
    }
}

void SliderBarImpl::resetBar()
{
    m_stepDigit.setExponent(m_homeExponent);
    m_step = std::pow(10.0, m_homeExponent);
}

void SliderBarImpl::updateLastValue(double value) { m_lastValue = std::isnan(value) ? m_value : value; }

void SliderBarImpl::setBottomMode()
{
    m_homeExponent -= 1.0;
    resetBar();
}

QString SliderBarImpl::fixDecPlaces(double value) const { return QString::number(value, 'f', m_precision); }
double SliderBarImpl::asShown(double value) const { return fixDecPlaces(value).toDouble(); }

void SliderBarImpl::getBound(const QString& text, int& start, int& end) const
{
    const double exponent = m_stepDigit.exponent();
    if (m_precision <= 0) {
        const int at = int(text.size() - 1 - exponent);
        start = std::max(at - 2, 0);
        end = std::max(at + 1, 1);
        return;
    }
    const int dot = text.indexOf(QLatin1Char('.'));
    const int at = exponent < 0.0 ? int(dot - exponent) : int(dot - exponent - 1.0);
    start = at - 2;
    end = at + 1;
    // Three digits behind the point take the point along.
    if (exponent < 0.0 && start <= dot)
        --start;
}

double SliderBarImpl::currentValue() const { return m_value; }
double SliderBarImpl::lowerLimit() const { return m_lower; }
double SliderBarImpl::upperLimit() const { return m_upper; }
const DigitStep& SliderBarImpl::stepDigit() const { return m_stepDigit; }
void SliderBarImpl::setStepExponent(double exponent)
{
    m_stepDigit.setExponent(qBound(smallestExponent, exponent, largestExponent));
    update();
}
GestureClock& SliderBarImpl::gestureClock() { return m_clock; }

void SliderBarImpl::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    m_tickSpacing = width() / ticksAcross;
    if (m_tickSpacing <= 0)
        return;
    QPainter painter(this);
    painter.translate(width() / 2, 0);
    for (int index = -ticksEachSide; index <= ticksEachSide; ++index)
        paintTick(painter, index);
}

void SliderBarImpl::resizeEvent(QResizeEvent* event)
{
    // Known before the first paint, so that a touch then finds the ticks where they will be drawn.
    m_tickSpacing = width() / ticksAcross;
    QFrame::resizeEvent(event);
}

void SliderBarImpl::hideEvent(QHideEvent* event)
{
    // A closed slider neither moves nor sends on: what it sent last stands.
    if (m_timerId != 0) {
        stopMotion();
        m_offset = 0;
    }
    QFrame::hideEvent(event);
}

void SliderBarImpl::mousePressEvent(QMouseEvent* event)
{
    // A touch stops a moving ruler at the tick under the mark.
    if (m_momentum || m_snapping) {
        stopMotion();
        assessPosition();
    }
    m_pressX = event->globalX();
    m_draggedValue = m_value;
    m_offset = 0;
    m_velocity = 0;
    m_samples.clear();
    m_clock.start();
}

void SliderBarImpl::mouseMoveEvent(QMouseEvent* event)
{
    if (m_tickSpacing <= 0)
        return;
    m_offset = toPixels(double(event->globalX()) - m_pressX);
    m_samples.push_back({m_offset, m_clock.elapsed()});
    keepWithinLimits();
    const double nearest = tickValue(nearestTick());
    if (std::abs(m_draggedValue - nearest) > m_step * 0.9)
        reach(nearest);
    m_draggedValue = qBound(m_lower, m_draggedValue, m_upper);
    update();
}

void SliderBarImpl::mouseReleaseEvent(QMouseEvent* event)
{
    m_momentum = false;
    // A tap moved nothing.
    if (m_samples.empty() || m_tickSpacing <= 0)
        return;
    // The speed is the finger's, even where a limit held the ruler back.
    m_samples.push_back({toPixels(double(event->globalX()) - m_pressX), m_clock.elapsed()});
    const DxSample first = m_samples.front();
    const DxSample last = m_samples.back();
    m_samples.clear();
    m_releaseTime = last.time;
    const double seconds = (last.time - first.time) / 1000.0;
    m_velocity = seconds > 0.0 ? toPixels((first.offset - last.offset) / seconds * 0.5) : 0;
    if (std::abs(m_velocity) > flickSpeed) {
        m_momentum = true;
        m_direction = m_velocity > 0 ? 2 : -2;
        startMotion();
        return;
    }
    if (pastTick() == 0) {
        assessPosition();
        return;
    }
    m_snapping = true;
    m_direction = pastTick() <= m_tickSpacing / 2 ? -2 : 2;
    startMotion();
}

void SliderBarImpl::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timerId) {
        QFrame::timerEvent(event);
        return;
    }
    if (m_tickSpacing <= 0) {
        stopMotion();
        return;
    }
    if (m_momentum)
        coast();
    if (m_snapping)
        settle();
    update();
}

void SliderBarImpl::paintTick(QPainter& painter, int index) const
{
    const int spacing = m_tickSpacing;
    const int x = index * spacing + m_offset % spacing;
    const double tick = tickValue(m_offset / spacing - index);
    const QRect band = contentsRect();
    if (tick < m_lower || tick + m_step > m_upper)
        painter.fillRect(QRect(x, band.top(), spacing, band.height()), QColor(0, 0, 0, 170));
    if (!withinLimits(tick))
        return;
    const TickLook look = tickLook(std::abs(x), spacing);
    const QString text = label(tick);
    QFont labelFont = enlarged(font(), look.extraPoints);
    labelFont.setWeight(look.weight);
    painter.setFont(fitted(labelFont, text, spacing - 4));
    painter.setPen(look.colour);
    painter.drawText(QRect(x - spacing / 2, look.top, spacing, height() - look.top), Qt::AlignHCenter | Qt::AlignTop,
                     text);
    painter.setPen(Qt::white);
    painter.drawLine(x, height() / 2, x, height() - 8);
}

QString SliderBarImpl::label(double value) const
{
    const QString text = fixDecPlaces(value);
    int start = 0;
    int end = 0;
    getBound(text, start, end);
    // A digit left of the value's leading one reads as a nought.
    if (end <= 0)
        return QStringLiteral("0");
    const QString digits = start >= 0 ? text.mid(start, end - start) : text.left(end);
    return digits.isEmpty() ? QStringLiteral("0") : digits;
}

void SliderBarImpl::keepWithinLimits()
{
    if (tickValue(m_offset / m_tickSpacing + 1) < m_lower)
        m_offset = offsetAtLower();
    const int halfTick = m_tickSpacing / 2;
    // Past half a tick to the left the tick beyond comes under the mark.
    const double ahead = tickValue(m_offset / m_tickSpacing) + (m_offset + halfTick < 0 ? m_step : 0.0);
    const bool leavingUpper = m_value == m_upper && m_offset > -halfTick && m_offset <= 0;
    if (ahead > m_upper || leavingUpper)
        m_offset = offsetAtUpper();
}

void SliderBarImpl::coast()
{
    const double seconds = (m_clock.elapsed() - m_releaseTime) / 1000.0;
    // Slowing down never turns into going back.
    const double speed = std::max(0.0, std::abs(double(m_velocity)) - seconds * deceleration);
    int delta = int(std::copysign(speed, m_velocity) * frameInterval / 1000.0);
    m_offset = toPixels(double(m_offset) - delta);
    if (tickValue(m_offset / m_tickSpacing) > m_upper) {
        delta = 0;
        m_offset = offsetAtUpper();
    }
    if (tickValue(m_offset / m_tickSpacing + 1) < m_lower) {
        delta = 0;
        m_offset = offsetAtLower();
    }
    const double passed = tickValue(m_offset / m_tickSpacing);
    if (passed != m_draggedValue)
        reach(passed);
    if (std::abs(delta) < restingDelta) {
        m_momentum = false;
        m_snapping = true;
    }
}

void SliderBarImpl::settle()
{
    const int past = pastTick();
    const int toGo = m_tickSpacing - past;
    if (past <= 1) {
        stopMotion();
        assessPosition();
    } else if (toGo <= 1) {
        ++m_offset;
    } else if (m_direction < 0) {
        m_offset -= past / 2; // each step halves the gap
    } else {
        m_offset += toGo / 2;
    }
}

void SliderBarImpl::assessPosition()
{
    const double reached = qBound(m_lower, tickValue(nearestTick()), m_upper);
    // The value kept is the text sent, so that the field's echo of it changes nothing.
    m_value = asShown(reached);
    m_offset = 0;
    emit valueChanged(fixDecPlaces(m_value), m_unit);
    update();
}

void SliderBarImpl::reach(double value)
{
    m_draggedValue = value;
    if (withinLimits(value))
        emit valueChanged(fixDecPlaces(value), m_unit);
}

void SliderBarImpl::startMotion()
{
    if (m_timerId != 0)
        killTimer(m_timerId);
    m_timerId = startTimer(frameInterval);
}

void SliderBarImpl::stopMotion()
{
    if (m_timerId != 0)
        killTimer(m_timerId);
    m_timerId = 0;
    m_momentum = false;
    m_snapping = false;
}

bool SliderBarImpl::withinLimits(double value) const { return value >= m_lower && value <= m_upper; }

double SliderBarImpl::tickValue(double ticks) const { return m_value - ticks * m_step; }

int SliderBarImpl::nearestTick() const
{
    return m_tickSpacing > 0 ? floorDivision(m_offset + m_tickSpacing / 2, m_tickSpacing) : 0;
}

int SliderBarImpl::pastTick() const
{
    return m_tickSpacing > 0 ? m_offset - floorDivision(m_offset, m_tickSpacing) * m_tickSpacing : 0;
}

int SliderBarImpl::offsetOfTicks(double ticks) const
{
    if (m_tickSpacing <= 0)
        return 0;
    const double most = std::numeric_limits<int>::max() / 2 / m_tickSpacing;
    return int(qBound(-most, ticks, most)) * m_tickSpacing;
}

int SliderBarImpl::offsetAtLower() const
{
    return offsetOfTicks(std::floor((m_value - m_lower) / m_step + tickTolerance));
}

int SliderBarImpl::offsetAtUpper() const
{
    return offsetOfTicks(std::ceil((m_value - m_upper) / m_step - tickTolerance));
}
