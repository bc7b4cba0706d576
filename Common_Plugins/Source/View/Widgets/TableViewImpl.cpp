#include "TableViewImpl.h"

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
    changeSize(QStringLiteral("Max"));
}

QSize TableViewImpl::sizeHint() const { return QSize(75, 75); }
QSize TableViewImpl::minimumSizeHint() const { return QSize(75, 75); }

QString TableViewImpl::styleSheetFor(int fontPx, int headerFontPx)
{
    return QStringLiteral("QTableView#RuvellTableView { background: transparent; color: white;"
                          " border: 2px solid #fff; selection-background-color: transparent;"
                          " selection-color: #000; font-size: %1px; }"
                          "QHeaderView { background: transparent; }"
                          "QHeaderView::section { background: transparent; color: white; border: none;"
                          " border-bottom: 2px solid #fff; padding: 1px; font-size: %2px; }")
        .arg(fontPx)
        .arg(headerFontPx);
}

void TableViewImpl::changeSize(const QString& size)
{
    QRVUtil::applyMaxMinSheet(this, size, m_styleMax, m_styleMin);
}

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
