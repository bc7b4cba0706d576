#include "TableEnumMulti.h"

#include "EnumLink.h"
#include "TableViewImpl.h"

#include <QDebug>
#include <QItemSelectionModel>
#include <QStandardItemModel>

#include <boost/bind/bind.hpp>

#include <algorithm>

using namespace boost::placeholders;

namespace Kelvane {
namespace gui {

TableEnumMulti::TableEnumMulti(QWidget* parent)
    : EnumTableBase(parent)
{
    setObjectName(QStringLiteral("TableEnumMulti"));
    // The view reports a touched row on release; it emits no clicked().
    connect(view, &TableViewImpl::highlightChanged, this, &TableEnumMulti::rowSelectedEvent);
    connect(this, &TableEnumMulti::paramUpdate, this, &TableEnumMulti::updateParams);
    connect(this, &TableEnumMulti::rowUpdate, this, &TableEnumMulti::updateSelection);
}

TableEnumMulti::~TableEnumMulti()
{
    // The DDS callbacks read the column lists of this class.
    releaseSubscriptions();
}

void TableEnumMulti::changeSize(const QString&) {}

void TableEnumMulti::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    // Each call adds a column, kept as the frame's link of that index; the
    // frame's own attribute, which would show a lock, is not used.
    const Brenmoor::EngineReadingBase_var owned = attr;
    noteBindingAttempt(attr);
    const EnumLink* enumeration
        = bindAs<EnumLink>(attr, EnumLink::AttribEnum, ">>>>>Expected Enumeration type but received: %s (%s)");
    if (!enumeration)
        return;
    long col = 0;
    {
        QMutexLocker lock(&columnsMutex);
        col = headings.size();
        // A heading given before the first bind belongs to this column.
        headings.append(col < model->columnCount() ? model->headerData(int(col), Qt::Horizontal).toString()
                                                   : QString());
        valueTopics.append(QString::fromUtf8(enumeration->topic()));
        paramsTopics.append(QString::fromUtf8(enumeration->paramsTopic()));
        rowOfValue.push_back(std::make_unique<EnumColumn>());
    }
    model->setColumnCount(headings.size());
    model->setHeaderData(int(col), Qt::Horizontal, headings.last());
    enumeration->follow(boost::bind(&TableEnumMulti::dds_callback, this, _1, _2),
                        boost::bind(&TableEnumMulti::dds_params_callback, this, _1));
    requestCorbaList(col);
    getCorbaValue(col);
}

void TableEnumMulti::releaseBinding()
{
    // The subscriptions go first: their callbacks read the columns.
    EnumTableBase::releaseBinding();
    QMutexLocker lock(&columnsMutex);
    lostColumns.clear();
    headings.clear();
    valueTopics.clear();
    paramsTopics.clear();
    rowOfValue.clear();
}

EnumColumn* TableEnumMulti::column(long col) const
{
    QMutexLocker lock(&columnsMutex);
    return col >= 0 && col < long(rowOfValue.size()) ? rowOfValue[size_t(col)].get() : nullptr;
}

const EnumLink* TableEnumMulti::attributeOf(long col) const
{
    return col >= 0 && !isColumnLost(col) ? link<EnumLink>(int(col)) : nullptr;
}

long TableEnumMulti::columnOfLink(const EnumLink* enumeration) const
{
    for (long col = 0; const AttributeLink* each = link<AttributeLink>(int(col)); ++col) {
        if (each == enumeration)
            return col;
    }
    return -1;
}

bool TableEnumMulti::isColumnLost(long col) const
{
    QMutexLocker lock(&columnsMutex);
    return lostColumns.contains(col);
}

WidgetBaseImpl::EngineCall TableEnumMulti::callFor(const EnumLink* enumeration, const std::function<void()>& call,
                                                   QString* failure)
{
    QString reason;
    const EngineCall outcome = callAttribute(enumeration, call, &reason);
    // Without a reason the engine was known lost already: that shows on the whole table.
    if (outcome == EngineCall::LinkLost && !reason.isEmpty())
        markColumnLost(columnOfLink(enumeration), reason);
    if (failure)
        *failure = reason;
    return outcome;
}

void TableEnumMulti::markColumnLost(long col, const QString& reason)
{
    {
        QMutexLocker lock(&columnsMutex);
        if (col < 0 || lostColumns.contains(col))
            return;
        lostColumns.insert(col);
    }
    qDebug() << "UserInterface - TableEnumMulti:" << getAttributeName() << "column" << col
             << "lost its engine link:" << reason;
    for (int row = 0; row < model->rowCount(); ++row) {
        if (QStandardItem* item = model->item(row, int(col))) {
            item->setEnabled(false);
            // The table's sheet colours every enabled and disabled text alike.
            item->setForeground(QColor(Qt::darkGray));
        }
    }
    model->setHeaderData(int(col), Qt::Horizontal, QStringLiteral("Engine link lost (%1)").arg(reason), Qt::ToolTipRole);
}

long TableEnumMulti::columnOf(const QStringList& topics, const char* topic) const
{
    QMutexLocker lock(&columnsMutex);
    return topics.indexOf(QString::fromUtf8(topic));
}

int TableEnumMulti::getMaxParamLength() const
{
    QMutexLocker lock(&columnsMutex);
    int longest = 0;
    for (const auto& col : rowOfValue)
        longest = std::max(longest, col->count());
    return longest;
}

void TableEnumMulti::setColumnHeading(const QString& name, long colIdx)
{
    if (colIdx < 0)
        return;
    if (colIdx < headings.size())
        headings[int(colIdx)] = name;
    if (colIdx >= model->columnCount())
        model->setColumnCount(int(colIdx) + 1);
    model->setHeaderData(int(colIdx), Qt::Horizontal, name);
}

void TableEnumMulti::setColumnHeading(const QString& name) { setColumnHeading(name, 0); }
QString TableEnumMulti::getColumnHeading() const { return getColumnHeading(0); }

QString TableEnumMulti::getColumnHeading(const long& colIdx) const
{
    return model->headerData(int(colIdx), Qt::Horizontal).toString();
}

QString TableEnumMulti::getLiteral(long index, long colIndex)
{
    EnumColumn* col = column(colIndex);
    const QStandardItem* item = col ? model->item(col->rowOf(index), int(colIndex)) : nullptr;
    return item ? item->text() : QString();
}

QString TableEnumMulti::getLiteral(long index) { return getLiteral(index, 0); }

bool TableEnumMulti::literalExists(const QString& str, long colIndex) const
{
    return !model->findItems(str, Qt::MatchExactly, int(colIndex)).isEmpty();
}

bool TableEnumMulti::literalExists(const QString& str) const { return literalExists(str, 0); }

void TableEnumMulti::requestCorbaList(const long& col)
{
    EnumColumn* enumColumn = column(col);
    QList<EnumColumn::Entry> entries;
    if (!enumColumn || !fetchEntries(attributeOf(col), &entries))
        return;
    model->setRowCount(std::max(getMaxParamLength(), int(entries.size())));
    enumColumn->rebuild(entries, model, int(col), false);
    model->setRowCount(getMaxParamLength());
}

void TableEnumMulti::getCorbaValue(const long& col)
{
    qDebug() << "TableEnumMulti::getCorbaValue(" << col << ")";
    EnumColumn* enumColumn = column(col);
    long value = 0;
    if (enumColumn && fetchValue(attributeOf(col), &value))
        emit rowUpdate(enumColumn->rowOf(value));
}

void TableEnumMulti::dds_callback(const char* topic, int value)
{
    qDebug() << "TableEnumMulti::dds_callback";
    if (EnumColumn* enumColumn = column(columnOf(valueTopics, topic)))
        emit rowUpdate(enumColumn->rowOf(value));
}

void TableEnumMulti::dds_params_callback(const char* topic)
{
    const long col = columnOf(paramsTopics, topic);
    if (col >= 0)
        emit paramUpdate(col);
}

void TableEnumMulti::updateParams(long colIndex)
{
    qDebug() << "TableEnumMulti::updateParams";
    requestCorbaList(colIndex);
    getCorbaValue(colIndex);
}

void TableEnumMulti::updateSelection(int rowIndex)
{
    qDebug() << "TableEnumMulti::updateSelection";
    const QModelIndexList selected = view->selectionModel()->selectedRows();
    const bool isSelected
        = std::any_of(selected.cbegin(), selected.cend(), [rowIndex](const QModelIndex& i) { return i.row() == rowIndex; });
    if (!isSelected)
        view->selectRow(rowIndex);
}

void TableEnumMulti::rowSelectedEvent(const QModelIndex& rowIndex)
{
    qDebug() << "TableEnumMulti::rowSelectedEvent";
    const long columns = headings.size();
    for (long col = 0; col < columns; ++col) {
        const std::optional<long> value = column(col)->valueAt(rowIndex.row());
        if (!value)
            continue;
        emit valueChanged(col, *value);
        setEnum(col, *value);
    }
    emit rowSelected(rowIndex.row());
}

void TableEnumMulti::setEnum(const long& col, const long& value)
{
    if (const EnumLink* enumeration = attributeOf(col))
        sendWithOneRetry(enumeration, value, [this, col] { requestCorbaList(col); }, "");
}

} // namespace gui
} // namespace Kelvane
