#include "QRVWidgetBaseInterim.h"

#include "GlobalImpl.h"
#include "QRVStatusBar.h"
#include "WidgetFrame.h"

#include <QPushButton>

QRVWidgetBaseInterim::QRVWidgetBaseInterim(QWidget* parent)
    : QWidget(parent)
    , m_lockOverlay(WidgetFrame::createLockOverlay(this))
{
    setFocusPolicy(Qt::NoFocus);
    setLockImageVisible(false);
    // Automatic connection: a lock event emitted on a DDS thread is queued.
    connect(this, &QRVWidgetBaseInterim::SetLocked, this, &QRVWidgetBaseInterim::setWidgetLocked);
    if (QRVStatusBar* bar = GlobalImpl::getInstance()->statusBar())
        connect(this, &QRVWidgetBaseInterim::exceptionMessage, bar, qOverload<const QString&>(&QRVStatusBar::addMessage));
}

QRVWidgetBaseInterim::~QRVWidgetBaseInterim()
{
    releaseLock();
}

QString QRVWidgetBaseInterim::getAttributeName() const { return m_attributeName; }
void QRVWidgetBaseInterim::setAttributeName(const QString& name) { m_attributeName = name; }
bool QRVWidgetBaseInterim::getSuppressDebug() const { return m_suppressDebug; }
void QRVWidgetBaseInterim::setSuppressDebug(bool suppress) { m_suppressDebug = suppress; }
void QRVWidgetBaseInterim::setDesktop(QWidget* desktop) { m_desktop = desktop; }
QLabel* QRVWidgetBaseInterim::getLabelWidget() const { return m_label.widget(); }
void QRVWidgetBaseInterim::setLabelWidget(QLabel* label) { m_label.setWidget(label); }
bool QRVWidgetBaseInterim::isLocked() const { return m_locked; }
void QRVWidgetBaseInterim::setLabel(const QString& label) { m_label.setText(label); }
QString QRVWidgetBaseInterim::getLabel() const { return m_label.text(); }
void QRVWidgetBaseInterim::setUpdateDelay(int delay) { m_updateDelay = delay; }
int QRVWidgetBaseInterim::getUpdateDelay() const { return m_updateDelay; }
void QRVWidgetBaseInterim::raise() { QWidget::raise(); }
void QRVWidgetBaseInterim::changeSize(const QString&) {}

void QRVWidgetBaseInterim::setWidgetLocked(bool isLocked)
{
    setLockImageVisible(isLocked);
    WidgetFrame::showLockOverlay(m_lockOverlay, isLocked);
}

void QRVWidgetBaseInterim::setLockImageVisible(const bool& visible)
{
    m_lockOverlay->setStyleSheet(WidgetFrame::lockOverlayStyle(visible));
}

void QRVWidgetBaseInterim::acquireLock()
{
    m_locked = true;
    if (WidgetFrame::takeEntryMechanism(this))
        emit DisplayEntryMechanism();
    else
        releaseLock();
}

void QRVWidgetBaseInterim::releaseLock()
{
    m_locked = false;
    WidgetFrame::giveBackEntryMechanism(this);
}

void QRVWidgetBaseInterim::mouseReleaseEvent(QMouseEvent* event)
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

void QRVWidgetBaseInterim::resizeEvent(QResizeEvent* event)
{
    WidgetFrame::coverOwner(m_lockOverlay);
    QWidget::resizeEvent(event);
}
