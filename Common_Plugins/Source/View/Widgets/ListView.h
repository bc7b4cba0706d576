#ifndef LISTVIEW_H
#define LISTVIEW_H

#include <QListView>

/*!
  The file list of the browsers. Any change of the current entry, by touch
  or by key, counts as a click on it, so the file name follows the finger
  and the arrow keys alike. Left and Right ask the browser to leave or
  enter a directory.
*/
class ListView : public QListView
{
    Q_OBJECT

public:
    explicit ListView(QWidget* parent = nullptr);

    //! The first selected entry, or an invalid index when none is.
    QModelIndex firstSelectedIndex() const;
    //! Takes the platform's finger-wide scroll bars, both ways, and scrolls by the pixel.
    void useSystemScrollBars();

signals:
    void moveUpDirectory();
    void moveDownDirectory();

protected slots:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

#endif // LISTVIEW_H
