#ifndef TABLEVIEWIMPL_H
#define TABLEVIEWIMPL_H

#include <QTableView>
#include <QVector>

namespace Kelvane {
namespace gui {

class ColumnShares;
class VerticalScrollBarImpl;
class HorizontalScrollBarImpl;

/*!
  A borderless-grid table on a model, white text on whatever lies behind it
  (dark text when told it lies on a white panel), one whole row selected at
  a time and marked in the highlight colour, with the platform's finger-sized scroll
  bars. Binds no engine attribute: it is the view under TableEnum and
  TableEnumMulti, which learn of a touched row through highlightChanged().

  The look follows the size words "Max" and "Min". Told to share its width,
  the columns fill the room left of the vertical scroll bar.
*/
class TableViewImpl : public QTableView
{
    Q_OBJECT

public:
    explicit TableViewImpl(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void setModel(QAbstractItemModel* model) override;
    //! Dark text, for a view laid on a white panel.
    void setOnWhitePanel(bool onWhite);
    //! From now on the columns share the width left of the scroll bar in \a percentages (see ColumnShares).
    void setColumnShares(const QVector<double>& percentages);
    //! With shared width: how wide the view must be for every column to show its texts whole; else 0.
    int wholeTextsWidth() const;

signals:
    void mousePressed();
    //! A touch ended on the cell at \a index.
    void highlightChanged(QModelIndex index);
    //! The texts now need another wholeTextsWidth().
    void wholeTextsWidthChanged();

public slots:
    void changeSize(const QString& size);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    static QString styleSheetFor(int fontPx, int headerFontPx, const QString& ink);
    void buildSheets(const QString& ink);

    VerticalScrollBarImpl* m_verticalScrollBar = nullptr;
    HorizontalScrollBarImpl* m_horizontalScrollBar = nullptr;
    QString m_styleMax;
    QString m_styleMin;
    QString m_sizeName = QStringLiteral("Max");
    ColumnShares* m_columnShares = nullptr;
};

} // namespace gui
} // namespace Kelvane

#endif // TABLEVIEWIMPL_H
