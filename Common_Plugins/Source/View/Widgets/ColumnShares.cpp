#include "ColumnShares.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <numeric>

namespace Kelvane {
namespace gui {

ColumnShares::ColumnShares(QTableView* view)
    : QObject(view)
    , m_view(view)
    , m_viewport(view->viewport())
{
    m_refit.setSingleShot(true);
    m_refit.setInterval(0);
    connect(&m_refit, &QTimer::timeout, this, &ColumnShares::fit);
    m_view->installEventFilter(this);
    m_viewport->installEventFilter(this);
    watchModel();
}

void ColumnShares::setShares(const QVector<double>& percentages)
{
    m_shares = percentages;
    fit();
}

int ColumnShares::wholeTextsWidth() const { return m_wholeTextsWidth; }

void ColumnShares::watchModel()
{
    for (const QMetaObject::Connection& connection : qAsConst(m_modelWatch))
        disconnect(connection);
    m_modelWatch.clear();
    QAbstractItemModel* model = m_view->model();
    if (!model)
        return;
    auto refit = [this] { m_refit.start(); };
    m_modelWatch << connect(model, &QAbstractItemModel::dataChanged, this, refit)
                 << connect(model, &QAbstractItemModel::headerDataChanged, this, refit)
                 << connect(model, &QAbstractItemModel::rowsInserted, this, refit)
                 << connect(model, &QAbstractItemModel::rowsRemoved, this, refit)
                 << connect(model, &QAbstractItemModel::columnsInserted, this, refit)
                 << connect(model, &QAbstractItemModel::columnsRemoved, this, refit)
                 << connect(model, &QAbstractItemModel::modelReset, this, refit)
                 << connect(model, &QAbstractItemModel::layoutChanged, this, refit);
    m_refit.start();
}

bool ColumnShares::eventFilter(QObject* watched, QEvent* event)
{
    // Only pointers are compared: the view may be half destroyed by now.
    switch (event->type()) {
    case QEvent::Resize:
        // The viewport is resized once the scroll area has placed its bars,
        // so its size is the room left of the vertical bar.
        if (watched == m_viewport)
            fit();
        break;
    case QEvent::StyleChange:
    case QEvent::FontChange:
        if (watched == m_view)
            m_refit.start();
        break;
    default:
        break;
    }
    return false;
}

QVector<int> ColumnShares::sharedWidths(int room, const QVector<double>& percentages, const QVector<int>& needs)
{
    const int columns = needs.size();
    QVector<int> widths(columns);
    for (int c = 0; c < columns; ++c) {
        const double share = percentages.isEmpty() ? 100.0 / columns : percentages.value(c, 0.0);
        widths[c] = std::max(0, int(room * (share / 100.0)));
    }
    int lacking = 0;
    int spare = 0;
    for (int c = 0; c < columns; ++c) {
        const int difference = needs.at(c) - widths.at(c);
        if (difference > 0)
            lacking += difference;
        else
            spare -= difference;
    }
    const int unassigned = std::max(0, room - std::accumulate(widths.cbegin(), widths.cend(), 0));
    // Without room for every text the given shares stand: no column is starved for another.
    if (lacking == 0 || lacking > spare + unassigned)
        return widths;
    // Room no column was given goes first; then each column gives in proportion to what it spares.
    const int toTake = std::max(0, lacking - unassigned);
    int taken = 0;
    for (int c = 0; c < columns && spare > 0; ++c) {
        if (widths.at(c) <= needs.at(c))
            continue;
        const int give = int(qint64(widths.at(c) - needs.at(c)) * toTake / spare);
        widths[c] -= give;
        taken += give;
    }
    for (int c = 0; c < columns && taken < toTake; ++c) {
        const int give = std::min(std::max(0, widths.at(c) - needs.at(c)), toTake - taken);
        widths[c] -= give;
        taken += give;
    }
    for (int c = 0; c < columns; ++c)
        widths[c] = std::max(widths.at(c), needs.at(c));
    return widths;
}

int ColumnShares::neededWidth(int column) const
{
    // Public in the base class only; the view measures in its item delegate's terms.
    int needed = static_cast<const QAbstractItemView*>(m_view)->sizeHintForColumn(column);
    if (!m_view->horizontalHeader()->isHidden())
        needed = std::max(needed, m_view->horizontalHeader()->sectionSizeHint(column));
    return needed;
}

void ColumnShares::fit()
{
    m_refit.stop();
    QAbstractItemModel* model = m_view->model();
    if (!model)
        return;
    // The texts are measured in the fonts of the size's sheet.
    m_view->ensurePolished();
    const int columns = model->columnCount(m_view->rootIndex());
    QVector<int> needs(columns);
    for (int c = 0; c < columns; ++c)
        needs[c] = neededWidth(c);
    const int room = m_view->viewport()->width();
    const bool scrollsSideways = m_view->horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
    // A table that can scroll sideways shows every text whole when they do not all fit.
    const QVector<int> widths = scrollsSideways && std::accumulate(needs.cbegin(), needs.cend(), 0) > room
                                    ? needs
                                    : sharedWidths(room, m_shares, needs);
    for (int c = 0; c < columns; ++c)
        m_view->setColumnWidth(c, widths.at(c));

    const QScrollBar* bar = m_view->verticalScrollBar();
    const bool barTakesRoom = m_view->verticalScrollBarPolicy() == Qt::ScrollBarAlwaysOn || bar->isVisibleTo(m_view);
    const QHeaderView* rowHeader = m_view->verticalHeader();
    // The scroll area lays its bar out at the bar's hinted width.
    const int whole = std::accumulate(needs.cbegin(), needs.cend(), 0) + 2 * m_view->frameWidth()
                      + (barTakesRoom ? bar->sizeHint().width() : 0)
                      + (rowHeader->isHidden() ? 0 : rowHeader->sizeHint().width());
    if (whole != m_wholeTextsWidth) {
        m_wholeTextsWidth = whole;
        emit wholeTextsWidthChanged();
    }
}

} // namespace gui
} // namespace Kelvane
