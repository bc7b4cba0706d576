#include "EnumColumn.h"

#include <QStandardItemModel>

namespace Kelvane {
namespace gui {

void EnumColumn::rebuild(const QList<Entry>& entries, QStandardItemModel* model, int column, bool splitCSV,
                         const QString& lead)
{
    QHash<long, int> rows;
    QVector<long> values;
    for (int r = 0; r < entries.size(); ++r) {
        const Entry& entry = entries.at(r);
        rows[entry.value] = r;
        values.append(entry.value);
        const QStringList parts = splitCSV ? entry.label.split(QLatin1Char(',')) : QStringList{entry.label};
        for (int c = 0; c < parts.size(); ++c)
            model->setItem(r, column + c, new QStandardItem(lead + parts.at(c)));
    }
    for (int r = entries.size(); r < model->rowCount(); ++r)
        delete model->takeItem(r, column);
    QMutexLocker lock(&m_mutex);
    m_rowOfValue = rows;
    m_valueOfRow = values;
}

int EnumColumn::rowOf(long value)
{
    QMutexLocker lock(&m_mutex);
    return m_rowOfValue[value];
}

std::optional<long> EnumColumn::valueAt(int row) const
{
    QMutexLocker lock(&m_mutex);
    // Not a walk through the map: unknown values entered as row 0 would compete with the real one.
    if (row < 0 || row >= m_valueOfRow.size())
        return std::nullopt;
    return m_valueOfRow.at(row);
}

int EnumColumn::count() const
{
    QMutexLocker lock(&m_mutex);
    return m_valueOfRow.size();
}

} // namespace gui
} // namespace Kelvane
