#include "SimEngineProcess.h"

#include "ORB_Wrapper.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <csignal>

namespace {

constexpr int pollMs = 20;

QString readIor(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromLatin1(file.readAll()).trimmed();
}

template <class Interface>
typename Interface::_ptr_type resolve(const QString& ior)
{
    CORBA::Object_var object = ORB_Wrapper::objectFromString(ior.toStdString());
    return Interface::_narrow(object);
}

} // namespace

SimEngineProcess::SimEngineProcess()
{
    // The engine's own messages go where the test's go.
    m_process.setProcessChannelMode(QProcess::ForwardedChannels);
}

SimEngineProcess::~SimEngineProcess()
{
    // SIGTERM first, SIGKILL only if that does not end it: a killed engine
    // leaves its shared-memory files behind.
    terminate(3000);
}

QString SimEngineProcess::program()
{
    const QString chosen = qEnvironmentVariable("RV_SIM_ENGINE");
    return chosen.isEmpty() ? QStringLiteral(RV_SIM_ENGINE_PROGRAM) : chosen;
}

QString SimEngineProcess::iorFile() const
{
    return m_folder.filePath(QStringLiteral("directory.ior"));
}

bool SimEngineProcess::start(const QString& scenarioFile, int timeoutMs)
{
    if (!m_folder.isValid())
        return failStart(QStringLiteral("no temporary folder: ") + m_folder.errorString());
    m_scenario = scenarioFile;
    m_process.start(program(), {scenarioFile, QStringLiteral("--ior-file"), iorFile(),
                                QStringLiteral("--control-ior-file"), m_folder.filePath(QStringLiteral("control.ior")),
                                QStringLiteral("--parent-pid"), QString::number(QCoreApplication::applicationPid())});
    if (!m_process.waitForStarted(timeoutMs))
        return failStart(QStringLiteral("cannot start %1: %2").arg(program(), m_process.errorString()));
    if (!waitForIorFiles(timeoutMs))
        return false;
    m_directory = resolve<Brenmoor::AttributeDirectory>(readIor(iorFile()));
    m_control = resolve<SimEngineControl::Control>(readIor(m_folder.filePath(QStringLiteral("control.ior"))));
    if (CORBA::is_nil(m_directory) || CORBA::is_nil(m_control))
        return failStart(QStringLiteral("the engine's IOR files do not name its objects"));
    return true;
}

// The engine renames each file into place once written, so a file that exists is whole.
bool SimEngineProcess::waitForIorFiles(int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    const QString control = m_folder.filePath(QStringLiteral("control.ior"));
    while (!(QFile::exists(iorFile()) && QFile::exists(control))) {
        if (m_process.state() == QProcess::NotRunning)
            return failStart(QStringLiteral("the engine ended with code %1 before serving").arg(m_process.exitCode()));
        if (clock.elapsed() > timeoutMs)
            return failStart(QStringLiteral("the engine did not serve within %1 ms").arg(timeoutMs));
        m_process.waitForFinished(pollMs);
    }
    return true;
}

bool SimEngineProcess::failStart(const QString& error)
{
    m_error = error;
    kill();
    return false;
}

Brenmoor::AttributeDirectory_ptr SimEngineProcess::directory() const
{
    return Brenmoor::AttributeDirectory::_duplicate(m_directory);
}

SimEngineControl::Control_ptr SimEngineProcess::control() const
{
    return SimEngineControl::Control::_duplicate(m_control);
}

void SimEngineProcess::kill()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished(5000);
}

void SimEngineProcess::pause() { signal(SIGSTOP); }
void SimEngineProcess::resume() { signal(SIGCONT); }

void SimEngineProcess::signal(int number)
{
    if (isRunning())
        ::kill(static_cast<pid_t>(m_process.processId()), number);
}

bool SimEngineProcess::restart(int timeoutMs)
{
    terminate(timeoutMs);
    // A killed engine had no time to remove its files; a reader must not take the old ones.
    QFile::remove(iorFile());
    QFile::remove(m_folder.filePath(QStringLiteral("control.ior")));
    return start(m_scenario, timeoutMs);
}

bool SimEngineProcess::terminate(int timeoutMs)
{
    if (m_process.state() == QProcess::NotRunning)
        return false;
    m_process.terminate();
    return waitForExit(timeoutMs);
}

bool SimEngineProcess::waitForExit(int timeoutMs)
{
    // Bounded: a writer's teardown inside Fast DDS has been seen to hang at exit.
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(timeoutMs)) {
        kill();
        return false;
    }
    return m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
}

bool SimEngineProcess::isRunning() const
{
    return m_process.state() != QProcess::NotRunning;
}

QString SimEngineProcess::errorString() const
{
    return m_error;
}
