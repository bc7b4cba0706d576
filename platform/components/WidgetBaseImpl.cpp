#include "WidgetBaseImpl.h"

#include "AttributeLink.h"
#include "EngineLink.h"
#include "GlobalImpl.h"
#include "QRVStatusBar.h"
#include "WidgetFrame.h"

#include <Brenmoor.hh>
#include <DDS_BaseObj.h>

#include <QCoreApplication>
#include <QDebug>
#include <QPushButton>
#include <QThread>
#include <QtConcurrent>

#include <boost/bind/bind.hpp>

#include <algorithm>
#include <iterator>

using namespace boost::placeholders;

WidgetBaseImpl::WidgetBaseImpl(QWidget* parent)
    : QWidget(parent)
    , m_lockOverlay(WidgetFrame::createLockOverlay(this))
{
    setFocusPolicy(Qt::NoFocus);
    setLockImageVisible(false);
    // Automatic connection: a lock event emitted on a DDS thread is queued.
    connect(this, &WidgetBaseImpl::SetLocked, this, &WidgetBaseImpl::setWidgetLocked);
    connect(EngineLink::instance(), &EngineLink::lost, this, &WidgetBaseImpl::followEngineLoss);
    if (QRVStatusBar* bar = GlobalImpl::getInstance()->statusBar())
        connect(this, &WidgetBaseImpl::exceptionMessage, bar, qOverload<const QString&>(&QRVStatusBar::addMessage));
}

WidgetBaseImpl::~WidgetBaseImpl()
{
    releaseLock();
    waitForSends();
    releaseSubscriptions();
    QMutexLocker lock(&m_attributeMutex);
    releaseAttribute();
}

QString WidgetBaseImpl::getAttributeName() const { return m_attributeName; }
void WidgetBaseImpl::setAttributeName(const QString& name) { m_attributeName = name; }
bool WidgetBaseImpl::getSuppressDebug() const { return m_suppressDebug; }
void WidgetBaseImpl::setSuppressDebug(bool suppress) { m_suppressDebug = suppress; }
void WidgetBaseImpl::setDesktop(QWidget* desktop) { m_desktop = desktop; }
QWidget* WidgetBaseImpl::desktop() const { return m_desktop; }
QLabel* WidgetBaseImpl::getLabelWidget() const { return m_label.widget(); }
void WidgetBaseImpl::setLabelWidget(QLabel* label) { m_label.setWidget(label); }
bool WidgetBaseImpl::isLocked() const { return m_locked; }
void WidgetBaseImpl::setLabel(const QString& label) { m_label.setText(label); }
QString WidgetBaseImpl::getLabel() const { return m_label.text(); }
void WidgetBaseImpl::setUpdateDelay(int delay) { m_updateDelay = delay; }
int WidgetBaseImpl::getUpdateDelay() const { return m_updateDelay; }
void WidgetBaseImpl::retranslate() { m_label.retranslate("WidgetBaseImpl"); }
void WidgetBaseImpl::raise() { QWidget::raise(); }
void WidgetBaseImpl::changeSize(const QString&) {}

void WidgetBaseImpl::setWidgetLocked(bool isLocked)
{
    // A lost engine link outlasts every lock event.
    if (m_engineLinkLost)
        return;
    setLockImageVisible(isLocked);
    WidgetFrame::showLockOverlay(m_lockOverlay, isLocked);
}

void WidgetBaseImpl::setLockImageVisible(const bool& visible)
{
    m_lockOverlay->setStyleSheet(WidgetFrame::lockOverlayStyle(visible));
}

void WidgetBaseImpl::acquireLock()
{
    m_locked = true;
    if (WidgetFrame::takeEntryMechanism(this))
        emit DisplayEntryMechanism();
    else
        releaseLock();
}

void WidgetBaseImpl::releaseLock()
{
    m_locked = false;
    WidgetFrame::giveBackEntryMechanism(this);
}

void WidgetBaseImpl::mouseReleaseEvent(QMouseEvent* event)
{
    const WidgetFrame::Touch touch = WidgetFrame::classifyRelease(this, event);
    if (touch == WidgetFrame::Touch::DebugFlip)
        flipDebugSwitch();
    if (touch != WidgetFrame::Touch::Outside)
        acquireLock();
    QWidget::mouseReleaseEvent(event);
}

void WidgetBaseImpl::flipDebugSwitch()
{
    m_suppressDebug = !m_suppressDebug;
    emit suppressDebug(m_suppressDebug);
    WidgetFrame::logDebugSwitch(m_suppressDebug, m_attributeName, this);
}

void WidgetBaseImpl::resizeEvent(QResizeEvent* event)
{
    WidgetFrame::coverOwner(m_lockOverlay);
    QWidget::resizeEvent(event);
}

void WidgetBaseImpl::bindAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    takeAttribute(attr);
    if (CORBA::is_nil(attr))
        return;
    {
        QMutexLocker lock(&m_attributeMutex);
        m_settableAttribute = Brenmoor::EngineAttribBase::_narrow(attr);
    }
    if (CORBA::is_nil(m_settableAttribute))
        return;
    CORBA::String_var lockTopic = m_settableAttribute->lockTopic();
    subscribeToVoidDDS(lockTopic.in(), boost::bind(&WidgetBaseImpl::dds_lock_callback, this, _1));
    // Through the signal, like every later lock event, so that a widget
    // that shows the lock its own way gets this one too.
    emit SetLocked(!m_settableAttribute->isWritableBy(GlobalImpl::getLockerID()));
}

void WidgetBaseImpl::takeAttribute(Brenmoor::EngineReadingBase_ptr attr)
{
    setDesktop(GlobalImpl::getInstance()->desktop());
    noteBindingAttempt(attr);
    QMutexLocker lock(&m_attributeMutex);
    releaseAttribute();
    m_attribute = attr;
    // A new binding's links are the widget's from now on; sends still
    // running may use the earlier ones until the binding is released.
    std::move(m_links.begin(), m_links.end(), std::back_inserter(m_earlierLinks));
    m_links.clear();
}

void WidgetBaseImpl::noteBindingAttempt(Brenmoor::EngineReadingBase_ptr attr)
{
    m_bindingAttempted = true;
    if (CORBA::is_nil(attr))
        return;
    // A host that binds means the engine is there; a call that finds it gone says so again.
    EngineLink::instance()->reportLive();
    if (m_engineLinkLost.exchange(false))
        WidgetFrame::showEngineLinkVeil(m_lockOverlay, QString(), QString());
}

bool WidgetBaseImpl::isBindingAttempted() const
{
    return m_bindingAttempted;
}

void WidgetBaseImpl::releaseBinding()
{
    // Sends still running use the links.
    waitForSends();
    const std::vector<Brenmoor::DDS_BaseObj*> subscriptions = retireSubscriptions();
    // The widget lives on: pending emissions are run, not dropped, which
    // frees a DDS thread waiting in one.
    awaitDeliveries(subscriptions, &QCoreApplication::sendPostedEvents);
    disposeSubscriptions(subscriptions);
    QMutexLocker lock(&m_attributeMutex);
    releaseAttribute();
    m_links.clear();
    m_earlierLinks.clear();
}

void WidgetBaseImpl::releaseAttribute()
{
    if (!CORBA::is_nil(m_settableAttribute))
        CORBA::release(m_settableAttribute);
    if (!CORBA::is_nil(m_attribute))
        CORBA::release(m_attribute);
    m_settableAttribute = nullptr;
    m_attribute = nullptr;
}

void WidgetBaseImpl::dds_lock_callback(const char*)
{
    // A lock sample only says that the question is due again.
    Brenmoor::EngineAttribBase_var settable;
    {
        QMutexLocker lock(&m_attributeMutex);
        if (CORBA::is_nil(m_settableAttribute))
            return;
        settable = Brenmoor::EngineAttribBase::_duplicate(m_settableAttribute);
    }
    QString failure;
    if (callEngine([&] { emit SetLocked(!settable->isWritableBy(GlobalImpl::getLockerID())); }, &failure)
        == EngineCall::Refused)
        qDebug() << "UserInterface -" << m_attributeName << "lock query failed:" << failure;
}

void WidgetBaseImpl::addSubscription(int tag, Brenmoor::DDS_BaseObj* subscription)
{
    if (tag < 0) {
        qDebug() << "UserInterface - ERROR: Unknown subscriber type";
        m_untaggedSubscriptions.push_back(subscription);
        return;
    }
    m_subscriptions.append(DDS_Subscriber_Object{tag, subscription});
}

void WidgetBaseImpl::releaseSubscriptions()
{
    const std::vector<Brenmoor::DDS_BaseObj*> subscriptions = retireSubscriptions();
    // No new emission reaches the widget, and dropping the pending ones wakes
    // their senders.
    disconnect(this, nullptr, this, nullptr);
    awaitDeliveries(subscriptions, &QCoreApplication::removePostedEvents);
    disposeSubscriptions(subscriptions);
}

std::vector<Brenmoor::DDS_BaseObj*> WidgetBaseImpl::retireSubscriptions()
{
    std::vector<Brenmoor::DDS_BaseObj*> subscriptions;
    subscriptions.swap(m_untaggedSubscriptions);
    for (const DDS_Subscriber_Object& object : qAsConst(m_subscriptions))
        subscriptions.push_back(object.subscription);
    m_subscriptions.clear();
    for (Brenmoor::DDS_BaseObj* subscription : subscriptions)
        subscription->retire();
    return subscriptions;
}

void WidgetBaseImpl::awaitDeliveries(const std::vector<Brenmoor::DDS_BaseObj*>& subscriptions,
                                     void (*freeWaitingSenders)(QObject* receiver, int eventType))
{
    // A sample already on its way may be blocked in an emission to the
    // widget or one of its parts; it must end before the subscription goes.
    auto freeAll = [this, freeWaitingSenders] {
        freeWaitingSenders(this, QEvent::MetaCall);
        for (QObject* part : findChildren<QObject*>())
            freeWaitingSenders(part, QEvent::MetaCall);
    };
    freeAll();
    while (std::any_of(subscriptions.begin(), subscriptions.end(),
                       [](const Brenmoor::DDS_BaseObj* subscription) { return subscription->delivering(); })) {
        freeAll();
        QThread::msleep(1);
    }
}

void WidgetBaseImpl::disposeSubscriptions(const std::vector<Brenmoor::DDS_BaseObj*>& subscriptions)
{
    // Deleting a reader waits for Fast DDS locks that a DDS thread may hold
    // while it waits for this thread: the readers go on the disposal thread.
    for (Brenmoor::DDS_BaseObj* subscription : subscriptions)
        Brenmoor::DDS_BaseObj::dispose(subscription);
}

void WidgetBaseImpl::disconnectCORBA(const QString& reason)
{
    EngineLink::instance()->reportLost(reason);
    markEngineLinkLost(reason);
}

void WidgetBaseImpl::bindingFailed(const QString& reason)
{
    m_bindingAttempted = true;
    markEngineLinkLost(reason);
}

void WidgetBaseImpl::followEngineLoss(const QString& reason)
{
    // A widget never bound (in a form designer) has no engine to lose.
    if (m_bindingAttempted)
        markEngineLinkLost(reason);
}

void WidgetBaseImpl::markEngineLinkLost(const QString& reason)
{
    if (m_engineLinkLost.exchange(true))
        return;
    qDebug() << "UserInterface -" << m_attributeName << "lost its engine link:" << reason;
    // May run on a worker or a DDS thread: the widget is changed on its own.
    QMetaObject::invokeMethod(
        this,
        [this, reason] {
            // A binding may have come in between.
            if (m_engineLinkLost)
                showUnbound(QCoreApplication::translate("WidgetBaseImpl", "No engine link"), reason);
        },
        Qt::QueuedConnection);
}

void WidgetBaseImpl::attributeUnknown()
{
    m_bindingAttempted = true;
    m_engineLinkLost = true;
    showUnbound(QCoreApplication::translate("WidgetBaseImpl", "No such attribute"),
                QStringLiteral("the engine has no attribute \"%1\"").arg(m_attributeName));
}

void WidgetBaseImpl::showUnbound(const QString& text, const QString& reason)
{
    WidgetFrame::showEngineLinkVeil(m_lockOverlay, text, reason);
    // An open keypad or list would go on sending to an engine that cannot take it.
    if (m_locked) {
        emit CloseEntryMechanism();
        releaseLock();
    }
}

WidgetBaseImpl::EngineCall WidgetBaseImpl::callEngine(const std::function<void()>& call, QString* failure)
{
    const CORBA::Object_var object = engineObject();
    return runEngineCall(call, failure, object, LossScope::Engine);
}

WidgetBaseImpl::EngineCall WidgetBaseImpl::callAttribute(const AttributeLink* link, const std::function<void()>& call,
                                                         QString* failure)
{
    return runEngineCall(call, failure, link->attribute(), LossScope::Attribute);
}

WidgetBaseImpl::EngineCall WidgetBaseImpl::runEngineCall(const std::function<void()>& call, QString* failure,
                                                         CORBA::Object_ptr object, LossScope scope)
{
    // Once the engine is known lost nothing calls it, so nothing waits for it.
    if (m_engineLinkLost || EngineLink::instance()->isLost())
        return EngineCall::LinkLost;
    auto refused = [failure](const QString& name) {
        if (failure)
            *failure = name;
        return EngineCall::Refused;
    };
    try {
        call();
        return EngineCall::Done;
    } catch (const CORBA::Exception& error) {
        if (const char* reason = EngineLink::lossReason(error, object)) {
            if (failure)
                *failure = QString::fromLatin1(reason);
            if (scope == LossScope::Engine)
                disconnectCORBA(QString::fromLatin1(reason));
            return EngineCall::LinkLost;
        }
        return refused(QString::fromLatin1(error._name()));
    } catch (const std::exception& error) {
        return refused(QString::fromLocal8Bit(error.what()));
    }
}

void WidgetBaseImpl::sendOnWorker(std::function<void()> send)
{
    {
        QMutexLocker lock(&m_sendsMutex);
        ++m_sendsRunning;
    }
    // The future is dropped: the widget learns the outcome through its signals.
    QtConcurrent::run([this, send = std::move(send)] {
        send();
        QMutexLocker lock(&m_sendsMutex);
        --m_sendsRunning;
        m_sendsDone.wakeAll();
    });
}

void WidgetBaseImpl::waitForSends()
{
    QMutexLocker lock(&m_sendsMutex);
    while (m_sendsRunning > 0)
        m_sendsDone.wait(&m_sendsMutex);
}

AttributeLink* WidgetBaseImpl::addLink(const LinkFamily& family, Brenmoor::EngineReadingBase_ptr attr, int accepted,
                                       const char* mismatchLine)
{
    if (CORBA::is_nil(attr))
        return nullptr;
    const Brenmoor::TypeInfo_var type = attr->typeInfo();
    const int position = family.interfaces.indexOf(QString::fromUtf8(type->interfaceName.in()));
    const int interface = position < 0 ? 0 : 1 << position;
    if (!(interface & accepted)) {
        if (mismatchLine)
            qDebug(mismatchLine, type->interfaceName.in(), m_attributeName.toLatin1().constData());
        return nullptr;
    }
    std::unique_ptr<AttributeLink> link(family.make(this, attr, interface));
    if (!link->isNarrowed()) {
        if (mismatchLine && !(interface & family.quietNarrowing))
            qDebug().noquote() << "UserInterface - Failed to narrow ::Brenmoor::" + QString::fromUtf8(type->interfaceName.in());
        return nullptr;
    }
    QMutexLocker lock(&m_attributeMutex);
    m_links.push_back(std::move(link));
    return m_links.back().get();
}

AttributeLink* WidgetBaseImpl::linkAt(int index) const
{
    QMutexLocker lock(&m_attributeMutex);
    if (index < 0)
        index += int(m_links.size());
    return index >= 0 && size_t(index) < m_links.size() ? m_links[size_t(index)].get() : nullptr;
}

CORBA::Object_ptr WidgetBaseImpl::engineObject() const
{
    QMutexLocker lock(&m_attributeMutex);
    // A widget that keeps no attribute of its own asks through its first link.
    if (CORBA::is_nil(m_attribute) && !m_links.empty())
        return CORBA::Object::_duplicate(m_links.front()->attribute());
    return CORBA::Object::_duplicate(m_attribute);
}

bool WidgetBaseImpl::isEngineLinkLost() const
{
    return m_engineLinkLost;
}
