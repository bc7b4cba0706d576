#include "TableEnum.h"

#include "EnumLink.h"
#include "TableViewImpl.h"

#include <QDebug>
#include <QPainter>
#include <QStandardItemModel>

#include <boost/bind/bind.hpp>

using namespace boost::placeholders;

namespace Kelvane {
namespace gui {

TableEnum::TableEnum(QWidget* parent)
    : EnumTableBase(parent)
{
    setObjectName(QStringLiteral("TableEnum"));
    view->setOnWhitePanel(true);
    connect(view, &TableViewImpl::highlightChanged, this, &TableEnum::rowSelectedEvent);
    connect(this, &TableEnum::rowUpdate, this, &TableEnum::followRow);
    connect(this, &TableEnum::synchronize, this, &TableEnum::syncTable, Qt::BlockingQueuedConnection);
}

TableEnum::~TableEnum()
{
    // The DDS callbacks read the value-to-row map of this class.
    releaseSubscriptions();
}

void TableEnum::setColumnHeading(const QString& name)
{
    model->setHorizontalHeaderLabels(name.split(QLatin1Char(',')));
}

QString TableEnum::getColumnHeading() const
{
    QStringList headers;
    for (int c = 0; c < model->columnCount(); ++c)
        headers << model->headerData(c, Qt::Horizontal).toString();
    return headers.join(QLatin1Char(','));
}

void TableEnum::setColumnWidths(const QString& widths)
{
    columnWidths = widths;
    resizeEvent(nullptr);
}

QString TableEnum::getColumnWidths() const { return columnWidths; }
bool TableEnum::getReadOnly() const { return readOnly; }
void TableEnum::setSplitByCSV(bool split) { splitCSV = split; }
bool TableEnum::getSplitByCSV() const { return splitCSV; }
int TableEnum::rowCount() const { return model->rowCount(); }
void TableEnum::changeSize(const QString&) {}

void TableEnum::setReadOnly(bool on)
{
    readOnly = on;
    configureReadOnly(on);
}

void TableEnum::configureReadOnly(bool on)
{
    view->setSelectionMode(readOnly || on ? QAbstractItemView::NoSelection : QAbstractItemView::SingleSelection);
}

QString TableEnum::getLiteral(long index)
{
    const QStandardItem* item = model->item(rowOfValue.rowOf(index), 0);
    return item ? item->text() : QString();
}

bool TableEnum::literalExists(const QString& str) const
{
    return !model->findItems(str).isEmpty();
}

void TableEnum::resizeEvent(QResizeEvent* event)
{
    if (event)
        EnumTableBase::resizeEvent(event);
    QVector<double> shares;
    for (const QString& part : columnWidths.split(QLatin1Char(',')))
        shares << part.toDouble();
    view->setColumnShares(shares);
}

void TableEnum::showEvent(QShowEvent* event)
{
    EnumTableBase::showEvent(event);
    resizeEvent(nullptr);
}

void TableEnum::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(rect(), 12.0, 12.0);
}

void TableEnum::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    // The rows are the table's whole face: it follows no lock of the attribute.
    takeAttribute(attr);
    const EnumLink* enumeration
        = bindAs<EnumLink>(attr, EnumLink::AttribEnum, ">>>>>Expected Enumeration type but received: %s (%s)");
    if (!enumeration)
        return;
    requestCorbaList();
    enumeration->follow(boost::bind(&TableEnum::dds_callback, this, _1, _2),
                        boost::bind(&TableEnum::dds_params_callback, this, _1));
}

void TableEnum::requestCorbaList()
{
    QList<EnumColumn::Entry> entries;
    if (!fetchEntries(link<EnumLink>(), &entries))
        return;
    model->setRowCount(entries.size());
    // The blanks keep the labels off the panel's rounded edge.
    rowOfValue.rebuild(entries, model, 0, splitCSV, QStringLiteral("   "));
    getCorbaValue();
}

void TableEnum::getCorbaValue()
{
    long value = 0;
    if (!fetchValue(link<EnumLink>(), &value))
        return;
    currentValue = value;
    // Always on the interface thread, where a blocking emission would wait
    // for itself.
    followRow(rowOfValue.rowOf(value));
}

void TableEnum::dds_callback(const char*, int value)
{
    currentValue = value;
    // The row is found on the interface thread, which alone rebuilds the
    // map when the list changes: found here, it could be a row of the old
    // list. The DDS thread waits until the view has selected it; the
    // table's teardown wakes a waiting DDS thread.
    QMetaObject::invokeMethod(
        this, [this, value] { emit rowUpdate(rowOfValue.rowOf(value)); }, Qt::BlockingQueuedConnection);
}

void TableEnum::dds_params_callback(const char*)
{
    emit synchronize();
}

void TableEnum::syncTable()
{
    requestCorbaList();
    getCorbaValue();
}

void TableEnum::followRow(int row)
{
    view->selectRow(row);
}

void TableEnum::rowSelectedEvent(const QModelIndex& index)
{
    // A read-only table selects nothing, so a touch has nothing to send.
    if (view->selectionMode() == QAbstractItemView::NoSelection)
        return;
    const long value = rowOfValue.valueAt(index.row()).value_or(0);
    emit valueChanged(value);
    setEnum(value);
    update();
}

void TableEnum::setEnum(const long& value)
{
    acquireLock();
    const EnumLink* enumeration = link<EnumLink>();
    if (enumeration
        && sendWithOneRetry(enumeration, value, [this] { requestCorbaList(); }, "UserInterface - ")
               == SendOutcome::RetryFailed)
        emit exceptionMessage(getAttributeName() + QStringLiteral(" threw an exception while sending: ")
                              + QString::number(value));
    releaseLock();
}

} // namespace gui
} // namespace Kelvane
