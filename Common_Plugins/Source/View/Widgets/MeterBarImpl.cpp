#include "MeterBarImpl.h"

#include "CSS.h"
#include "GlobalImpl.h"
#include "MeterBar_Bar.h"
#include "MeterBar_HorizontalScale.h"
#include "MeterBar_Scale.h"
#include "MeterReadings.h"
#include "MeterLink.h"
#include "QRVUtil.h"
#include "ReadingSelector.h"
#include "UnitError.h"
#include "UnitSelector.h"
#include "ValueHelper.h"

#include <Brenmoor.hh>

#include <QDebug>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QSpacerItem>
#include <QTextStream>
#include <QTime>
#include <QVBoxLayout>

#include <boost/bind/bind.hpp>

#include <algorithm>
#include <cmath>

using namespace boost::placeholders;
using Kelvane::Value::Units;
using Kelvane::Value::Value_object;

struct MeterBarImpl::Figures
{
    Value_object<double> reading;
    Value_object<double> lower;
    Value_object<double> upper;
};

namespace {

const int FreeSize = 16777215;

// The widget state the flags stand for; the order of the tests is the engine's priority.
int stateOf(const Brenmoor::MeterReading::Reading& reading)
{
    if (reading.flag3)
        return 2;
    if (reading.flag0)
        return 4;
    if (reading.flag5)
        return 6;
    if (reading.flag2)
        return 5;
    if (reading.flag1)
        return 8;
    if (reading.flag4)
        return 7;
    if (reading.flag6)
        return 3;
    return 0;
}

// Decimals of a limit label: enough for the first significant digit of a limit below one.
int precisionOf(double limit)
{
    if (limit > 0.0 && limit < 1.0)
        return static_cast<int>(std::fabs(std::floor(std::log10(limit))));
    return 1;
}

QString limitText(double limit, int precision, const QString& unitLabel)
{
    return QLatin1Char(' ') + QString::number(limit, 'f', precision) + QLatin1Char(' ') + unitLabel;
}

// Converts in place, and refuses instead of leaving a number in a foreign unit.
void convertTo(Value_object<double>& value, const Units& target)
{
    if (!(value.Get_unit().base == target.base))
        throw Kelvane::Value::UnitError("mismatched base units");
    value.Convert_to(target);
}

} // namespace

MeterBarImpl::MeterBarImpl(QWidget* parent)
    : WidgetBaseImpl(parent)
    , m_verticalStyle(styleSheetFor(3, 20, 30, false))
    , m_horizontalStyle(styleSheetFor(2, 10, 11, true))
    , m_barFrame(new QFrame)
    , m_topCap(new QFrame)
    , m_barMid(new QFrame)
    , m_bottomCap(new QFrame)
    , m_barGrid(new QGridLayout(m_barFrame))
    , m_bar(new MeterBar_Bar(m_barMid))
    , m_outerLayout(new QHBoxLayout)
    , m_midSizePolicy(m_barMid->sizePolicy())
    , m_spacer(new QSpacerItem(0, 0, QSizePolicy::Preferred, QSizePolicy::Preferred))
{
    setObjectName(QStringLiteral("MeterBar"));
    setSuppressDebug(true);
    setUpdateDelay(300);
    m_topCap->setObjectName(QStringLiteral("topCap"));
    m_barMid->setObjectName(QStringLiteral("barMid"));
    m_bottomCap->setObjectName(QStringLiteral("bottomCap"));

    m_barGrid->setSpacing(0);
    m_barGrid->setContentsMargins(0, 0, 0, 0);
    auto* midLayout = new QVBoxLayout(m_barMid);
    midLayout->setContentsMargins(0, 0, 0, 0);
    midLayout->addWidget(m_bar);
    m_outerLayout->setContentsMargins(0, 0, 0, 0);
    m_outerLayout->addWidget(m_barFrame, 1);
    m_outerLayout->addItem(m_spacer);
    m_outerLayout->setStretch(1, 1);
    setLayout(m_outerLayout);

    setStyleSheet(m_verticalStyle);
    m_topCap->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
    m_bottomCap->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);
    m_barGrid->addWidget(m_topCap, 1, 0);
    m_barGrid->addWidget(m_barMid, 1, 1);
    m_barGrid->addWidget(m_bottomCap, 1, 2);

    m_upperScale = new MeterBar_Scale(QStringLiteral("2000 MHz"), this);
    m_lowerScale = new MeterBar_Scale(QStringLiteral("10 KHz"), this);
    m_upperHScale = new MeterBar_HorizontalScale(QStringLiteral("2000 MHz"), this);
    m_lowerHScale = new MeterBar_HorizontalScale(QStringLiteral("10 KHz"), this);
    m_upperHScale->hide();
    m_lowerHScale->hide();

    m_bar->updateReading(50.0, 0.0, 100.0, 0, QString());
    changeSize(QStringLiteral("Min"));

    connect(this, &WidgetBaseImpl::DisplayEntryMechanism, this, &MeterBarImpl::relLock);
    connect(this, &WidgetBaseImpl::suppressDebug, m_bar, &MeterBar_Bar::suppressDebug);
    connect(m_bar, &MeterBar_Bar::resized, this, &MeterBarImpl::updateMarkerPositions);
    for (MeterBar_Scale* label : {m_upperScale, m_lowerScale})
        connect(label, &MeterBar_ScaleBase::textWidthChanged, this, [this] { updateGeometry(); });
}

MeterBarImpl::~MeterBarImpl()
{
    // A sample may be drawing into the bar on the DDS thread right now.
    releaseSubscriptions();
}

QString MeterBarImpl::styleSheetFor(int border, int radius, int capSize, bool horizontal)
{
    const QString vertical = QStringLiteral(
        "QFrame {  background: transparent;}"
        "QFrame#topCap {  border: %1px solid %2;  border-bottom-width: 0px;  border-top-left-radius: %3px;"
        "  border-top-right-radius: %3px;  min-height: %4px;}"
        "QFrame#bottomCap {  border: %1px solid %2;  border-top-width: 0px;  border-bottom-left-radius: %3px;"
        "  border-bottom-right-radius: %3px;  min-height: %4px;}"
        "QFrame#barMid {  border: %1px solid %2;  border-top-width: 0px;  border-bottom-width: 0px;}"
        "QLabel#MetBar_Scale {  color: #fff;  border: 4px solid %2;  border-radius: 14px;"
        "  margin: 0px 0px 0px 14px;  padding: 0px 0px 0px 10px;}");
    const QString lying = QStringLiteral(
        "QFrame {  background: transparent;}"
        "QFrame#rightCap {  border: %1px solid %2;  border-left-width: 0px;  border-top-right-radius: %3px;"
        "  border-bottom-right-radius: %3px;  min-width: %4px;}"
        "QFrame#leftCap {  border: %1px solid %2;  border-right-width: 0px;  border-bottom-left-radius: %3px;"
        "  border-top-left-radius: %3px;  min-width: %4px;}"
        "QFrame#barMid {  border: %1px solid %2;  border-right-width: 0px;  border-left-width: 0px;}"
        "QLabel#MetBar_Scale {  color: #fff;  border: 4px solid %2;  border-radius: 14px;"
        "  margin: 0px 0px 0px 0px;  padding: 0px 0px 0px 0px;}");
    return (horizontal ? lying : vertical).arg(border).arg(CSS::border()).arg(radius).arg(capSize);
}

MeterBar_Bar* MeterBarImpl::barWidget() const { return m_bar; }

QSize MeterBarImpl::minimumSizeHint() const
{
    QSize hint = WidgetBaseImpl::minimumSizeHint();
    if (!m_isHorizontal) {
        // The bar's frame is at the left edge, the labels reach back over it by the overlap.
        const int labels = std::max(m_upperScale->wholeTextWidth(), m_lowerScale->wholeTextWidth());
        hint.setWidth(std::max(hint.width(), m_barFrame->minimumWidth() - m_scaleOverlap + labels));
    }
    return hint;
}

QSize MeterBarImpl::sizeHint() const
{
    return WidgetBaseImpl::sizeHint().expandedTo(minimumSizeHint());
}

bool MeterBarImpl::horizontal() const { return m_bar->horizontal(); }
void MeterBarImpl::setReadingIndex(long idx) { m_readingIndex = idx; }
void MeterBarImpl::setCurrentUnit(long idx) { m_currentUnit = idx; }
void MeterBarImpl::relLock() { releaseLock(); }

void MeterBarImpl::resizeEvent(QResizeEvent* event)
{
    // The frame keeps its lock mark over the widget.
    WidgetBaseImpl::resizeEvent(event);
    updateMarkerPositions();
}

void MeterBarImpl::showEvent(QShowEvent*)
{
    updateMarkerPositions();
}

void MeterBarImpl::changeSize(const QString& size)
{
    // The small portrait screen has no room for the wide meter.
    m_sizeName = QRVUtil::demotedSize(size);
    if (m_sizeName == QLatin1String("Max") || m_sizeName == QLatin1String("Min"))
        setHorizontal(false);
    else if (m_sizeName == QLatin1String("Thumb"))
        setHorizontal(true);
}

void MeterBarImpl::setHorizontal(bool horizontal)
{
    if (m_sizeName == QLatin1String("Max") || m_sizeName == QLatin1String("Min")) {
        m_barFrame->setFixedWidth(m_sizeName == QLatin1String("Max") ? 170 : 85);
        m_barFrame->setMinimumHeight(0);
        m_barFrame->setMaximumHeight(FreeSize);
    } else if (m_sizeName == QLatin1String("Thumb")) {
        m_barFrame->setMinimumWidth(0);
        m_barFrame->setMaximumWidth(FreeSize);
        m_barFrame->setFixedHeight(30);
    }
    m_upperScale->setVisible(!horizontal);
    m_lowerScale->setVisible(!horizontal);
    placeCaps(horizontal);
    m_outerLayout->setStretch(1, horizontal ? 0 : 1);
    // Qt repolishes the parts on a new sheet only once the widget itself is
    // polished; a meter laid down before it first shows would keep its old look.
    ensurePolished();
    setStyleSheet(horizontal ? m_horizontalStyle : m_verticalStyle);
    m_isHorizontal = horizontal;
    m_bar->setHorizontal(horizontal);
    updateMarkerPositions();
    updateGeometry();
}

void MeterBarImpl::placeCaps(bool horizontal)
{
    const QSizePolicy::Policy across = horizontal ? QSizePolicy::Maximum : QSizePolicy::Minimum;
    const QSizePolicy::Policy along = horizontal ? QSizePolicy::Minimum : QSizePolicy::Maximum;
    m_topCap->setSizePolicy(across, along);
    m_bottomCap->setSizePolicy(across, along);
    m_barFrame->setSizePolicy(along, across);
    m_topCap->setObjectName(horizontal ? QStringLiteral("rightCap") : QStringLiteral("topCap"));
    m_bottomCap->setObjectName(horizontal ? QStringLiteral("leftCap") : QStringLiteral("bottomCap"));
    m_barGrid->removeWidget(m_topCap);
    m_barGrid->removeWidget(m_bottomCap);
    // Lying down the cap named left stands left, so the bar grows rightwards.
    if (horizontal) {
        m_barGrid->addWidget(m_bottomCap, 1, 0);
        m_barGrid->addWidget(m_topCap, 1, 2);
    } else {
        m_barGrid->addWidget(m_topCap, 0, 1);
        m_barGrid->addWidget(m_bottomCap, 2, 1);
    }
}

void MeterBarImpl::updateMarkerPositions()
{
    const int width = m_bar->width();
    const int height = m_bar->height();
    if (m_isHorizontal) {
        const QPoint start = m_bar->mapTo(this, QPoint(0, height));
        m_upperHScale->move(start.x() + width - m_upperHScale->width() / 2, start.y());
        m_lowerHScale->move(m_bar->mapTo(this, QPoint(-m_lowerHScale->width() / 2, height)));
    } else {
        const QPoint top = m_bar->mapTo(this, QPoint(width, 0));
        const int left = top.x() - m_scaleOverlap;
        // The labels end at the meter's right edge at the latest.
        for (MeterBar_Scale* label : {m_upperScale, m_lowerScale})
            label->setRoom(std::max(0, this->width() - left));
        m_upperScale->move(left, top.y() - m_upperScale->height() / 2);
        m_lowerScale->move(left, top.y() + height - m_lowerScale->height() / 2);
    }
}

void MeterBarImpl::registerReadingSelector(QWidget* widget)
{
    if (ReadingSelector* selector = MeterReadings::offerTo(widget, m_readingNames))
        selector->followReadingChoice(this, [this](long index) { setReadingIndex(index); });
}

void MeterBarImpl::registerUnitSelector(QWidget* widget)
{
    auto* selector = qobject_cast<UnitSelector*>(widget);
    if (!selector)
        return;
    QList<Units> units;
    QString error;
    if (!selector->selectableUnits(&units, &error)) {
        qDebug().noquote() << "UserInterface - MeterBar" << getAttributeName()
                           << "ignores a unit selector with an unreadable unit:" << error;
        return;
    }
    {
        QMutexLocker lock(&m_unitsMutex);
        m_units << units;
    }
    m_currentUnit = selector->selectedUnitKey();
    selector->followUnitChoice(this, [this](long key) { setCurrentUnit(key); });
}

MeterBarImpl::Figures MeterBarImpl::figuresOf(const Brenmoor::MeterReading::Reading& reading, long index) const
{
    const Brenmoor::MeterReading::ReadingData& item = reading.readings[static_cast<CORBA::ULong>(index)];
    return Figures{Value_object<double>(item.value, ValueHelper::convertToUnits(item.units)),
                   ValueHelper::convertValue(reading.lowerLimit), ValueHelper::convertValue(reading.upperLimit)};
}

// Linear units are fitted to the limits; a level or a bare number stays as the engine sent it.
Units MeterBarImpl::targetUnit(const Figures& figures) const
{
    const Units& unit = figures.reading.Get_unit();
    if (unit.scale.logarithmic == 0 && !ValueHelper::getUnitString(unit).isEmpty())
        return ValueHelper::bestFitUnit(figures.lower, figures.upper);
    return unit;
}

// In the order upright upper, upright lower, lying upper, lying lower.
void MeterBarImpl::writeLimits(const QString& upper, const QString& lower, void (MeterBar_ScaleBase::*write)(QString))
{
    (m_upperScale->*write)(upper);
    (m_lowerScale->*write)(lower);
    (m_upperHScale->*write)(upper);
    (m_lowerHScale->*write)(lower);
}

// All three in one unit. A mismatch throws; the reading goes first, so
// binding keeps limits in the engine's unit when the reading's will not convert.
void MeterBarImpl::convertFigures(Figures& figures, const Units& target)
{
    convertTo(figures.reading, target);
    convertTo(figures.lower, target);
    convertTo(figures.upper, target);
}

void MeterBarImpl::logMismatch(const char* headline, const Figures& figures) const
{
    QString text;
    QTextStream(&text) << headline << ' ' << getAttributeName() << " @ "
                       << GlobalImpl::getParentWindowName(const_cast<MeterBarImpl*>(this)) << '\n'
                       << "  -       Value: " << figures.reading.Get_value() << '\n'
                       << "  -     Reading: " << ValueHelper::getUnitString(figures.reading.Get_unit()) << '\n'
                       << "  - Lower Limit: " << ValueHelper::getUnitString(figures.lower.Get_unit()) << '\n'
                       << "  - Upper Limit: " << ValueHelper::getUnitString(figures.upper.Get_unit()) << '\n';
    qDebug().noquote() << text;
}

void MeterBarImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    WidgetBaseImpl::bindAttribute(attr);
    const MeterLink* meter
        = bindAs<MeterLink>(attr, MeterLink::ReadingMeter, ">>>>>Expected Meter Reading type but received: %s (%s)");
    if (!meter)
        return;
    const Brenmoor::MeterReading::ReadingList_var list = meter->value();
    if (list->readings.length() == 0)
        throw CORBA::BAD_PARAM();
    m_readingNames << MeterReadings::names(list.in());
    const long index = m_readingIndex;
    if (index < 0 || CORBA::ULong(index) >= list->readings.length())
        throw CORBA::BAD_PARAM();

    Figures figures;
    QString unitLabel = QStringLiteral("Unit");
    try {
        figures = figuresOf(list.in(), index);
        const Units target = targetUnit(figures);
        convertFigures(figures, target);
        unitLabel = ValueHelper::getUnitString(target);
    } catch (const std::exception&) {
        logMismatch("UserInterface - >>>>> MeterBar init received mismatched unit types:", figures);
    }
    const double upper = figures.upper.Get_value();
    const double lower = figures.lower.Get_value();
    writeLimits(limitText(upper, 1, unitLabel), limitText(lower, 1, unitLabel), &MeterBar_ScaleBase::setText);

    const double scale = std::pow(10.0, m_initialScaleExponent);
    m_bar->updateReading(figures.reading.Get_value() * scale, lower * scale, upper * scale, 0, unitLabel);
    // From now on the bar is drawn on the DDS thread, which waits until the
    // interface thread has taken the repaint.
    connect(m_bar, &MeterBar_Bar::redraw, m_bar, qOverload<>(&QWidget::update),
            Qt::ConnectionType(Qt::BlockingQueuedConnection | Qt::UniqueConnection));
    meter->follow(boost::bind(&MeterBarImpl::dds_callback, this, _1, _2));
}

void MeterBarImpl::dds_callback(const char*, const Brenmoor::MeterReading::Reading& reading)
{
    const long index = m_readingIndex;
    if (!m_suppressDebug)
        qDebug() << "UserInterface - MeterBar::dds_callback -" << getAttributeName() << "@"
                 << GlobalImpl::getParentWindowName(this) << "on index" << index << QTime::currentTime();
    if (reading.readings.length() == 0) {
        qDebug() << "UserInterface - Error meter reading structure empty.";
        return;
    }
    if (index < 0 || CORBA::ULong(index) >= reading.readings.length())
        throw CORBA::BAD_PARAM();

    Figures figures;
    QString unitLabel = QStringLiteral("Unit");
    try {
        figures = figuresOf(reading, index);
        if (!m_suppressDebug)
            qDebug() << "      Reading -" << figures.reading.Get_value()
                     << ValueHelper::getUnitString(figures.reading.Get_unit());
        if (std::isnan(figures.reading.Get_value()))
            return;
        Units target = targetUnit(figures);
        const long unitIndex = m_currentUnit;
        if (unitIndex != -1) {
            QMutexLocker lock(&m_unitsMutex);
            if (unitIndex >= 0 && unitIndex < m_units.size())
                target = m_units.at(int(unitIndex));
        }
        convertFigures(figures, target);
        unitLabel = ValueHelper::getUnitString(target);
    } catch (const std::exception&) {
        logMismatch("UserInterface - >>>>> MeterBar received mismatched unit types:", figures);
        return;
    }

    const double lower = figures.lower.Get_value();
    const double upper = figures.upper.Get_value();
    double value = figures.reading.Get_value();
    // The floor of a level ("no signal") would stretch the bar to nothing.
    if (figures.reading.Get_unit().scale.logarithmic != 0 && value < -300.0)
        value = lower;
    writeLimits(limitText(upper, precisionOf(upper), unitLabel), limitText(lower, precisionOf(lower), unitLabel),
                &MeterBar_ScaleBase::setTextNonGuiThread);
    m_bar->updateReading(value, lower, upper, stateOf(reading), unitLabel);
}
