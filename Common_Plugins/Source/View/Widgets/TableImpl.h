#ifndef TABLEIMPL_H
#define TABLEIMPL_H

#include <QTableWidget>

namespace Kelvane {
namespace gui {

class VerticalScrollBarImpl;
class HorizontalScrollBarImpl;

/*!
  A table the host fills cell by cell: headers in the theme's frame colour,
  a touched row lit with a cyan gradient, and the platform's finger-sized
  scroll bars (thin ones with ScrollBarStyle WITH_SCROLL_ARROWS). The
  columns share the width left of the vertical scroll bar evenly, each at
  least as wide as its texts where the room allows; too wide together, they
  keep their texts' widths and the table scrolls sideways. Binds no engine
  attribute.

  The look follows the size words "Max" and "Min".
*/
class TableImpl : public QTableWidget
{
    Q_OBJECT
    Q_PROPERTY(ScrollBarStyle ScrollBarStyle READ getScrollBarStyle WRITE setScrollBarStyle)

public:
    enum ScrollBarStyle
    {
        RV_DEFAULT = 0,
        WITH_SCROLL_ARROWS = 1
    };
    Q_ENUM(ScrollBarStyle)

    explicit TableImpl(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    ScrollBarStyle getScrollBarStyle() const;

signals:
    void resized();

public slots:
    //! Selects the whole touched row and leaves the touched cell current.
    void onCellClicked(int row, int column);
    void changeSize(const QString& size);
    void setScrollBarStyle(ScrollBarStyle style);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    static QString styleSheetFor(int fontPx, int headerFontPx);

    VerticalScrollBarImpl* m_verticalScrollBar = nullptr;
    HorizontalScrollBarImpl* m_horizontalScrollBar = nullptr;
    QString m_styleMax = styleSheetFor(18, 16);
    QString m_styleMin = styleSheetFor(14, 12);
    ScrollBarStyle m_scrollBarStyle = RV_DEFAULT;
};

} // namespace gui
} // namespace Kelvane

#endif // TABLEIMPL_H
