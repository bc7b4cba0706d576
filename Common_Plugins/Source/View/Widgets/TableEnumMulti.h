#ifndef TABLEENUMMULTI_H
#define TABLEENUMMULTI_H

#include "EnumTableBase.h"

#include <QModelIndex>
#include <QMutex>
#include <QSet>

#include <memory>
#include <vector>

namespace Kelvane {
namespace gui {

/*!
  Several enumerated engine settings side by side, one column each, where
  row r of every column belongs together: touching a row selects it across
  the table and sends each column's enumerator of that row. Each
  bindAttribute() call adds one EngineAttribEnum column; its value topic
  moves the selection and its params topic refills that column.

  The columns' attributes are kept apart: one that cannot be reached greys
  its own column, which sends and fetches nothing more until the table is
  bound again, while the other columns go on.
*/
class TableEnumMulti : public EnumTableBase
{
    Q_OBJECT
    Q_PROPERTY(QString ColumnHeading READ getColumnHeading WRITE setColumnHeading)

public:
    explicit TableEnumMulti(QWidget* parent = nullptr);
    ~TableEnumMulti() override;

    //! Adds a column for \a attr, which the table then owns.
    void releaseBinding() override;
    void bindAttribute(Brenmoor::EngineReadingBase_ptr attr) override;

    Q_INVOKABLE void setColumnHeading(const QString& name, long colIdx);
    Q_INVOKABLE void setColumnHeading(const QString& name);
    QString getColumnHeading(const long& colIdx) const;
    QString getColumnHeading() const;
    Q_INVOKABLE QString getLiteral(long index, long colIndex);
    Q_INVOKABLE QString getLiteral(long index);
    Q_INVOKABLE bool literalExists(const QString& str, long colIndex) const;
    Q_INVOKABLE bool literalExists(const QString& str) const;
    //! The longest column's length: the table's row count.
    int getMaxParamLength() const;
    //! True once the attribute of \a col could not be reached.
    bool isColumnLost(long col) const;

signals:
    void valueChanged(long colIndex, long val);
    void rowSelected(int rowIdx);
    void paramUpdate(long colIndex);
    void rowUpdate(int rowIdx);

public slots:
    void changeSize(const QString& size) override;
    void updateParams(long colIndex);
    void updateSelection(int rowIndex);
    void rowSelectedEvent(const QModelIndex& rowIndex);

protected:
    virtual void requestCorbaList(const long& col);
    virtual void getCorbaValue(const long& col);
    void setEnum(const long& col, const long& value);
    EngineCall callFor(const EnumLink* enumeration, const std::function<void()>& call, QString* failure) override;

private:
    void dds_callback(const char* topic, int value);
    void dds_params_callback(const char* topic);
    //! The column whose topic in \a topics is \a topic; -1 for none.
    long columnOf(const QStringList& topics, const char* topic) const;
    EnumColumn* column(long col) const;
    const EnumLink* attributeOf(long col) const;
    long columnOfLink(const EnumLink* enumeration) const;
    void markColumnLost(long col, const QString& reason);

    QList<QString> headings;
    QStringList valueTopics;
    QStringList paramsTopics;
    std::vector<std::unique_ptr<EnumColumn>> rowOfValue;
    QSet<long> lostColumns;
    //! The column lists grow on the interface thread while DDS threads look columns up.
    mutable QMutex columnsMutex;
};

} // namespace gui
} // namespace Kelvane

#endif // TABLEENUMMULTI_H
