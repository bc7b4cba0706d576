#include "BenchInput.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

void benchMouse(QWidget* widget, QEvent::Type type, const QPoint& pos, Qt::MouseButtons buttons)
{
    QMouseEvent event(type, pos, widget->mapToGlobal(pos), Qt::LeftButton, buttons, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}
