#include "ProcessManager.h"

#include <QDebug>
#include <QProcess>

#include <utility>

ProcessManager::ProcessManager(QObject* parent)
    : QObject(parent)
    , m_process(new QProcess(this))
{
    m_process->setProcessChannelMode(QProcess::ForwardedChannels);
    connect(m_process, &QProcess::started, this, &ProcessManager::started);
    connect(m_process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            [this](int exitCode, QProcess::ExitStatus exitStatus) { onFinished(exitCode, exitStatus); });
    connect(m_process, &QProcess::errorOccurred, this,
            [this](QProcess::ProcessError error) { onErrorOccurred(error); });
}

ProcessManager::~ProcessManager()
{
    // A file operation left running would outlive the interface; stop it.
    m_process->disconnect(this);
    if (m_process->state() != QProcess::NotRunning) {
        m_process->kill();
        m_process->waitForFinished(1000);
    }
}

bool ProcessManager::isRunning() const
{
    return m_busy || !m_pending.isEmpty();
}

void ProcessManager::startProcess(const QString& command)
{
    QStringList words = QProcess::splitCommand(command);
    const QString program = words.isEmpty() ? QString() : words.takeFirst();
    enqueue({program, words, command});
}

void ProcessManager::startProcess(const QString& program, const QStringList& arguments,
                                  const QString& shownCommand)
{
    enqueue({program, arguments, shownCommand});
}

void ProcessManager::enqueue(Command command)
{
    m_pending.enqueue(std::move(command));
    scheduleNext();
}

void ProcessManager::scheduleNext()
{
    // Never start from inside a QProcess notification (a slot on finished()
    // may call startProcess): the next command starts on the next turn of
    // the event loop.
    if (!m_busy && !m_pending.isEmpty())
        QMetaObject::invokeMethod(this, &ProcessManager::startNext, Qt::QueuedConnection);
}

void ProcessManager::startNext()
{
    if (m_busy || m_pending.isEmpty())
        return;
    m_busy = true;
    const Command command = m_pending.dequeue();
    if (command.program.isEmpty()) {
        qDebug() << "UserInterface - ProcessManager: empty command" << command.shown;
        reportEnd(FailedToStart);
        return;
    }
    qDebug() << "UserInterface - ProcessManager: running" << command.shown;
    m_process->start(command.program, command.arguments, QIODevice::NotOpen);
}

void ProcessManager::reportEnd(int status)
{
    m_busy = false;
    emit finished(status);
    scheduleNext();
}

void ProcessManager::onFinished(int exitCode, int exitStatus)
{
    reportEnd(exitStatus == QProcess::NormalExit ? exitCode : Crashed);
}

void ProcessManager::onErrorOccurred(int error)
{
    if (error != QProcess::FailedToStart)
        return;
    qDebug() << "UserInterface - ProcessManager: cannot start" << m_process->program()
             << m_process->errorString();
    reportEnd(FailedToStart);
}
