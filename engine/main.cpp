// rv-sim-engine: a simulated measurement engine in a process of its own.
// Serves the attributes of a scenario file until SIGTERM, SIGINT or the
// control interface's quit(), and tells clients where it is through IOR
// files.

#include "DDS_ParticipantHolder.h"
#include "ORB_Wrapper.h"
#include "SimEngine.h"
#include "SimScenario.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QSaveFile>

#include <csignal>
#include <cstdlib>
#include <iostream>
#include <pthread.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

struct Options
{
    QString scenario;
    QString iorFile;
    QString controlIorFile;
    qint64 parentPid = 0;
};

Options parseOptions(const QCoreApplication& app)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Simulated measurement engine: serves the attributes of a scenario over CORBA and DDS "
                       "until SIGTERM, SIGINT or its control object's quit()."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("scenario"),
                                 QStringLiteral("JSON file of the attributes to serve (demo/scenario.json is one)."));
    parser.addOption({QStringLiteral("ior-file"),
                      QStringLiteral("Write the IOR of the attribute directory, which hosts bind through, into <file>."),
                      QStringLiteral("file")});
    parser.addOption({QStringLiteral("control-ior-file"),
                      QStringLiteral("Write the IOR of the control object, which drives the simulation, into <file>."),
                      QStringLiteral("file")});
    parser.addOption({QStringLiteral("parent-pid"), QStringLiteral("End when the process <pid> ends."),
                      QStringLiteral("pid")});
    parser.process(app);
    if (parser.positionalArguments().size() != 1) {
        std::cerr << "rv-sim-engine: give one scenario file (see --help)" << std::endl;
        std::exit(2);
    }
    return {parser.positionalArguments().constFirst(), parser.value(QStringLiteral("ior-file")),
            parser.value(QStringLiteral("control-ior-file")), parser.value(QStringLiteral("parent-pid")).toLongLong()};
}

// A test that crashes must not leave its engine serving for ever.
void endWithParent(qint64 parentPid)
{
    if (parentPid == 0)
        return;
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (::getppid() != parentPid)
        ::kill(::getpid(), SIGTERM);
}

// Written under a temporary name and renamed, so that a reader never sees half an IOR.
void writeIor(const QString& path, CORBA::Object_ptr object)
{
    if (path.isEmpty())
        return;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(ORB_Wrapper::objectToString(object).c_str()) < 0
        || !file.commit())
        throw std::runtime_error("cannot write " + path.toStdString() + ": " + file.errorString().toStdString());
}

int serve(const Options& options, const sigset_t& stopSignals)
{
    SimEngine engine;
    // quit() arrives on an ORB thread; the signal hands the shutdown to the main thread.
    engine.setQuitHandler([] { ::kill(::getpid(), SIGTERM); });
    SimScenario::load(options.scenario, engine);
    Brenmoor::AttributeDirectory_var directory = engine.directory();
    SimEngineControl::Control_var control = engine.control();
    writeIor(options.controlIorFile, control);
    writeIor(options.iorFile, directory);
    std::cout << "rv-sim-engine: serving " << engine.names().size() << " attributes" << std::endl;

    int received = 0;
    sigwait(&stopSignals, &received);
    for (const QString& path : {options.iorFile, options.controlIorFile})
        if (!path.isEmpty())
            QFile::remove(path);
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    // Blocked before the ORB and DDS start their threads, which inherit the
    // mask: the stop signals then reach only sigwait() in serve().
    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGTERM);
    sigaddset(&stopSignals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);

    QCoreApplication app(argc, argv);
    const Options options = parseOptions(app);
    Brenmoor::DDS_ParticipantHolder::removeSegmentsOfDeadProcesses();
    endWithParent(options.parentPid);
    int result = 0;
    try {
        result = serve(options, stopSignals);
    } catch (const std::exception& error) {
        std::cerr << "rv-sim-engine: " << error.what() << std::endl;
        result = 2;
    } catch (const CORBA::Exception& error) {
        std::cerr << "rv-sim-engine: CORBA exception " << error._name() << std::endl;
        result = 2;
    }
    ORB_Wrapper::shutdown();
    return result;
}
