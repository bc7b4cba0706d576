#ifndef COLUMNSHARES_H
#define COLUMNSHARES_H

#include <QObject>
#include <QTimer>
#include <QVector>

class QTableView;
class QWidget;

namespace Kelvane {
namespace gui {

/*!
  Lets the columns of a table share the width left of its vertical scroll
  bar: column i gets its share in percent of that width (evenly when no
  shares are given, nothing for a column past the list). A column too
  narrow for its header or its visible cells takes what it lacks from
  columns with room to spare, as long as their spare room covers it; when
  it does not, a table that scrolls sideways gives every column its texts'
  width, one that does not keeps the shares. The widths follow the view's
  size, its model's texts and its style sheet.
*/
class ColumnShares : public QObject
{
    Q_OBJECT

public:
    explicit ColumnShares(QTableView* view);

    void setShares(const QVector<double>& percentages);
    //! Follows the texts of the view's model from now on; call it when the view gets another model.
    void watchModel();
    //! How wide the view must be for every column to show its texts whole.
    int wholeTextsWidth() const;

    //! Widths that fill \a room in \a percentages, each at least its entry in \a needs where the room allows.
    static QVector<int> sharedWidths(int room, const QVector<double>& percentages, const QVector<int>& needs);

signals:
    void wholeTextsWidthChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fit();
    //! The width \a column needs to show its header and its visible cells whole.
    int neededWidth(int column) const;

    QTableView* m_view;
    QWidget* m_viewport;
    QVector<double> m_shares;
    int m_wholeTextsWidth = 0;
    //! Coalesces the refits of a list rewritten item by item, and waits out a new sheet's polish.
    QTimer m_refit;
    QVector<QMetaObject::Connection> m_modelWatch;
};

} // namespace gui
} // namespace Kelvane

#endif // COLUMNSHARES_H
