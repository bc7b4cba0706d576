#ifndef TREEVIEW_H
#define TREEVIEW_H

#include <QTreeView>

/*!
  The directory tree of the browsers. Stepping with the Up and Down keys
  counts as a click on the line reached, so the list beside it follows.
*/
class TreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit TreeView(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

#endif // TREEVIEW_H
