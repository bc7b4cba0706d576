#include "GlobalImpl.h"
#include "ProcessManager.h"
#include "QRVStatusBar.h"
#include "SystemModule.h"

#include <Brenmoor.hh>

#include <QSignalSpy>
#include <QWidget>
#include <QtTest>

class TestGlobalImpl : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_global = GlobalImpl::getInstance(); }
    void oneHolderAtATime();
    void holderDestroyedFreesTheMechanism();
    void lockerIdIsStableAndIdentifiesTheProcess();
    void systemModuleKnowsMainWindowAndProcessManager();
    void parentWindowName();
    void statusBarKeepsAShortHistory();

private:
    GlobalImpl* m_global = nullptr;
};

void TestGlobalImpl::oneHolderAtATime()
{
    QWidget first;
    QWidget second;
    QSignalSpy changes(m_global, &GlobalImpl::entryMechanismChanged);

    m_global->setEntryMechanism(&first);
    QCOMPARE(m_global->entryMechanism(), &first);

    m_global->setEntryMechanism(&second);
    QCOMPARE(m_global->entryMechanism(), &first);

    m_global->releaseEntryMechanism(&second);
    QCOMPARE(m_global->entryMechanism(), &first);

    m_global->setEntryMechanism(&first);
    QCOMPARE(changes.count(), 1);

    m_global->releaseEntryMechanism(&first);
    QCOMPARE(m_global->entryMechanism(), nullptr);
    m_global->setEntryMechanism(&second);
    QCOMPARE(m_global->entryMechanism(), &second);
    m_global->releaseEntryMechanism(&second);
    QCOMPARE(changes.count(), 4);
}

void TestGlobalImpl::holderDestroyedFreesTheMechanism()
{
    {
        QWidget holder;
        m_global->setEntryMechanism(&holder);
    }
    QCOMPARE(m_global->entryMechanism(), nullptr);
    QWidget next;
    m_global->setEntryMechanism(&next);
    QCOMPARE(m_global->entryMechanism(), &next);
    m_global->releaseEntryMechanism(&next);
}

void TestGlobalImpl::lockerIdIsStableAndIdentifiesTheProcess()
{
    const Brenmoor::LockerID& id = GlobalImpl::getLockerID();
    QCOMPARE(&id, &GlobalImpl::getLockerID());
    QCOMPARE(qint64(id.processId), QCoreApplication::applicationPid());

    Brenmoor::LockerID fromWorker{};
    QThread* worker = QThread::create([&fromWorker] { fromWorker = GlobalImpl::getLockerID(); });
    worker->start();
    worker->wait();
    delete worker;
    QCOMPARE(fromWorker.processId, id.processId);
    QCOMPARE(fromWorker.startStamp, id.startStamp);
}

void TestGlobalImpl::systemModuleKnowsMainWindowAndProcessManager()
{
    SystemModule* system = m_global->systemModule();
    QWidget* fallback = system->getSystemScreen(QStringLiteral("MainWindow"));
    QVERIFY(fallback);
    QCOMPARE(fallback->objectName(), QStringLiteral("MainWindow"));
    QCOMPARE(system->getSystemScreen(QStringLiteral("NoSuchScreen")), nullptr);
    QVERIFY(qobject_cast<ProcessManager*>(system->getModule(QStringLiteral("ProcessManager"))));
    QCOMPARE(system->getModule(QStringLiteral("NoSuchModule")), nullptr);

    {
        QWidget hostScreen;
        system->addSystemScreen(QStringLiteral("MainWindow"), &hostScreen);
        QCOMPARE(system->getSystemScreen(QStringLiteral("MainWindow")), &hostScreen);
    }
    // The host's screen is gone: pop-ups fall back to the module's own.
    QCOMPARE(system->getSystemScreen(QStringLiteral("MainWindow")), fallback);
}

void TestGlobalImpl::parentWindowName()
{
    QWidget screen;
    auto* child = new QWidget(&screen);
    screen.setWindowTitle(QStringLiteral("Spectrum"));
    QCOMPARE(GlobalImpl::getParentWindowName(child), QStringLiteral("Spectrum"));
    screen.setObjectName(QStringLiteral("SpectrumScreen"));
    QCOMPARE(GlobalImpl::getParentWindowName(child), QStringLiteral("SpectrumScreen"));
    QCOMPARE(GlobalImpl::getParentWindowName(nullptr), QString());
}

void TestGlobalImpl::statusBarKeepsAShortHistory()
{
    QRVStatusBar bar;
    m_global->setStatusBar(&bar);
    QCOMPARE(m_global->statusBar(), &bar);

    for (int i = 0; i < QRVStatusBar::historyLimit() + 5; ++i)
        bar.addMessage(QStringLiteral("message %1").arg(i));
    bar.addMessage(QStringLiteral("Value out of range"), QStringLiteral("Frequency"), Brenmoor::Event::Error);

    QCOMPARE(bar.currentMessage(), QStringLiteral("Value out of range: Frequency"));
    QCOMPARE(bar.history().size(), QRVStatusBar::historyLimit());
    QVERIFY(bar.history().first().endsWith(QStringLiteral("Value out of range: Frequency")));
    QVERIFY(bar.history().last().endsWith(QStringLiteral("message 6")));
}

QTEST_MAIN(TestGlobalImpl)
#include "tst_globalimpl.moc"
