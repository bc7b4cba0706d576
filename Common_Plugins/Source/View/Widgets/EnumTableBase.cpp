#include "EnumTableBase.h"

#include "GlobalImpl.h"
#include "TableViewImpl.h"

#include <Brenmoor.hh>

#include <QDebug>
#include <QItemSelection>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <algorithm>
#include <stdexcept>

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

bool EnumTableBase::fetchEntries(Brenmoor::EngineReadingBase_ptr attr, QList<EnumColumn::Entry>* entries)
{
    const EngineCall outcome = callEngine([&] {
        Brenmoor::EngineAttribEnum_var enumeration = Brenmoor::EngineAttribEnum::_narrow(attr);
        if (CORBA::is_nil(enumeration)) {
            qDebug() << "Failed to narrow ::Brenmoor::EngineAttribEnum - Request CORBA List" << getAttributeName();
            throw std::runtime_error("not an EngineAttribEnum");
        }
        Brenmoor::EngineAttribEnumParams_var params = enumeration->params();
        entries->clear();
        for (CORBA::ULong i = 0; i < params->length(); ++i)
            entries->append({long(params[i].value), QString::fromUtf8(params[i].label.in())});
    });
    return outcome == EngineCall::Done;
}

bool EnumTableBase::fetchValue(Brenmoor::EngineReadingBase_ptr attr, long* value)
{
    const EngineCall outcome = callEngine([&] {
        Brenmoor::EngineAttribEnum_var enumeration = Brenmoor::EngineAttribEnum::_narrow(attr);
        if (CORBA::is_nil(enumeration)) {
            qDebug() << "Failed to narrow ::Brenmoor::EngineAttribEnum - Get CORBA Value" << getAttributeName();
            throw std::runtime_error("not an EngineAttribEnum");
        }
        *value = enumeration->value();
    });
    return outcome == EngineCall::Done;
}

EnumTableBase::SendOutcome EnumTableBase::sendWithOneRetry(Brenmoor::EngineReadingBase_ptr attr, long value,
                                                           const std::function<void()>& refreshList,
                                                           const char* logPrefix)
{
    auto send = [&] {
        Brenmoor::EngineAttribEnum_var enumeration = Brenmoor::EngineAttribEnum::_narrow(attr);
        if (CORBA::is_nil(enumeration))
            return;
        qDebug() << "UserInterface -" << getAttributeName() << "Sending:" << value;
        enumeration->set(GlobalImpl::getLockerID(), CORBA::Long(value));
    };
    QString failure;
    EngineCall outcome = callEngine(send, &failure);
    if (outcome != EngineCall::Refused)
        return outcome == EngineCall::Done ? SendOutcome::Sent : SendOutcome::LinkLost;
    qDebug().noquote() << QString::fromLatin1(logPrefix) + QStringLiteral("TABLE_ENUM:") << getAttributeName()
                       << "threw exception while sending:" << value << failure;
    // The engine may have refused a value its list no longer has.
    refreshList();
    outcome = callEngine(send, &failure);
    if (outcome != EngineCall::Refused)
        return outcome == EngineCall::Done ? SendOutcome::Sent : SendOutcome::LinkLost;
    qDebug().noquote() << QString::fromLatin1(logPrefix) + QStringLiteral("Failed Retry:") << getAttributeName() << "sending" << value
                       << failure;
    return SendOutcome::RetryFailed;
}

} // namespace gui
} // namespace Kelvane
