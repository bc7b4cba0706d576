#include "DisplayFrame.h"

#include <QWidget>

DisplayFrame::DisplayFrame()
{
    m_tick.setInterval(periodMs);
    connect(&m_tick, &QTimer::timeout, this, &DisplayFrame::paintPending);
}

DisplayFrame* DisplayFrame::instance()
{
    static DisplayFrame* frame = new DisplayFrame;
    return frame;
}

void DisplayFrame::change(QWidget* widget, const std::function<void()>& change)
{
    // Some widgets (QProgressBar) repaint inside their setters; a widget
    // whose updates are blocked skips that, and nothing else of it changes.
    const bool blocked = widget->testAttribute(Qt::WA_UpdatesDisabled);
    widget->setAttribute(Qt::WA_UpdatesDisabled, true);
    change();
    widget->setAttribute(Qt::WA_UpdatesDisabled, blocked);
    paintAtNextFrame(widget);
}

void DisplayFrame::paintAtNextFrame(QWidget* widget)
{
    m_pending.insert(widget, widget);
    if (!m_tick.isActive())
        m_tick.start();
}

void DisplayFrame::paintPending()
{
    const QHash<QWidget*, QPointer<QWidget>> pending = std::move(m_pending);
    m_pending.clear();
    for (const QPointer<QWidget>& widget : pending)
        if (widget)
            widget->update();
    if (m_pending.isEmpty())
        m_tick.stop();
}
