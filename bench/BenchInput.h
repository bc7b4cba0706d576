#ifndef BENCHINPUT_H
#define BENCHINPUT_H

#include <QEvent>
#include <QPoint>

class QWidget;

//! Delivers a left-button mouse event of \a type at \a pos to \a widget, as a touch does.
void benchMouse(QWidget* widget, QEvent::Type type, const QPoint& pos, Qt::MouseButtons buttons);

#endif // BENCHINPUT_H
