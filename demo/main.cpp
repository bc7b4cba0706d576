// The demo instrument: shows the widget library's screens live, bound to
// the simulated engine, which it starts as a process of its own (or finds
// through --engine-ior). With --render DIR it runs for --seconds, then
// writes a PNG of each screen into DIR and exits, for machines without a
// display. SIGTERM and SIGINT end it in order.
#include "DDS_ParticipantHolder.h"
#include "DemoUiLoader.h"
#include "DemoWindow.h"
#include "EngineBinder.h"
#include "QRVStatusBar.h"
#include "SimEngineProcess.h"
#include "ToggleButtonImpl.h"
#include "WidgetBaseImpl.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QSocketNotifier>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace {

// The instrument's host copies these switches into application properties,
// where the widgets read them.
void copyStartupSwitches(const QStringList& arguments)
{
    static const QStringList switches{"-systype", "-size", "-res", "-notransparency"};
    for (int i = 1; i + 1 < arguments.size(); ++i)
        if (switches.contains(arguments.at(i)))
            qApp->setProperty(arguments.at(i).toLatin1().constData(), arguments.at(i + 1));
}

// A form marks a widget with the dynamic property "locked" to show how a
// widget looks while the engine holds its attribute locked; the event goes
// the way the engine's would, so each widget shows it in its own way.
void showDemoLocks(QWidget* screen)
{
    for (WidgetBaseImpl* widget : screen->findChildren<WidgetBaseImpl*>())
        if (widget->property("locked").toBool())
            emit widget->SetLocked(true);
}

// Without a display nobody touches the screen: the demo touches the toggle
// buttons a form marks "touchedByDemo", so that the pictures show the
// engine's answer to a touch.
void touchMarkedToggles(QWidget* screen)
{
    for (ToggleButtonImpl* toggle : screen->findChildren<ToggleButtonImpl*>())
        if (toggle->property("touchedByDemo").toBool())
            toggle->pressedEvent();
}

// Where the engine's directory reference is: the IOR file of a running
// engine, or that of a simulated engine started here on the scenario.
QString engineReference(const QCommandLineParser& parser, SimEngineProcess& engine)
{
    if (parser.isSet("engine-ior"))
        return parser.value("engine-ior");
    if (!engine.start(parser.value("scenario"))) {
        std::fprintf(stderr, "rv-demo: the simulated engine did not start: %s\n", qPrintable(engine.errorString()));
        return QString();
    }
    return engine.iorFile();
}

// A stop signal only writes to a pipe; the event loop then ends in order,
// and the engine started here is ended with it.
int s_stopPipe[2] = {-1, -1};

void quitOnStopSignals(QApplication& app)
{
    if (::pipe(s_stopPipe) != 0)
        return;
    auto* notifier = new QSocketNotifier(s_stopPipe[0], QSocketNotifier::Read, &app);
    QObject::connect(notifier, &QSocketNotifier::activated, &app, [&app] { app.quit(); });
    struct sigaction action = {};
    action.sa_handler = [](int) {
        const char byte = 1;
        [[maybe_unused]] const ssize_t written = ::write(s_stopPipe[1], &byte, 1);
    };
    sigemptyset(&action.sa_mask);
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

bool renderScreens(DemoWindow& window, const QString& folder)
{
    if (!QDir().mkpath(folder))
        return false;
    for (int i = 0; i < window.screenCount(); ++i) {
        window.showScreen(i);
        const QString file = QDir(folder).filePath(window.screenTitle(i).toLower() + QStringLiteral(".png"));
        if (!window.grab().save(file))
            return false;
        std::printf("rv-demo: wrote %s\n", qPrintable(file));
    }
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    Brenmoor::DDS_ParticipantHolder::removeSegmentsOfDeadProcesses();
    QApplication app(argc, argv);
    quitOnStopSignals(app);
    copyStartupSwitches(app.arguments());

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({"render", "Write a PNG of each screen into <folder> and exit.", "folder"});
    parser.addOption({"seconds", "Run this long before rendering.", "seconds", "3"});
    parser.addOption({"forms", "Folder of .ui forms to show instead of the built-in ones.", "folder"});
    parser.addOption({"scenario", "Scenario of the simulated engine.", "file", RV_DEMO_SCENARIO});
    parser.addOption({"engine-ior", "Use the running engine whose directory IOR is in <file>.", "file"});
    // Host switches such as "-systype handheld" are not ours to parse.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.parse(app.arguments());

    SimEngineProcess engine;
    const QString reference = engineReference(parser, engine);
    if (reference.isEmpty())
        return 1;

    DemoWindow window;
    DemoUiLoader loader;
    QList<QWidget*> screens;
    // Bound off the interface thread: the window shows at once, even with the engine gone.
    EngineBinder binder(reference);
    QObject::connect(&binder, &EngineBinder::problem, &window, [&window](const QString& problem) {
        std::fprintf(stderr, "rv-demo: %s\n", qPrintable(problem));
        window.statusBar()->addMessage(problem);
    });
    const QString forms = parser.isSet("forms") ? parser.value("forms") : QStringLiteral(":/demo/forms");
    const QStringList files = QDir(forms).entryList({QStringLiteral("*.ui")}, QDir::Files, QDir::Name);
    for (const QString& file : files) {
        QWidget* screen = loader.loadForm(QDir(forms).filePath(file), nullptr);
        if (!screen) {
            std::fprintf(stderr, "rv-demo: %s\n", qPrintable(loader.errorString()));
            return 1;
        }
        screens << screen;
        binder.addScreen(screen);
        window.addScreen(screen->windowTitle().isEmpty() ? QFileInfo(file).baseName() : screen->windowTitle(), screen);
    }
    bool firstBinding = true;
    QObject::connect(&binder, &EngineBinder::bound, &window, [&](int) {
        for (QWidget* screen : qAsConst(screens))
            showDemoLocks(screen);
        if (!firstBinding)
            return;
        firstBinding = false;
        window.statusBar()->addMessage(QStringLiteral("Demo instrument ready"));
        if (parser.isSet("render"))
            for (QWidget* screen : qAsConst(screens))
                touchMarkedToggles(screen);
    });
    window.show();

    if (parser.isSet("render")) {
        const int seconds = parser.value("seconds").toInt();
        QTimer::singleShot(seconds * 1000, &app, [&] {
            app.exit(renderScreens(window, parser.value("render")) ? 0 : 1);
        });
    }
    return app.exec();
}
