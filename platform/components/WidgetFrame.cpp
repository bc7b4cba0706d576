#include "WidgetFrame.h"

#include "CSS.h"
#include "GlobalImpl.h"

#include <QDebug>
#include <QMouseEvent>
#include <QPushButton>

namespace WidgetFrame {

QPushButton* createLockOverlay(QWidget* owner)
{
    auto* overlay = new QPushButton(owner);
    overlay->setObjectName(QStringLiteral("LockOverlay"));
    overlay->setFocusPolicy(Qt::NoFocus);
    overlay->hide();
    return overlay;
}

void coverOwner(QPushButton* overlay)
{
    const QSize size = overlay->parentWidget()->size();
    overlay->setMinimumSize(size);
    overlay->resize(size);
}

QString lockOverlayStyle(bool withLockImage)
{
    if (withLockImage)
        return QStringLiteral("QPushButton#LockOverlay {    background-color: rgba(0,0,0,0);"
                              "    background-image: url(:/images/lock.png);"
                              "    background-position: top right;"
                              "    background-repeat: no-repeat;"
                              "    border: none;    font: bold 20px;    color: #fff;}");
    return QStringLiteral("QPushButton#LockOverlay {    background-color: rgba(0,0,0,0);"
                          "    border: none;    font: bold 20px;    color: #fff;}");
}

void showEngineLinkVeil(QPushButton* overlay, const QString& text, const QString& reason)
{
    const bool veiled = !text.isEmpty();
    overlay->setStyleSheet(veiled ? engineLinkLostStyle() : lockOverlayStyle(false));
    overlay->setText(text);
    overlay->setToolTip(reason);
    showLockOverlay(overlay, veiled);
}

QString engineLinkLostStyle()
{
    return QStringLiteral("QPushButton#LockOverlay { background-color: rgba(16, 20, 24, 190);"
                          " border: 2px dashed %1; border-radius: 6px; color: %1; font: bold 14px; }")
        .arg(CSS::alert());
}

void showLockOverlay(QPushButton* overlay, bool locked)
{
    if (locked) {
        coverOwner(overlay);
        overlay->show();
        overlay->raise();
    } else {
        overlay->hide();
    }
}

bool takeEntryMechanism(QWidget* widget)
{
    GlobalImpl* global = GlobalImpl::getInstance();
    global->setEntryMechanism(widget);
    return global->entryMechanism() == widget;
}

void giveBackEntryMechanism(QWidget* widget)
{
    GlobalImpl::getInstance()->releaseEntryMechanism(widget);
}

Touch classifyRelease(const QWidget* widget, const QMouseEvent* event)
{
    if (!widget->rect().contains(event->pos()))
        return Touch::Outside;
    return (event->modifiers() & Qt::ControlModifier) ? Touch::DebugFlip : Touch::Plain;
}

void logDebugSwitch(bool suppressed, const QString& attributeName, QWidget* widget)
{
    qDebug() << (suppressed ? "UserInterface - Debug is now OFF for:" : "UserInterface - Debug is now ON for:")
             << attributeName << "@" << GlobalImpl::getParentWindowName(widget);
}

} // namespace WidgetFrame
