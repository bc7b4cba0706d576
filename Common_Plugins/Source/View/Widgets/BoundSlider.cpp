#include "BoundSlider.h"

#include "CSS.h"
#include "NumericLink.h"
#include "QRVUtil.h"
#include "Slider.h"

#include <QDebug>
#include <QLabel>
#include <QVBoxLayout>

#include <boost/bind/bind.hpp>

#include <climits>
#include <cmath>

using namespace boost::placeholders;

namespace {

// The engine's numbers become slider positions by truncation; a value
// beyond what an int holds stops at its end rather than wrapping.
int truncatedToInt(double value)
{
    if (std::isnan(value))
        return 0;
    if (value <= double(INT_MIN))
        return INT_MIN;
    if (value >= double(INT_MAX))
        return INT_MAX;
    return int(value);
}

} // namespace

namespace Kelvane {
namespace gui {

BoundSlider::BoundSlider(Qt::Orientation orientation, const Look& max, const Look& min, QWidget* parent)
    : WidgetBaseImpl(parent)
    , m_slider(new Slider(orientation))
    , m_styleMax(styleSheetFor(orientation, max))
    , m_styleMin(styleSheetFor(orientation, min))
{
    const bool horizontal = orientation == Qt::Horizontal;
    setSizePolicy(horizontal ? QSizePolicy::Minimum : QSizePolicy::Maximum,
                  horizontal ? QSizePolicy::Maximum : QSizePolicy::Minimum);
    m_slider->setFocusPolicy(Qt::NoFocus);

    auto* label = new QLabel;
    setLabelWidget(label);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(m_slider, 1, horizontal ? Qt::Alignment() : Qt::AlignHCenter);

    connect(m_slider, &Slider::sliderReleased, this, qOverload<>(&BoundSlider::setSliderValue));
    // From a DDS thread this is a queued call.
    connect(this, &BoundSlider::valueChanged, this, &BoundSlider::followEngine);
    // newValue() stays the host's: sent at every move, a drag would flood the
    // engine, and its answers would pull the handle from under the finger.
    changeSize(QRVUtil::initialSize());
}

BoundSlider::~BoundSlider()
{
    // Samples read the frame's name and switch and emit into this class.
    releaseSubscriptions();
}

QString BoundSlider::styleSheetFor(Qt::Orientation orientation, const Look& look)
{
    const bool horizontal = orientation == Qt::Horizontal;
    const QString direction = horizontal ? QStringLiteral("horizontal") : QStringLiteral("vertical");
    const QString across = horizontal ? QStringLiteral("height") : QStringLiteral("width");
    const QString along = horizontal ? QStringLiteral("width") : QStringLiteral("height");
    // The handle is a disc of its radius standing out of the groove on both
    // sides; its padding along the groove makes up the rest of the disc.
    const int handleBorderPx = 2;
    const int overhangPx = look.handleRadiusPx - look.handlePx / 2;
    const int paddingPx = overhangPx - handleBorderPx;
    const QString handleMargin = horizontal ? QStringLiteral("-%1px 0px").arg(overhangPx)
                                            : QStringLiteral("0px -%1px").arg(overhangPx);
    const QString handlePadding = horizontal ? QStringLiteral("0px %1px").arg(paddingPx)
                                             : QStringLiteral("%1px 0px").arg(paddingPx);
    const QString gradientEnd = horizontal ? QStringLiteral("x2: 0, y2: 1") : QStringLiteral("x2: 1, y2: 0");

    return QStringLiteral("QLabel { font-size: %1px; %2; color: %3; border: none; background: transparent; }")
               .arg(look.labelFontPx)
               .arg(QLatin1String(look.labelBox), CSS::text())
           + QStringLiteral("QSlider { min-%1: %2px; max-%1: %2px; background: transparent; }")
                 .arg(across)
                 .arg(look.thicknessPx)
           + QStringLiteral("QSlider::groove:%1 { %2: %3px; border: 1px solid %4; border-radius: %5px;"
                            " background: qlineargradient(x1: 0, y1: 0, %6, stop: 0 %7, stop: 1 %8); }")
                 .arg(direction, across)
                 .arg(look.handlePx)
                 .arg(CSS::border())
                 .arg(look.handlePx / 2)
                 .arg(gradientEnd, CSS::gradientDark(), CSS::gradientLight())
           // Filled from the minimum (the bottom of a vertical one) up to the handle.
           + QStringLiteral("QSlider::%1-page:%2 { border: 1px solid %3; border-radius: %4px; background: %3; }")
                 .arg(horizontal ? QStringLiteral("sub") : QStringLiteral("add"), direction, CSS::border())
                 .arg(look.handlePx / 2)
           + QStringLiteral("QSlider::handle:%1 { %2: %3px; border-radius: %4px; margin: %5; padding: %6;"
                            " border: %7px solid %8; background: %9; }")
                 .arg(direction, along)
                 .arg(look.handlePx)
                 .arg(look.handleRadiusPx)
                 .arg(handleMargin, handlePadding)
                 .arg(handleBorderPx)
                 .arg(CSS::border(), CSS::text());
}

void BoundSlider::changeSize(const QString& size)
{
    QRVUtil::applyMaxMinSheet(this, size, m_styleMax, m_styleMin);
}

Slider* BoundSlider::slider() const { return m_slider; }

void BoundSlider::updateLabel() {}

void BoundSlider::setSliderValue(int val)
{
    m_slider->setValue(qBound(m_slider->minimum(), val, m_slider->maximum()));
}

void BoundSlider::setSliderValue()
{
    sliderValueChanged(m_slider->value());
}

void BoundSlider::mouseReleaseEvent(QMouseEvent*)
{
    setSliderValue();
}

const NumericLink* BoundSlider::bindSlider(Brenmoor::EngineReadingBase_ptr attr, int accepted,
                                           const char* mismatchLine)
{
    WidgetBaseImpl::bindAttribute(attr);
    const NumericLink* number = bindAs<NumericLink>(attr, accepted, mismatchLine);
    if (!number)
        return nullptr;
    NumericSample sample;
    number->read(&sample);
    m_labelText = getLabel();
    double lower = 0.0;
    double upper = 0.0;
    // A whole number keeps the range the form gave; a value record brings its own.
    if (number->number() == NumericLink::Number::ValueDouble && number->limits(&lower, &upper)) {
        m_slider->setMinimum(truncatedToInt(lower));
        m_slider->setMaximum(truncatedToInt(upper));
    }
    m_engineValue = truncatedToInt(sample.value);
    setSliderValue(m_engineValue);
    const bool logged = number->number() == NumericLink::Number::Long;
    number->follow(boost::bind(&BoundSlider::dds_callback, this, _1, _2, logged));
    return number;
}

void BoundSlider::dds_callback(const char*, const NumericSample& sample, bool logged)
{
    const int value = truncatedToInt(sample.value);
    if (logged && !m_suppressDebug)
        qDebug() << "UserInterface -" << getAttributeName() << " Received: " << value;
    emit valueChanged(value);
}

void BoundSlider::followEngine(int value)
{
    m_engineValue = value;
    // The finger has the slider until it lifts; the lift's send brings a sample of its own.
    if (!m_slider->isSliderDown())
        setSliderValue(value);
}

void BoundSlider::sliderValueChanged(int sliderVal)
{
    const NumericLink* number = link<NumericLink>();
    if (!number) {
        releaseLock();
        return;
    }
    QString failure;
    // A value record goes out bare: no unit, no limits.
    const EngineCall outcome
        = callEngine([number, sliderVal] { number->set(double(sliderVal), Kelvane::Value::Units()); }, &failure);
    if (outcome == EngineCall::Refused) {
        if (number->number() == NumericLink::Number::Long)
            qDebug() << "UserInterface - LONG:" << getAttributeName() << "threw exception while notifying event"
                     << sliderVal << failure;
        else
            qDebug() << "UserInterface -" << getAttributeName() << "threw an exception while attempting to set"
                     << failure;
        // Not sent again: the slider shows what the engine holds.
        setSliderValue(m_engineValue);
    }
    releaseLock();
}

} // namespace gui
} // namespace Kelvane
