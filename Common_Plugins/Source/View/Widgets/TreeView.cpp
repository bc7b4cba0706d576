#include "TreeView.h"

#include <QKeyEvent>

TreeView::TreeView(QWidget* parent)
    : QTreeView(parent)
{
}

void TreeView::keyPressEvent(QKeyEvent* event)
{
    QTreeView::keyPressEvent(event);
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        emit clicked(currentIndex());
}
