#include "BatteryStatusIndicatorImpl.h"

#include "NumericLink.h"

#include <QDebug>
#include <QPainter>
#include <QPainterPath>

#include <boost/bind/bind.hpp>
#include <boost/format.hpp>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace boost::placeholders;

namespace Kelvane {
namespace gui {

namespace {

const QColor orange(255, 127, 3);

// Truncating NaN or a width beyond any screen is undefined: NaN fills
// nothing, and past the widget nothing more would show anyway.
int wholePixels(double pixels, int bound)
{
    if (std::isnan(pixels))
        return 0;
    return int(std::clamp(pixels, -double(bound), double(bound)));
}

QString twoDigits(int number)
{
    return QString::fromStdString((boost::format("%|02d|") % number).str());
}

} // namespace

BatteryStatusIndicatorImpl::BatteryStatusIndicatorImpl(QWidget* parent)
    : WidgetBaseImpl(parent)
{
    connect(this, &BatteryStatusIndicatorImpl::updateBatteryStatus, this,
            &BatteryStatusIndicatorImpl::setBatteryStatus);
}

BatteryStatusIndicatorImpl::~BatteryStatusIndicatorImpl() = default;

QSize BatteryStatusIndicatorImpl::sizeHint() const { return QSize(200, 30); }
QSize BatteryStatusIndicatorImpl::minimumSizeHint() const { return QSize(150, 30); }

double BatteryStatusIndicatorImpl::getPercent() const { return m_percent; }
QString BatteryStatusIndicatorImpl::getTimeText() const { return m_timeText; }

QColor BatteryStatusIndicatorImpl::getFillColor() const
{
    if (m_percent <= 20.0)
        return Qt::red;
    if (m_percent <= 60.0)
        return orange;
    return Qt::green;
}

void BatteryStatusIndicatorImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    WidgetBaseImpl::bindAttribute(attr);
    // The word Enumeration is how this line has always read.
    const NumericLink* charge
        = bindAs<NumericLink>(attr, NumericLink::AttribValueDouble, ">>>>>Expected Enumeration type but received: %s (%s)");
    if (!charge)
        return;
    NumericSample now;
    charge->read(&now);
    setBatteryStatus(now.value, now.upperLimit);
    charge->follow(boost::bind(&BatteryStatusIndicatorImpl::dds_callback, this, _1, _2));
}

void BatteryStatusIndicatorImpl::dds_callback(const char*, const NumericSample& sample)
{
    emit updateBatteryStatus(sample.value, sample.upperLimit);
}

void BatteryStatusIndicatorImpl::setBatteryStatus(double minutesRemaining, double maxMinutes)
{
    // The full charge only scales this sample; the steps keep their own.
    m_timeText = convertBatteryLife(minutesRemaining);
    m_percent = 100.0 * minutesRemaining / maxMinutes;
    m_minutesRemaining = minutesRemaining;
    if (!std::isfinite(m_percent))
        qDebug() << "UserInterface - BatteryStatusIndicator:" << getAttributeName() << "has no charge for"
                 << minutesRemaining << "of" << maxMinutes << "minutes";
    update();
}

void BatteryStatusIndicatorImpl::incrementBatteryStatus() { stepBatteryStatus(1.0); }
void BatteryStatusIndicatorImpl::decrementBatteryStatus() { stepBatteryStatus(-1.0); }

void BatteryStatusIndicatorImpl::stepBatteryStatus(double step)
{
    m_percent += step;
    // The text follows the step itself, before the charge snaps to an end.
    m_timeText = convertBatteryLife(m_maxMinutes * m_percent / 100.0);
    if (step > 0.0 && m_percent > 99.0)
        m_percent = 100.0;
    else if (step < 0.0 && m_percent < 1.0)
        m_percent = 0.0;
    update();
}

QString BatteryStatusIndicatorImpl::convertBatteryLife(const double& minutes)
{
    if (!(std::fabs(minutes) < double(std::numeric_limits<int>::max())))
        return QStringLiteral("--:--");
    const int whole = int(minutes);
    return twoDigits(whole / 60) + QLatin1Char(':') + twoDigits(whole % 60);
}

void BatteryStatusIndicatorImpl::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPen pen(Qt::white, 2.0, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    painter.setPen(pen);
    const QPainterPath outline = createBattery();
    // The joint between body and terminal stays open. It is cut out of the
    // outline rather than erased: the widget has no background of its own,
    // and erasing would paint the palette's over the screen behind it.
    const QRectF joint(m_bodyWidth - 3, height() / 3.0, 4 * pen.widthF(), height() / 2.0);
    painter.setClipRegion(QRegion(rect()) - QRegion(joint.toAlignedRect()));
    painter.drawPath(outline);
    painter.setClipping(false);
    painter.fillPath(fillBatteryIndicator(), getFillColor());
    drawScale(painter);
    drawTimeText(painter);
}

QPainterPath BatteryStatusIndicatorImpl::createBattery()
{
    const double bodyWidth = 0.9 * width();
    m_bodyWidth = int(bodyWidth);
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    outline.addRoundedRect(QRectF(0.0, 0.0, bodyWidth, height()), 3.0, 3.0);
    outline.addRoundedRect(QRectF(bodyWidth, height() / 3.0, int(m_bodyWidth / 20.0), int(height() / 2.0)), 1.0, 1.0);
    return outline;
}

QPainterPath BatteryStatusIndicatorImpl::fillBatteryIndicator() const
{
    const int charged = wholePixels((0.9 * width() - 1.0) * m_percent / 100.0, width());
    QPainterPath fill;
    fill.addRoundedRect(QRectF(1.0, 1.0, charged, int(height() - 2.0)), 3.0, 3.0);
    return fill;
}

void BatteryStatusIndicatorImpl::drawScale(QPainter& painter) const
{
    for (int k = 10; k <= 90; k += 10) {
        const int x = int(m_bodyWidth * k / 100.0);
        painter.drawLine(x, 3, x, 5);
    }
}

void BatteryStatusIndicatorImpl::drawTimeText(QPainter& painter) const
{
    painter.setFont(QFont(QStringLiteral("Times"), 87));
    painter.setPen(Qt::white);
    const QRect area(QPoint(4, 4), QPoint(width() + 3, height() + 3));
    const QRect bounds = painter.boundingRect(area, Qt::AlignHCenter | Qt::AlignVCenter, m_timeText);
    painter.drawText(bounds, Qt::AlignBottom, m_timeText);
}

} // namespace gui
} // namespace Kelvane
