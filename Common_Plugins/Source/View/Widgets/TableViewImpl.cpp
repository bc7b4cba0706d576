#include "TableViewImpl.h"

#include "CSS.h"
#include "ColumnShares.h"
#include "HorizontalScrollBarImpl.h"
#include "QRVUtil.h"
#include "VerticalScrollBarImpl.h"

#include <QHeaderView>
#include <QMouseEvent>

namespace Kelvane {
namespace gui {

TableViewImpl::TableViewImpl(QWidget* parent)
    : QTableView(parent)
    , m_verticalScrollBar(new VerticalScrollBarImpl)
    , m_horizontalScrollBar(new HorizontalScrollBarImpl)
{
    setObjectName(QStringLiteral("RuvellTableView"));
    setVerticalScrollBar(m_verticalScrollBar);
    setHorizontalScrollBar(m_horizontalScrollBar);
    setShowGrid(false);
    setFocusPolicy(Qt::NoFocus);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    verticalHeader()->setVisible(false);
    buildSheets(QStringLiteral("white"));
}

QSize TableViewImpl::sizeHint() const { return QSize(75, 75); }
QSize TableViewImpl::minimumSizeHint() const { return QSize(75, 75); }

// The selected row is marked in the highlight colour: black text on a
// transparent row would vanish on the dark screen.
QString TableViewImpl::styleSheetFor(int fontPx, int headerFontPx, const QString& ink)
{
    return QStringLiteral("QTableView { background: transparent; color: %3;"
                          " border: 2px solid #fff; selection-background-color: %4;"
                          " selection-color: #000; font-size: %1px; }"
                          "QHeaderView { background: transparent; }"
                          "QHeaderView::section { background: transparent; color: %3; border: none;"
                          " border-bottom: 2px solid %3; padding: 1px; font-size: %2px; }")
        .arg(fontPx)
        .arg(headerFontPx)
        .arg(ink, CSS::highlight());
}

void TableViewImpl::buildSheets(const QString& ink)
{
    m_styleMax = styleSheetFor(18, 16, ink);
    m_styleMin = styleSheetFor(14, 12, ink);
    changeSize(m_sizeName);
}

void TableViewImpl::setOnWhitePanel(bool onWhite)
{
    buildSheets(onWhite ? QStringLiteral("#000") : QStringLiteral("white"));
}

void TableViewImpl::changeSize(const QString& size)
{
    if (QRVUtil::applyMaxMinSheet(this, size, m_styleMax, m_styleMin))
        m_sizeName = size;
}

void TableViewImpl::setModel(QAbstractItemModel* model)
{
    QTableView::setModel(model);
    if (m_columnShares)
        m_columnShares->watchModel();
}

void TableViewImpl::setColumnShares(const QVector<double>& percentages)
{
    if (!m_columnShares) {
        m_columnShares = new ColumnShares(this);
        connect(m_columnShares, &ColumnShares::wholeTextsWidthChanged, this, &TableViewImpl::wholeTextsWidthChanged);
    }
    m_columnShares->setShares(percentages);
}

int TableViewImpl::wholeTextsWidth() const { return m_columnShares ? m_columnShares->wholeTextsWidth() : 0; }

void TableViewImpl::mousePressEvent(QMouseEvent* event)
{
    if (indexAt(event->pos()).isValid())
        emit mousePressed();
    QTableView::mousePressEvent(event);
}

void TableViewImpl::mouseReleaseEvent(QMouseEvent* event)
{
    // The base handler is left out on purpose: the owner of the view decides
    // what a touched row means (and whether it may be selected at all).
    const QModelIndex index = indexAt(event->pos());
    if (index.row() >= 0 && index.column() >= 0 && index.model())
        emit highlightChanged(index);
}

} // namespace gui
} // namespace Kelvane
