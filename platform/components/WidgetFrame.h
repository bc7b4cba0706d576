#ifndef WIDGETFRAME_H
#define WIDGETFRAME_H

#include <QString>

class QMouseEvent;
class QPushButton;
class QWidget;

/*!
  What the two widget frames (the bound WidgetBaseImpl and the unbound
  QRVWidgetBaseInterim) have in common and do the same way: the lock overlay,
  the one entry mechanism and the debug switch of a Control touch.
*/
namespace WidgetFrame {

//! The transparent "LockOverlay" button that covers a locked widget, hidden.
QPushButton* createLockOverlay(QWidget* owner);
//! Sizes the overlay to cover the whole of its owner.
void coverOwner(QPushButton* overlay);
//! The overlay's style sheet, with or without the lock picture.
QString lockOverlayStyle(bool withLockImage);

//! Covers the owner with \a overlay (locked) or hides it; the caller sets its picture.
void showLockOverlay(QPushButton* overlay, bool locked);

//! The overlay's style sheet once the engine link is lost.
QString engineLinkLostStyle();
//! Covers the owner with a veil that says \a text ("No engine link"), or lifts it for an empty text.
void showEngineLinkVeil(QPushButton* overlay, const QString& text, const QString& reason);

//! Asks GlobalImpl for the entry mechanism; true if \a widget holds it now.
bool takeEntryMechanism(QWidget* widget);
void giveBackEntryMechanism(QWidget* widget);

//! What a touch released on a frame asks for.
enum class Touch
{
    Outside,   //!< released beside the widget: nothing
    Plain,     //!< open the entry mechanism
    DebugFlip  //!< a Control touch: flip the debug switch, then as Plain
};
Touch classifyRelease(const QWidget* widget, const QMouseEvent* event);
//! Writes the log line that tells the switch's new position.
void logDebugSwitch(bool suppressed, const QString& attributeName, QWidget* widget);

} // namespace WidgetFrame

#endif // WIDGETFRAME_H
