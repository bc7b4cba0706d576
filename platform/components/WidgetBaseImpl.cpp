#include "WidgetBaseImpl.h"

#include "GlobalImpl.h"
#include "QRVStatusBar.h"
#include "WidgetFrame.h"

#include <QPushButton>

WidgetBaseImpl::WidgetBaseImpl(QWidget* parent)
    : QWidget(parent)
    , m_lockOverlay(WidgetFrame::createLockOverlay(this))
{
    setFocusPolicy(Qt::NoFocus);
    setLockImageVisible(false);
    // Automatic connection: a lock event emitted on a DDS thread is queued.
    connect(this, &WidgetBaseImpl::SetLocked, this, &WidgetBaseImpl::setWidgetLocked);
    if (QRVStatusBar* bar = GlobalImpl::getInstance()->statusBar())
        connect(this, &WidgetBaseImpl::exceptionMessage, bar, qOverload<const QString&>(&QRVStatusBar::addMessage));
}

WidgetBaseImpl::~WidgetBaseImpl()
{
    releaseLock();
}

QString WidgetBaseImpl::getAttributeName() const { return m_attributeName; }
void WidgetBaseImpl::setAttributeName(const QString& name) { m_attributeName = name; }
bool WidgetBaseImpl::getSuppressDebug() const { return m_suppressDebug; }
void WidgetBaseImpl::setSuppressDebug(bool suppress) { m_suppressDebug = suppress; }
void WidgetBaseImpl::setDesktop(QWidget* desktop) { m_desktop = desktop; }
QWidget* WidgetBaseImpl::desktop() const { return m_desktop; }
QLabel* WidgetBaseImpl::getLabelWidget() const { return m_label.widget(); }
void WidgetBaseImpl::setLabelWidget(QLabel* label) { m_label.setWidget(label); }
bool WidgetBaseImpl::isLocked() const { return m_locked; }
void WidgetBaseImpl::setLabel(const QString& label) { m_label.setText(label); }
QString WidgetBaseImpl::getLabel() const { return m_label.text(); }
void WidgetBaseImpl::setUpdateDelay(int delay) { m_updateDelay = delay; }
int WidgetBaseImpl::getUpdateDelay() const { return m_updateDelay; }
void WidgetBaseImpl::retranslate() { m_label.retranslate("WidgetBaseImpl"); }
void WidgetBaseImpl::raise() { QWidget::raise(); }
void WidgetBaseImpl::changeSize(const QString&) {}

void WidgetBaseImpl::setWidgetLocked(bool isLocked)
{
    setLockImageVisible(isLocked);
    WidgetFrame::showLockOverlay(m_lockOverlay, isLocked);
}

void WidgetBaseImpl::setLockImageVisible(const bool& visible)
{
    m_lockOverlay->setStyleSheet(WidgetFrame::lockOverlayStyle(visible));
}

void WidgetBaseImpl::acquireLock()
{
    m_locked = true;
    if (WidgetFrame::takeEntryMechanism(this))
        emit DisplayEntryMechanism();
    else
        releaseLock();
}

void WidgetBaseImpl::releaseLock()
{
    m_locked = false;
    WidgetFrame::giveBackEntryMechanism(this);
}

void WidgetBaseImpl::mouseReleaseEvent(QMouseEvent* event)
{
    const WidgetFrame::Touch touch = WidgetFrame::classifyRelease(this, event);
    if (touch == WidgetFrame::Touch::DebugFlip) {
        m_suppressDebug = !m_suppressDebug;
        emit suppressDebug(m_suppressDebug);
        WidgetFrame::logDebugSwitch(m_suppressDebug, m_attributeName, this);
    }
    if (touch != WidgetFrame::Touch::Outside)
        acquireLock();
    QWidget::mouseReleaseEvent(event);
}

void WidgetBaseImpl::resizeEvent(QResizeEvent* event)
{
    WidgetFrame::coverOwner(m_lockOverlay);
    QWidget::resizeEvent(event);
}
