#include "EnumTableBase.h"

#include "EnumLink.h"
#include "TableViewImpl.h"

#include <QDebug>
#include <QItemSelection>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>

namespace Kelvane {
namespace gui {

EnumTableBase::EnumTableBase(QWidget* parent)
    : WidgetBaseImpl(parent)
    , view(new TableViewImpl)
    , model(new QStandardItemModel(0, 1, this))
{
    model->setHorizontalHeaderLabels({QStringLiteral("Data Source")});
    view->setModel(model);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    view->setColumnShares({});
    qRegisterMetaType<QItemSelection>("QItemSelection");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(view);
    // Preferred across: a screen with room gives the texts their width, a tight one may squeeze them.
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    connect(view, &TableViewImpl::wholeTextsWidthChanged, this, [this] { updateGeometry(); });
}

QSize EnumTableBase::sizeHint() const
{
    const QSize hint = WidgetBaseImpl::sizeHint();
    const QMargins margins = layout()->contentsMargins();
    return QSize(std::max(hint.width(), view->wholeTextsWidth() + margins.left() + margins.right()), hint.height());
}

void EnumTableBase::mouseReleaseEvent(QMouseEvent*) {}

WidgetBaseImpl::EngineCall EnumTableBase::callFor(const EnumLink*, const std::function<void()>& call, QString* failure)
{
    return callEngine(call, failure);
}

bool EnumTableBase::fetchEntries(const EnumLink* enumeration, QList<EnumColumn::Entry>* entries)
{
    if (!enumeration)
        return false;
    const EngineCall outcome = callFor(enumeration, [&] {
        entries->clear();
        for (const EnumLink::Entry& entry : enumeration->entries())
            entries->append({entry.value, entry.label});
    });
    return outcome == EngineCall::Done;
}

bool EnumTableBase::fetchValue(const EnumLink* enumeration, long* value)
{
    return enumeration && callFor(enumeration, [&] { *value = enumeration->value(); }) == EngineCall::Done;
}

EnumTableBase::SendOutcome EnumTableBase::sendWithOneRetry(const EnumLink* enumeration, long value,
                                                           const std::function<void()>& refreshList,
                                                           const char* logPrefix)
{
    auto send = [&] {
        qDebug() << "UserInterface -" << getAttributeName() << "Sending:" << value;
        enumeration->set(value);
    };
    QString failure;
    EngineCall outcome = callFor(enumeration, send, &failure);
    if (outcome != EngineCall::Refused)
        return outcome == EngineCall::Done ? SendOutcome::Sent : SendOutcome::LinkLost;
    qDebug().noquote() << QString::fromLatin1(logPrefix) + QStringLiteral("TABLE_ENUM:") << getAttributeName()
                       << "threw exception while sending:" << value << failure;
    // The engine may have refused a value its list no longer has.
    refreshList();
    outcome = callFor(enumeration, send, &failure);
    if (outcome != EngineCall::Refused)
        return outcome == EngineCall::Done ? SendOutcome::Sent : SendOutcome::LinkLost;
    qDebug().noquote() << QString::fromLatin1(logPrefix) + QStringLiteral("Failed Retry:") << getAttributeName() << "sending" << value
                       << failure;
    return SendOutcome::RetryFailed;
}

} // namespace gui
} // namespace Kelvane
