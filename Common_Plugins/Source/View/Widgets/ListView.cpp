#include "ListView.h"

#include "HorizontalScrollBarImpl.h"
#include "VerticalScrollBarImpl.h"

#include <QKeyEvent>

ListView::ListView(QWidget* parent)
    : QListView(parent)
{
}

QModelIndex ListView::firstSelectedIndex() const
{
    const QModelIndexList selected = selectedIndexes();
    return selected.isEmpty() ? QModelIndex() : selected.first();
}

void ListView::useSystemScrollBars()
{
    auto* vertical = new Kelvane::gui::VerticalScrollBarImpl;
    auto* horizontal = new Kelvane::gui::HorizontalScrollBarImpl;
    vertical->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
    horizontal->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::MinimumExpanding);
    setVerticalScrollBar(vertical);
    setHorizontalScrollBar(horizontal);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
}

void ListView::currentChanged(const QModelIndex& current, const QModelIndex&)
{
    emit clicked(current);
}

// Left asks for both moves, up and then down, as it always has: a browser
// that follows both signals steps up and back down again.
void ListView::keyPressEvent(QKeyEvent* event)
{
    QListView::keyPressEvent(event);
    switch (event->key()) {
    case Qt::Key_Left:
        emit moveUpDirectory();
        emit moveDownDirectory();
        break;
    case Qt::Key_Right:
        emit moveDownDirectory();
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        emit clicked(currentIndex());
        break;
    default:
        break;
    }
}
