#include "EngineLink.h"

#include "GlobalImpl.h"
#include "QRVStatusBar.h"

#include <Brenmoor.hh>

#include <QCoreApplication>
#include <QDebug>
#include <QtConcurrent>

EngineLink::EngineLink()
{
    // Made on whichever thread asks first; it speaks on the interface thread.
    if (QCoreApplication* app = QCoreApplication::instance())
        moveToThread(app->thread());
}

EngineLink* EngineLink::instance()
{
    // Never destroyed: DDS threads may report during exit.
    static EngineLink* link = new EngineLink;
    return link;
}

bool EngineLink::isLost() const
{
    return m_lost;
}

void EngineLink::reportLost(const QString& reason)
{
    if (m_lost.exchange(true))
        return;
    const unsigned generation = ++m_generation;
    qDebug() << "UserInterface - engine link lost:" << reason;
    QMetaObject::invokeMethod(this, [this, reason, generation] { announce(true, reason, generation); },
                              Qt::QueuedConnection);
}

void EngineLink::reportLive()
{
    if (!m_lost.exchange(false))
        return;
    const unsigned generation = ++m_generation;
    qDebug() << "UserInterface - engine link restored";
    QMetaObject::invokeMethod(this, [this, generation] { announce(false, QString(), generation); },
                              Qt::QueuedConnection);
}

void EngineLink::reportSilence()
{
    const QString silent = QStringLiteral("the engine's topics fell silent");
    std::function<QString()> check;
    {
        QMutexLocker lock(&m_silenceCheckMutex);
        check = m_silenceCheck;
    }
    if (!check) {
        reportLost(silent);
        return;
    }
    // Every reader of the engine notices at once: one question answers them all.
    if (m_lost || m_checkingSilence.exchange(true))
        return;
    QtConcurrent::run([this, check, silent] {
        const bool gone = !check().isEmpty();
        m_checkingSilence = false;
        if (gone)
            reportLost(silent);
    });
}

void EngineLink::setSilenceCheck(std::function<QString()> check)
{
    QMutexLocker lock(&m_silenceCheckMutex);
    m_silenceCheck = std::move(check);
}

void EngineLink::announce(bool lost, const QString& reason, unsigned generation)
{
    if (generation != m_generation)
        return;
    QRVStatusBar* bar = GlobalImpl::getInstance()->statusBar();
    if (lost) {
        if (bar)
            bar->addMessage(tr("Engine link lost (") + reason + QLatin1Char(')'));
        emit this->lost(reason);
    } else {
        if (bar)
            bar->addMessage(tr("Engine link restored"));
        emit restored();
    }
}

namespace {

bool answers(CORBA::Object_ptr object)
{
    try {
        return !CORBA::is_nil(object) && !object->_non_existent();
    } catch (const CORBA::Exception&) {
        return false;
    }
}

} // namespace

const char* EngineLink::lossReason(const CORBA::Exception& error, CORBA::Object_ptr engineObject)
{
    // A hung engine (TIMEOUT) is as gone as a dead one, and an object the
    // engine no longer knows (OBJECT_NOT_EXIST) means it restarted under
    // the widget: only a new binding helps either. A MARSHAL (a reply
    // larger than the ORB takes) is one unreadable value, not a lost engine.
    if (CORBA::TRANSIENT::_downcast(&error))
        return "CORBA::TRANSIENT";
    if (CORBA::COMM_FAILURE::_downcast(&error))
        return answers(engineObject) ? nullptr : "CORBA::COMM_FAILURE";
    if (CORBA::TIMEOUT::_downcast(&error))
        return "CORBA::TIMEOUT";
    if (CORBA::OBJECT_NOT_EXIST::_downcast(&error))
        return "CORBA::OBJECT_NOT_EXIST";
    return nullptr;
}
