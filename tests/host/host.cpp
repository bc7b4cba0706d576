// rv-host: makes a widget of the installed library, binds it as a host
// that found no attribute would, paints it, and makes every widget of the
// designer collection. Given a form and an engine's reference file, it
// loads the form as a host does, through QUiLoader and the installed
// Designer plugin, binds it with EngineBinder, and waits for the engine's
// value of "Stage" (42 %). Prints what is missing and exits non-zero.
#include "Brenmoor.hh"
#include "EngineBinder.h"
#include "ProgressBar.h"
#include "RuvellWidgets.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPixmap>
#include <QProgressBar>
#include <QUiLoader>

#include <cstdio>
#include <memory>

namespace {

// True once the form's bar bound to "Stage" shows the engine's 42 %.
bool formFollowsTheEngine(const QString& formFile, const QString& engineReference)
{
    QFile file(formFile);
    QUiLoader loader;
    const std::unique_ptr<QWidget> screen(file.open(QIODevice::ReadOnly) ? loader.load(&file) : nullptr);
    const auto* stage = screen ? screen->findChild<ProgressBar*>(QStringLiteral("stage")) : nullptr;
    if (!stage)
        return false;
    EngineBinder binder(engineReference);
    binder.addScreen(screen.get());
    const QProgressBar* shown = stage->findChild<QProgressBar*>();
    QElapsedTimer waited;
    waited.start();
    while (shown->value() != 420 && waited.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    return shown->value() == 420;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    int faults = 0;
    const auto expect = [&faults](bool holds, const char* what) {
        if (!holds) {
            std::fprintf(stderr, "rv-host: %s\n", what);
            ++faults;
        }
    };

    ProgressBar bar;
    bar.resize(200, 40);
    bar.bindAttribute(Brenmoor::EngineReadingBase::_nil());
    expect(bar.isBindingAttempted(), "the bar did not take the binding");
    expect(!bar.grab().isNull(), "the bar did not paint");

    // Each library carries its pictures compiled in.
    expect(QFile::exists(QStringLiteral(":/images/lock.png")), "no lock picture from librvuicomponents");
    expect(QFile::exists(QStringLiteral(":/images/bksp.png")), "no keypad picture from librvuicommonplugins");

    Kelvane::gui::RuvellWidgets collection;
    expect(!collection.customWidgets().isEmpty(), "the designer collection is empty");
    for (QDesignerCustomWidgetInterface* entry : collection.customWidgets()) {
        const QWidget* widget = entry->createWidget(&bar);
        expect(widget && entry->name() == QLatin1String(widget->metaObject()->className()),
               qPrintable(QStringLiteral("no %1 from the collection").arg(entry->name())));
    }
    if (argc > 2)
        expect(formFollowsTheEngine(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2])),
               "the form's bar never showed the engine's value");
    return faults == 0 ? 0 : 1;
}
