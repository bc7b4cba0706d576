#include "TableImpl.h"

#include "CSS.h"
#include "ColumnShares.h"
#include "QRVUtil.h"
#include "HorizontalScrollBarImpl.h"
#include "VerticalScrollBarImpl.h"

namespace Kelvane {
namespace gui {

TableImpl::TableImpl(QWidget* parent)
    : QTableWidget(parent)
    , m_verticalScrollBar(new VerticalScrollBarImpl)
    , m_horizontalScrollBar(new HorizontalScrollBarImpl)
{
    setObjectName(QStringLiteral("RuvellTable"));
    setVerticalScrollBar(m_verticalScrollBar);
    setHorizontalScrollBar(m_horizontalScrollBar);
    setFocusPolicy(Qt::FocusPolicy(11));
    connect(this, &QTableWidget::cellClicked, this, &TableImpl::onCellClicked);
    changeSize(QStringLiteral("Max"));
    new ColumnShares(this);
}

QSize TableImpl::sizeHint() const { return QSize(75, 75); }
QSize TableImpl::minimumSizeHint() const { return QSize(75, 75); }
TableImpl::ScrollBarStyle TableImpl::getScrollBarStyle() const { return m_scrollBarStyle; }

QString TableImpl::styleSheetFor(int fontPx, int headerFontPx)
{
    // Type selectors, not the object name: a form renames the table.
    return QStringLiteral("QTableWidget { background: transparent; color: white;"
                          " gridline-color: %1; border: 2px solid %1; font-size: %2px; }"
                          "QTableWidget::item:selected { color: white; background: qlineargradient("
                          "x1: 0, y1: 0, x2: 0, y2: 1, stop: 0 rgba(43,225,255,225), stop: 0.5 rgba(0,0,0,150),"
                          " stop: 1 rgba(43,225,255,225)); }"
                          "QHeaderView::section, QTableCornerButton::section { background: %1; color: white;"
                          " padding: 1px; border: none; font-size: %3px; }")
        .arg(CSS::border())
        .arg(fontPx)
        .arg(headerFontPx);
}

void TableImpl::changeSize(const QString& size)
{
    QRVUtil::applyMaxMinSheet(this, size, m_styleMax, m_styleMin);
}

void TableImpl::onCellClicked(int row, int column)
{
    const auto command = QItemSelectionModel::SelectionFlags(2);
    for (int c = 0; c < columnCount(); ++c)
        setCurrentCell(row, c, command);
    setCurrentCell(row, column, command);
}

void TableImpl::setScrollBarStyle(ScrollBarStyle style)
{
    m_scrollBarStyle = style;
    // The default leaves the bars as they are: a host may have styled them.
    if (style != WITH_SCROLL_ARROWS)
        return;
    m_verticalScrollBar->setStyle(ScrollBarImpl::Thin);
    m_horizontalScrollBar->setStyle(ScrollBarImpl::Thin);
}

void TableImpl::resizeEvent(QResizeEvent* event)
{
    QTableWidget::resizeEvent(event);
    emit resized();
}

} // namespace gui
} // namespace Kelvane
