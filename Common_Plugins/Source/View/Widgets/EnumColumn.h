#ifndef ENUMCOLUMN_H
#define ENUMCOLUMN_H

#include <QHash>
#include <QMutex>
#include <QString>
#include <QVector>

#include <optional>

class QStandardItemModel;

namespace Kelvane {
namespace gui {

/*!
  One column of enumerators in a table: the rows of an EngineAttribEnum's
  labels and which enumerator value sits in which row. Shared by TableEnum
  and TableEnumMulti.

  The value-to-row map is read (and, for unknown values, written) on a DDS
  thread while the interface thread rebuilds it, hence its lock.
*/
class EnumColumn
{
public:
    struct Entry
    {
        long value = 0;
        QString label;
    };

    /*!
      Writes \a entries into column \a column of \a model, one row each, the
      label split at commas over the following columns if \a splitCSV, each
      cell with \a lead in front. Rows further down in that column lose their items.
    */
    void rebuild(const QList<Entry>& entries, QStandardItemModel* model, int column, bool splitCSV,
                 const QString& lead = QString());
    //! The row of \a value; an unknown value is entered as row 0, as the engine's tables always did.
    int rowOf(long value);
    //! The enumerator in \a row, if the column has one there.
    std::optional<long> valueAt(int row) const;
    int count() const;

private:
    mutable QMutex m_mutex;
    QHash<long, int> m_rowOfValue;
    QVector<long> m_valueOfRow;
};

} // namespace gui
} // namespace Kelvane

#endif // ENUMCOLUMN_H
