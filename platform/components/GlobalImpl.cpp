#include "GlobalImpl.h"

#include "QRVStatusBar.h"
#include "SystemModule.h"

#include <Brenmoor.hh>

#include <QCoreApplication>
#include <QDateTime>
#include <QWidget>

#include <unistd.h>

namespace {
GlobalImpl* s_instance = nullptr;
}

GlobalImpl::GlobalImpl()
    : m_systemModule(new SystemModule(this))
{
}

GlobalImpl::~GlobalImpl() = default;

GlobalImpl* GlobalImpl::getInstance()
{
    if (!s_instance) {
        s_instance = new GlobalImpl;
        // Post routines run at the start of ~QApplication, while widgets may
        // still be deleted safely.
        qAddPostRoutine(&GlobalImpl::destroyInstance);
    }
    return s_instance;
}

void GlobalImpl::destroyInstance()
{
    delete s_instance;
    s_instance = nullptr;
}

QRVStatusBar* GlobalImpl::statusBar() const { return m_statusBar; }
void GlobalImpl::setStatusBar(QRVStatusBar* bar) { m_statusBar = bar; }

QWidget* GlobalImpl::desktop() const { return m_desktop; }
void GlobalImpl::setDesktop(QWidget* desktop) { m_desktop = desktop; }

QWidget* GlobalImpl::topNavMenu() const { return m_topNavMenu; }
void GlobalImpl::setTopNavMenu(QWidget* menu) { m_topNavMenu = menu; }

SystemModule* GlobalImpl::systemModule() const { return m_systemModule; }

QWidget* GlobalImpl::entryMechanism() const { return m_entryMechanism; }

void GlobalImpl::setEntryMechanism(QWidget* widget)
{
    if (!widget || m_entryMechanism)
        return;
    m_entryMechanism = widget;
    emit entryMechanismChanged(widget);
}

void GlobalImpl::releaseEntryMechanism(QWidget* widget)
{
    if (!widget || m_entryMechanism != widget)
        return;
    m_entryMechanism = nullptr;
    emit entryMechanismChanged(nullptr);
}

const Brenmoor::LockerID& GlobalImpl::getLockerID()
{
    // The pid alone could be reused by a later UI process.
    static const Brenmoor::LockerID id{static_cast<CORBA::ULong>(::getpid()),
                                       static_cast<CORBA::ULong>(QDateTime::currentMSecsSinceEpoch())};
    return id;
}

QString GlobalImpl::getParentWindowName(QWidget* widget)
{
    if (!widget)
        return QString();
    const QWidget* screen = widget->window();
    if (!screen->objectName().isEmpty())
        return screen->objectName();
    if (!screen->windowTitle().isEmpty())
        return screen->windowTitle();
    return QString::fromLatin1(screen->metaObject()->className());
}
