#include "Slider.h"

#include <QMouseEvent>

#include <algorithm>
#include <cmath>

namespace {

// What the handle takes of the slider's length: the finger points into the rest.
constexpr int handleAllowance = 13;

} // namespace

Slider::Slider(Qt::Orientation orientation, QWidget* parent)
    : QSlider(orientation, parent)
{
}

void Slider::mousePressEvent(QMouseEvent* event)
{
    // Held down until the lift, so that the lift is a sliderReleased().
    setSliderDown(true);
    setValueFromPos(event->pos());
    event->accept();
}

void Slider::mouseMoveEvent(QMouseEvent* event)
{
    setValueFromPos(event->pos());
    event->accept();
}

void Slider::mouseReleaseEvent(QMouseEvent* event)
{
    if (!isSliderDown()) {
        QSlider::mouseReleaseEvent(event);
        return;
    }
    setSliderDown(false);
    event->accept();
}

// Only a touch moves the slider: a wheel would change the value shown
// without a lift to send it.
void Slider::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void Slider::setValueFromPos(const QPoint& pos)
{
    const bool horizontal = orientation() == Qt::Horizontal;
    const int extent = horizontal ? width() : height();
    const int length = extent - handleAllowance;
    if (length <= 0)
        return; // laid out too small to point at anything
    int along = horizontal ? pos.x() : pos.y();
    // Where QSlider draws the minimum: at the bottom of a vertical one, on the
    // right of a horizontal one that reads right to left or is inverted.
    const bool fromTheFarEnd = horizontal ? invertedAppearance() != (layoutDirection() == Qt::RightToLeft)
                                          : !invertedAppearance();
    if (fromTheFarEnd)
        along = extent - along;
    // A finger dragged beyond the widget keeps the slider at that end.
    const double fraction = std::clamp(double(along) / length, 0.0, 1.0);
    // In double: the span of a wide range does not fit an int.
    const int value = int(std::trunc(minimum() + (double(maximum()) - double(minimum())) * fraction));
    setValue(value);
    emit newValue(value);
}
