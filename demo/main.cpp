// The demo instrument: shows the widget library's screens live, or a form
// of the user's own (--form), bound to the simulated engine, which it
// starts as a process of its own (or finds through --engine-ior). With
// --render DIR it runs for --seconds, then writes a PNG of each screen (and
// of each entry mechanism of a field marked "openedByDemo") into DIR and
// exits, for machines without a display. SIGTERM and SIGINT end it in order.
#include "ContainerImpl.h"
#include "DDS_ParticipantHolder.h"
#include "DemoOptions.h"
#include "DemoUiLoader.h"
#include "DemoWindow.h"
#include "EngineBinder.h"
#include "LatLonEntryImpl.h"
#include "NumericEntryImpl.h"
#include "QRVStatusBar.h"
#include "SimEngineProcess.h"
#include "TextEntryImpl.h"
#include "ToggleButtonImpl.h"
#include "WidgetBaseImpl.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSocketNotifier>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace {

void say(const QString& line)
{
    std::fprintf(stderr, "rv-demo: %s\n", qPrintable(line));
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

// A form marks a numeric field "doubleSlider" to show the two-ruler slider,
// which only a host gives a field, between the limits the engine gave it.
void giveDoubleSliders(QWidget* screen)
{
    for (NumericEntryImpl* field : screen->findChildren<NumericEntryImpl*>())
        if (field->property("doubleSlider").toBool())
            field->addSliderControl(false, field->lowerLimit(), field->upperLimit());
}

// A form marks a text field "latLonPad" ("latitude" or "longitude") to have
// it typed on the degree and minute keypad, which only a host gives a field.
void giveLatLonPads(QWidget* screen)
{
    for (TextEntryImpl* field : screen->findChildren<TextEntryImpl*>()) {
        const QString mode = field->property("latLonPad").toString();
        if (mode.isEmpty())
            continue;
        auto* pad = new LatLonEntryImpl(field->getLineEdit(),
                                        mode == QLatin1String("longitude") ? LatLonEntryImpl::Longitude
                                                                           : LatLonEntryImpl::Latitude,
                                        field->window(), nullptr, 260, 380);
        QObject::connect(pad, &LatLonEntryImpl::updateUnit, field, &TextEntryImpl::enterText);
        field->setEntryMechanism(pad);
    }
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
QString engineReference(const DemoOptions& options, SimEngineProcess& engine)
{
    if (!options.engineIorFile().isEmpty())
        return options.engineIorFile();
    if (!engine.start(options.scenario())) {
        say(QStringLiteral("the simulated engine did not start: ") + engine.errorString());
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

bool savePicture(QWidget* widget, const QString& file)
{
    if (!widget->grab().save(file)) {
        say(QStringLiteral("cannot write %1").arg(file));
        return false;
    }
    std::printf("rv-demo: wrote %s\n", qPrintable(file));
    return true;
}

//! The entry mechanism open on the window, if any; every bound field keeps its own there, hidden.
QWidget* openMechanism(const DemoWindow& window)
{
    for (ContainerImpl* mechanism : window.findChildren<ContainerImpl*>(QString(), Qt::FindDirectChildrenOnly))
        if (mechanism->isVisible())
            return mechanism;
    return nullptr;
}

// Nor does anybody open a field: the demo touches each field a form marks
// "openedByDemo", turns through its mechanisms by their rotate keys and
// writes a picture of each, named after the screen, the field and the
// mechanism.
bool renderMechanisms(DemoWindow& window, QWidget* screen, const QString& base)
{
    for (WidgetBaseImpl* field : screen->findChildren<WidgetBaseImpl*>()) {
        if (!field->property("openedByDemo").toBool())
            continue;
        const QLineEdit* box = field->findChild<QLineEdit*>();
        const QPoint at = box ? box->mapTo(field, box->rect().center()) : field->rect().center();
        QMouseEvent touch(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(field, &touch);
        QApplication::processEvents();
        QStringList shown;
        for (QWidget* open = openMechanism(window); open && !shown.contains(open->objectName());
             open = openMechanism(window)) {
            shown << open->objectName();
            const QString file = QStringLiteral("%1-%2-%3.png").arg(base, field->objectName(), open->objectName());
            if (!savePicture(&window, file.toLower()))
                return false;
            auto* rotate = open->findChild<QPushButton*>(QStringLiteral("RotateEntry"));
            if (!rotate || !rotate->isEnabled())
                break;
            rotate->click();
        }
        emit field->CloseEntryMechanism();
    }
    return true;
}

bool renderScreens(DemoWindow& window, const QString& folder)
{
    if (!QDir().mkpath(folder)) {
        say(QStringLiteral("cannot create %1").arg(folder));
        return false;
    }
    for (int i = 0; i < window.screenCount(); ++i) {
        window.showScreen(i);
        const QString base = QDir(folder).filePath(window.screenTitle(i).toLower());
        if (!savePicture(&window, base + QStringLiteral(".png")) || !renderMechanisms(window, window.screenWidget(i), base))
            return false;
    }
    return true;
}

// Loaded before any engine is started or asked: a form that cannot be shown ends the demo at once.
bool addScreens(const QStringList& files, DemoUiLoader& loader, DemoWindow& window, QList<QWidget*>& screens)
{
    for (const QString& file : files) {
        QWidget* screen = loader.loadForm(file, nullptr);
        if (!screen) {
            say(loader.errorString());
            return false;
        }
        screens << screen;
        window.addScreen(screen->windowTitle().isEmpty() ? QFileInfo(file).baseName() : screen->windowTitle(), screen);
    }
    return true;
}

int printHelp(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    std::fputs(qPrintable(DemoOptions(app.arguments()).helpText()), stdout);
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    // The usage is printed without a window system, so it reads the same on a machine without a display.
    if (DemoOptions::asksForHelp(argc, argv))
        return printHelp(argc, argv);
    Brenmoor::DDS_ParticipantHolder::removeSegmentsOfDeadProcesses();
    QApplication app(argc, argv);
    quitOnStopSignals(app);
    const DemoOptions options(app.arguments());
    if (!options.error().isEmpty()) {
        say(options.error());
        return 2;
    }
    options.applyStartupSwitches();

    DemoWindow window;
    // Every status message goes to the log too, for runs nobody watches.
    QObject::connect(window.statusBar(), &QRVStatusBar::messageAdded, [](const QString& text) {
        say(QStringLiteral("status: ") + text);
    });
    DemoUiLoader loader;
    QList<QWidget*> screens;
    if (!addScreens(options.formFiles(), loader, window, screens))
        return 1;
    for (QWidget* screen : qAsConst(screens))
        giveLatLonPads(screen);

    SimEngineProcess engine;
    const QString reference = engineReference(options, engine);
    if (reference.isEmpty())
        return 1;
    // Bound off the interface thread: the window shows at once, even with the engine gone.
    EngineBinder binder(reference);
    bool problemShown = false;
    QObject::connect(&binder, &EngineBinder::problem, &window, [&](const QString& problem) {
        problemShown = true;
        window.statusBar()->addMessage(problem);
    });
    for (QWidget* screen : qAsConst(screens))
        binder.addScreen(screen);
    // A form of the user's own may run against an engine without the demo's battery and lamp.
    if (options.showsBuiltInScreens()) {
        window.addStatusIndicators();
        binder.addScreen(window.statusBar());
    }
    bool firstBinding = true;
    QObject::connect(&binder, &EngineBinder::bound, &window, [&](int) {
        for (QWidget* screen : qAsConst(screens)) {
            showDemoLocks(screen);
            giveDoubleSliders(screen);
        }
        if (!firstBinding)
            return;
        firstBinding = false;
        // The ready note must not cover a problem the operator has to read.
        if (!problemShown)
            window.statusBar()->addMessage(QStringLiteral("Demo instrument ready"));
        if (!options.renderFolder().isEmpty())
            for (QWidget* screen : qAsConst(screens))
                touchMarkedToggles(screen);
    });
    window.show();

    if (!options.renderFolder().isEmpty())
        QTimer::singleShot(options.seconds() * 1000, &app, [&] {
            app.exit(renderScreens(window, options.renderFolder()) ? 0 : 1);
        });
    return app.exec();
}

