// The demo instrument: shows the widget library's screens live. With
// --render DIR it runs for --seconds, then writes a PNG of each screen into
// DIR and exits, for machines without a display.
#include "DemoUiLoader.h"
#include "DemoWindow.h"
#include "QRVStatusBar.h"
#include "WidgetBaseImpl.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
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
// widget looks while the engine holds its attribute locked.
void showDemoLocks(QWidget* screen)
{
    for (WidgetBaseImpl* widget : screen->findChildren<WidgetBaseImpl*>())
        if (widget->property("locked").toBool())
            widget->setWidgetLocked(true);
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
    // Host switches such as "-systype handheld" are not ours to parse.
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.parse(app.arguments());

    DemoWindow window;
    DemoUiLoader loader;
    const QString forms = parser.isSet("forms") ? parser.value("forms") : QStringLiteral(":/demo/forms");
    const QStringList files = QDir(forms).entryList({QStringLiteral("*.ui")}, QDir::Files, QDir::Name);
    for (const QString& file : files) {
        QWidget* screen = loader.loadForm(QDir(forms).filePath(file), nullptr);
        if (!screen) {
            std::fprintf(stderr, "rv-demo: %s\n", qPrintable(loader.errorString()));
            return 1;
        }
        showDemoLocks(screen);
        window.addScreen(screen->windowTitle().isEmpty() ? QFileInfo(file).baseName() : screen->windowTitle(), screen);
    }
    window.statusBar()->addMessage(QStringLiteral("Demo instrument ready"));
    window.show();

    if (parser.isSet("render")) {
        const int seconds = parser.value("seconds").toInt();
        QTimer::singleShot(seconds * 1000, &app, [&] {
            app.exit(renderScreens(window, parser.value("render")) ? 0 : 1);
        });
    }
    return app.exec();
}
