// The demo instrument: shows the widget library's screens live, bound to
// the simulated engine, which it starts as a process of its own (or finds
// through --engine-ior). With --render DIR it runs for --seconds, then
// writes a PNG of each screen into DIR and exits, for machines without a
// display.
#include "DemoBinding.h"
#include "DemoUiLoader.h"
#include "DemoWindow.h"
#include "ORB_Wrapper.h"
#include "QRVStatusBar.h"
#include "SimEngineProcess.h"
#include "ToggleButtonImpl.h"
#include "WidgetBaseImpl.h"

#include <Brenmoor.hh>

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QTimer>
#include <cstdio>

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

// The engine's attribute directory: from the IOR file of a running engine,
// or from a simulated engine started here on the scenario.
Brenmoor::AttributeDirectory_ptr connectEngine(const QCommandLineParser& parser, SimEngineProcess& engine)
{
    if (parser.isSet("engine-ior")) {
        QFile file(parser.value("engine-ior"));
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "rv-demo: cannot read %s\n", qPrintable(file.fileName()));
            return Brenmoor::AttributeDirectory::_nil();
        }
        CORBA::Object_var object = ORB_Wrapper::objectFromString(file.readAll().trimmed().toStdString());
        return Brenmoor::AttributeDirectory::_narrow(object);
    }
    if (!engine.start(parser.value("scenario"))) {
        std::fprintf(stderr, "rv-demo: the simulated engine did not start: %s\n", qPrintable(engine.errorString()));
        return Brenmoor::AttributeDirectory::_nil();
    }
    return engine.directory();
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
    QApplication app(argc, argv);
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
    Brenmoor::AttributeDirectory_var directory;
    try {
        directory = connectEngine(parser, engine);
    } catch (const CORBA::Exception& error) {
        std::fprintf(stderr, "rv-demo: cannot reach the engine: %s\n", error._name());
    }
    if (CORBA::is_nil(directory))
        return 1;

    DemoWindow window;
    DemoUiLoader loader;
    QStringList problems;
    QList<QWidget*> screens;
    const QString forms = parser.isSet("forms") ? parser.value("forms") : QStringLiteral(":/demo/forms");
    const QStringList files = QDir(forms).entryList({QStringLiteral("*.ui")}, QDir::Files, QDir::Name);
    for (const QString& file : files) {
        QWidget* screen = loader.loadForm(QDir(forms).filePath(file), nullptr);
        if (!screen) {
            std::fprintf(stderr, "rv-demo: %s\n", qPrintable(loader.errorString()));
            return 1;
        }
        bindScreenToEngine(screen, directory, problems);
        screens << screen;
        showDemoLocks(screen);
        window.addScreen(screen->windowTitle().isEmpty() ? QFileInfo(file).baseName() : screen->windowTitle(), screen);
    }
    for (const QString& problem : qAsConst(problems)) {
        std::fprintf(stderr, "rv-demo: %s\n", qPrintable(problem));
        window.statusBar()->addMessage(problem);
    }
    if (problems.isEmpty())
        window.statusBar()->addMessage(QStringLiteral("Demo instrument ready"));
    window.show();

    if (parser.isSet("render")) {
        for (QWidget* screen : qAsConst(screens))
            touchMarkedToggles(screen);
        const int seconds = parser.value("seconds").toInt();
        QTimer::singleShot(seconds * 1000, &app, [&] {
            app.exit(renderScreens(window, parser.value("render")) ? 0 : 1);
        });
    }
    const int status = app.exec();
    // A killed engine would leave its shared-memory files behind.
    if (engine.isRunning())
        engine.terminate();
    return status;
}
