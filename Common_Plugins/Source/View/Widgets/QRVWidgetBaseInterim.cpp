#include "QRVWidgetBaseInterim.h"

#include "FrameLabel.h"
#include "GlobalImpl.h"
#include "QRVStatusBar.h"
#include "WidgetFrame.h"

#include <QPushButton>

class QRVWidgetBaseInterim::PrivateData
{
public:
    explicit PrivateData(QWidget* owner)
        : lockOverlay(WidgetFrame::createLockOverlay(owner))
    {
    }

    QWidget* desktop = nullptr;
    bool suppressDebug = false;
    QPushButton* lockOverlay = nullptr;
    QString attributeName = QStringLiteral("AttributeName");
    FrameLabel label;
    int updateDelay = 100;
    bool locked = false;
};

QRVWidgetBaseInterim::QRVWidgetBaseInterim(QWidget* parent)
    : QWidget(parent)
    , d(std::make_unique<PrivateData>(this))
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

QString QRVWidgetBaseInterim::getAttributeName() const { return d->attributeName; }
void QRVWidgetBaseInterim::setAttributeName(const QString& name) { d->attributeName = name; }
bool QRVWidgetBaseInterim::getSuppressDebug() const { return d->suppressDebug; }
void QRVWidgetBaseInterim::setSuppressDebug(bool suppress) { d->suppressDebug = suppress; }
void QRVWidgetBaseInterim::setDesktop(QWidget* desktop) { d->desktop = desktop; }
QLabel* QRVWidgetBaseInterim::getLabelWidget() const { return d->label.widget(); }
void QRVWidgetBaseInterim::setLabelWidget(QLabel* label) { d->label.setWidget(label); }
bool QRVWidgetBaseInterim::isLocked() const { return d->locked; }
void QRVWidgetBaseInterim::setLabel(const QString& label) { d->label.setText(label); }
QString QRVWidgetBaseInterim::getLabel() const { return d->label.text(); }
void QRVWidgetBaseInterim::setUpdateDelay(int delay) { d->updateDelay = delay; }
int QRVWidgetBaseInterim::getUpdateDelay() const { return d->updateDelay; }
void QRVWidgetBaseInterim::raise() { QWidget::raise(); }
void QRVWidgetBaseInterim::changeSize(const QString&) {}

void QRVWidgetBaseInterim::setWidgetLocked(bool isLocked)
{
    setLockImageVisible(isLocked);
    WidgetFrame::showLockOverlay(d->lockOverlay, isLocked);
}

void QRVWidgetBaseInterim::setLockImageVisible(const bool& visible)
{
    d->lockOverlay->setStyleSheet(WidgetFrame::lockOverlayStyle(visible));
}

void QRVWidgetBaseInterim::acquireLock()
{
    d->locked = true;
    if (WidgetFrame::takeEntryMechanism(this))
        emit DisplayEntryMechanism();
    else
        releaseLock();
}

void QRVWidgetBaseInterim::releaseLock()
{
    d->locked = false;
    WidgetFrame::giveBackEntryMechanism(this);
}

void QRVWidgetBaseInterim::mouseReleaseEvent(QMouseEvent* event)
{
    const WidgetFrame::Touch touch = WidgetFrame::classifyRelease(this, event);
    if (touch == WidgetFrame::Touch::DebugFlip) {
        d->suppressDebug = !d->suppressDebug;
        emit suppressDebug(d->suppressDebug);
        WidgetFrame::logDebugSwitch(d->suppressDebug, d->attributeName, this);
    }
    if (touch != WidgetFrame::Touch::Outside)
        acquireLock();
    QWidget::mouseReleaseEvent(event);
}

void QRVWidgetBaseInterim::resizeEvent(QResizeEvent* event)
{
    WidgetFrame::coverOwner(d->lockOverlay);
    QWidget::resizeEvent(event);
}
