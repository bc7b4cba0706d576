#ifndef DISPLAYFRAME_H
#define DISPLAYFRAME_H

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

class QWidget;

/*!
  Paces the repaints of live values to the display's frames: a widget whose
  value changed is painted at the next frame, at most once per frame
  however many samples came in between, and all that changed within one
  frame are painted in one pass. A value is applied at once; only its
  paint waits.
*/
class DisplayFrame : public QObject
{
    Q_OBJECT

public:
    //! The interface thread's pacer.
    static DisplayFrame* instance();

    //! Runs \a change, which alters what \a widget shows, without the paint a Qt widget makes at once, and paints it at the next frame.
    void change(QWidget* widget, const std::function<void()>& change);
    //! Paints \a widget at the next frame.
    void paintAtNextFrame(QWidget* widget);

    //! Milliseconds between two frames.
    static constexpr int periodMs = 16;

private:
    DisplayFrame();
    void paintPending();

    QTimer m_tick;
    // Keyed by the widget; the guard tells one deleted since.
    QHash<QWidget*, QPointer<QWidget>> m_pending;
};

#endif // DISPLAYFRAME_H
