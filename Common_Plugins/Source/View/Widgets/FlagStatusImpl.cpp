#include "FlagStatusImpl.h"

#include "BooleanLink.h"
#include "GlobalImpl.h"

#include <QDebug>
#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

#include <boost/bind/bind.hpp>

using namespace boost::placeholders;

FlagStatusImpl::FlagStatusImpl(QWidget* parent)
    : WidgetBaseImpl(parent)
    , m_base(this)
    , m_lamp(new QLabel(&m_base))
    , m_timer(new QTimer(this))
{
    setObjectName(QStringLiteral("FlagStatus"));
    m_base.setObjectName(QStringLiteral("base"));
    m_lamp->setObjectName(QStringLiteral("button"));
    setTrippedLedColor(QStringLiteral("#fc0"));

    auto* label = new QLabel;
    setLabelWidget(label);
    auto* baseLayout = new QHBoxLayout(&m_base);
    baseLayout->addWidget(m_lamp);
    baseLayout->addWidget(label);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(&m_base);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);

    connect(m_timer, &QTimer::timeout, this, &FlagStatusImpl::toggleLed);
    connect(this, &FlagStatusImpl::changeState, this, &FlagStatusImpl::setButtonState);
    setButtonState(QStringLiteral("Normal"));
}

FlagStatusImpl::~FlagStatusImpl()
{
    // Samples read the blink mode of this class.
    releaseSubscriptions();
}

QString FlagStatusImpl::ledStyle(const QString& background)
{
    return QStringLiteral("QFrame#base { background: transparent; }"
                          "QLabel#button { border: 1px solid #fff; border-radius: 10px; background: %1;"
                          " min-width: 20px; max-width: 20px; min-height: 20px; max-height: 20px; }"
                          "QLabel#Label { color: white; font-weight: normal; font-size: 16px; }")
        .arg(background);
}

QString FlagStatusImpl::getState() const { return m_state; }
bool FlagStatusImpl::getBlinkMode() const { return m_blinkMode; }
QString FlagStatusImpl::getTrippedLedColor() const { return m_trippedColor; }
void FlagStatusImpl::updateFlagStatusLabel(const QString& label) { setLabel(label); }
void FlagStatusImpl::changeSize(const QString&) {}
void FlagStatusImpl::mouseReleaseEvent(QMouseEvent*) {}

void FlagStatusImpl::setTrippedLedColor(const QString& colorString)
{
    // Shown from the next trip on.
    m_trippedColor = colorString;
    m_trippedStyle = ledStyle(colorString);
}

void FlagStatusImpl::setState(const QString& s)
{
    emit changeState(s);
}

void FlagStatusImpl::setButtonState(const QString& s)
{
    m_state = s;
    if (s == QLatin1String("Tripped")) {
        m_base.setStyleSheet(m_trippedStyle);
    } else if (s == QLatin1String("Normal")) {
        if (m_blinkMode)
            setBlinkMode(false);
        else
            m_base.setStyleSheet(m_normalStyle);
    } else if (s == QLatin1String("Running")) {
        if (m_blinkMode)
            setBlinkMode(true);
        else
            m_base.setStyleSheet(m_runningStyle);
    } else {
        setState(QStringLiteral("Normal"));
    }
}

void FlagStatusImpl::setBlinkMode(bool on)
{
    if (on && !m_blinking) {
        m_ledOn = false;
        m_timer->start(1000);
        m_blinking = true;
    } else if (!on && m_blinking) {
        m_timer->stop();
        setLedOn(false);
        m_blinking = false;
    }
}

void FlagStatusImpl::toggleLed()
{
    setLedOn(!m_ledOn);
}

void FlagStatusImpl::setLedOn(bool on)
{
    // A phase is a look only: passed through setState, the dark phase would
    // read as a false sample and end the blinking it belongs to.
    m_ledOn = on;
    m_base.setStyleSheet(on ? m_runningStyle : m_normalStyle);
    update();
}

QString FlagStatusImpl::stateOf(bool value) const
{
    if (!value)
        return QStringLiteral("Normal");
    return m_blinkMode ? QStringLiteral("Running") : QStringLiteral("Tripped");
}

void FlagStatusImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    WidgetBaseImpl::bindAttribute(attr);
    const BooleanLink* flag
        = bindAs<BooleanLink>(attr, BooleanLink::ReadingBoolean, ">>>>>Expected Boolean type but received: %s (%s)");
    if (!flag)
        return;
    setState(stateOf(flag->value()));
    flag->follow(boost::bind(&FlagStatusImpl::dds_callback, this, _1, _2));
}

void FlagStatusImpl::dds_callback(const char*, bool value)
{
    if (!m_suppressDebug)
        qDebug() << "UserInterface -" << getAttributeName() << "@" << GlobalImpl::getParentWindowName(this) << value;
    // Queued to the interface thread by the automatic connection.
    setState(stateOf(value));
}
