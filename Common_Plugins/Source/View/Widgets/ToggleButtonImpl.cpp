#include "ToggleButtonImpl.h"

#include "BooleanLink.h"
#include "CSS.h"
#include "GlobalImpl.h"

#include <QDebug>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

#include <boost/bind/bind.hpp>

using namespace boost::placeholders;

ToggleButtonImpl::ToggleButtonImpl(QWidget* parent)
    : WidgetBaseImpl(parent)
    , m_button(new QPushButton(this))
    , m_stateLabel(new QLabel(this))
{
    setObjectName(QStringLiteral("ToggleButton"));
    m_button->setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Maximum);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_button);
    auto* buttonLayout = new QVBoxLayout(m_button);
    buttonLayout->addWidget(m_stateLabel, 0, Qt::AlignRight | Qt::AlignVCenter);
    m_stateLabel->setObjectName(QStringLiteral("Label"));
    m_button->setObjectName(QStringLiteral("Label"));

    changeSize(QStringLiteral("Max"));
    setButtonState(m_onText);

    connect(m_button, &QPushButton::clicked, this, &ToggleButtonImpl::pressedEvent);
    connect(this, &ToggleButtonImpl::changeState, this, &ToggleButtonImpl::setButtonState);
    connect(this, &ToggleButtonImpl::lockState, this, &ToggleButtonImpl::setLockState);
    // The lock shows in the pill, not in the frame's overlay.
    disconnect(this, &WidgetBaseImpl::SetLocked, this, &WidgetBaseImpl::setWidgetLocked);
    connect(this, &WidgetBaseImpl::SetLocked, this, &ToggleButtonImpl::lockState);
}

ToggleButtonImpl::~ToggleButtonImpl()
{
    // Sends and samples read the state texts of this class.
    waitForSends();
    releaseSubscriptions();
}

QString ToggleButtonImpl::styleSheet()
{
    return QStringLiteral("QPushButton { background-color: qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1,"
                          " stop: 0 %1, stop: 0.7 %2, stop: 1 %3); color: white; border: 2px solid %4;"
                          " border-radius: 15px; padding: 3px 0px 0px 8px; margin: 0px; min-height: 40px;"
                          " max-height: 40px; text-align: top left; font-size: 18px; }"
                          "QPushButton:pressed { color: white; background: %4; }"
                          "QPushButton:disabled { border-color: rgb(102,102,102); }"
                          "QLabel { border-radius: 7px; padding: 0px 10px 0px 5px; min-height: 12px;"
                          " max-height: 12px; margin: 17px 0px 0px 0px; color: #000; font-size: 14px;"
                          " font-weight: bold; }"
                          "QLabel#On { border: 1px solid #0afa55; background: #0afa55; }"
                          "QLabel#Off { border: 1px solid %5; background: %5; }"
                          "QLabel#Loading { border: 1px solid #febe42; color: #febe42; background: #000; }"
                          "QLabel#Locked { border: 1px solid #0afa55; background: #666666; }")
        .arg(CSS::gradientDark(), CSS::gradientMiddle(), CSS::gradientLight(), CSS::border(), CSS::highlight());
}

QString ToggleButtonImpl::getState() const { return m_state; }
QString ToggleButtonImpl::getLabel() const { return m_button->text(); }
void ToggleButtonImpl::setLabel(const QString& text) { m_button->setText(tr(text.toLatin1().constData())); }
QString ToggleButtonImpl::getOnText() const { return m_onText; }
QString ToggleButtonImpl::getOffText() const { return m_offText; }
QString ToggleButtonImpl::getLoadingText() const { return m_loadingText; }
ToggleButtonImpl::State_t ToggleButtonImpl::getActiveState() const { return m_activeState; }

void ToggleButtonImpl::setOnText(const QString& text)
{
    m_onText = text;
    if (m_activeState == On)
        m_stateLabel->setText(tr(text.toLatin1().constData()));
}

void ToggleButtonImpl::setOffText(const QString& text)
{
    m_offText = text;
    if (m_activeState == Off)
        m_stateLabel->setText(tr(text.toLatin1().constData()));
}

void ToggleButtonImpl::setLoadingText(const QString& text)
{
    m_loadingText = text;
    if (m_activeState == Loading)
        m_stateLabel->setText(tr(text.toLatin1().constData()));
}

void ToggleButtonImpl::setActiveState(State_t state)
{
    setButtonState(state == On ? m_onText : state == Off ? m_offText : m_loadingText);
}

void ToggleButtonImpl::setLockState(bool isLocked)
{
    m_locked = isLocked;
    setActiveState(m_activeState);
}

void ToggleButtonImpl::setState(const QString& s)
{
    emit changeState(s);
}

void ToggleButtonImpl::changeSize(const QString&)
{
    setStyleSheet(m_style);
}

void ToggleButtonImpl::retranslate()
{
    setButtonState(m_state);
}

void ToggleButtonImpl::setLockImageVisible(const bool&) {}

void ToggleButtonImpl::mouseReleaseEvent(QMouseEvent* event)
{
    // No entry mechanism here: a touch only ever flips the debug switch.
    if (event->modifiers() & Qt::ControlModifier)
        flipDebugSwitch();
}

void ToggleButtonImpl::showPill(const QString& text, const char* objectName)
{
    m_stateLabel->setText(text);
    m_stateLabel->setObjectName(QLatin1String(objectName));
}

void ToggleButtonImpl::setButtonState(const QString& s)
{
    m_state = s;
    if (m_state == m_onText) {
        showPill(tr(m_onText.toLatin1().constData()), "On");
        m_activeState = On;
    } else if (m_state == m_offText) {
        showPill(tr(m_offText.toLatin1().constData()), "Off");
        m_activeState = Off;
    } else {
        showPill(tr(m_loadingText.toLatin1().constData()), "Loading");
        m_activeState = Loading;
    }
    if (m_locked)
        showPill(QStringLiteral("Locked-") + m_stateLabel->text(), "Locked");
    m_button->setEnabled(!m_locked);
    // Setting the sheet again makes the pill's new object name take effect.
    setStyleSheet(m_style);
}

void ToggleButtonImpl::pressedEvent()
{
    QWidget* holder = GlobalImpl::getInstance()->entryMechanism();
    if (holder && holder != this)
        return;
    // A widget whose engine is lost, or whose binding failed, changes nothing on its own.
    if (isEngineLinkLost()) {
        releaseLock();
        return;
    }
    QString target;
    if (m_state == m_onText) {
        target = m_offText;
    } else if (m_state == m_offText) {
        target = m_onText;
    } else {
        releaseLock();
        return;
    }
    setButtonState(m_loadingText);
    if (!isBindingAttempted()) {
        emit changeState(target);
        releaseLock();
        return;
    }
    sendOnWorker([this, target] { attemptState(target); });
    releaseLock();
}

void ToggleButtonImpl::attemptState(const QString& s)
{
    const BooleanLink* boolean = link<BooleanLink>();
    QString failure;
    const EngineCall outcome = callEngine(
        [this, boolean, &s] {
            if (!boolean)
                return;
            if (s == m_onText) {
                qDebug() << "UserInterface - ToggleButton:" << getAttributeName() << "- Sending True";
                boolean->set(true);
            } else if (s == m_offText) {
                qDebug() << "UserInterface - ToggleButton:" << getAttributeName() << "- Sending False";
                boolean->set(false);
            }
        },
        &failure);
    if (outcome != EngineCall::Refused)
        return; // on success the engine's sample ends the wait
    qDebug() << "UserInterface - ToggleButton:" << getAttributeName() << "threw exception while setting state:" << s
             << failure;
    emit exceptionMessage(getAttributeName() + QStringLiteral(" threw an exception while sending: ") + s);
    revertToEngineState();
}

void ToggleButtonImpl::revertToEngineState()
{
    const BooleanLink* boolean = link<BooleanLink>();
    const EngineCall outcome = callEngine([this, boolean] {
        if (boolean)
            setState(boolean->value() ? m_onText : m_offText);
    });
    if (outcome == EngineCall::Refused)
        disconnectCORBA(QStringLiteral("Failed to revert"));
}

void ToggleButtonImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    WidgetBaseImpl::bindAttribute(attr);
    const BooleanLink* boolean
        = bindAs<BooleanLink>(attr, BooleanLink::AttribBoolean, ">>>>>Expected Boolean type but received: %s (%s)");
    if (!boolean)
        return;
    setButtonState(boolean->value() ? m_onText : m_offText);
    boolean->follow(boost::bind(&ToggleButtonImpl::dds_callback, this, _1, _2));
}

void ToggleButtonImpl::dds_callback(const char*, bool value)
{
    qDebug() << "UserInterface -" << getAttributeName() << " Received: " << (value ? "true" : "false");
    emit changeState(value ? m_onText : m_offText);
    emit checkedState(value);
}
