// rv-host: makes a widget of the installed library, binds it as a host
// that found no attribute would, paints it, and makes every widget of the
// designer collection. Given an engine's reference file, it also binds a
// bar to the engine's "Stage" and waits for the engine's value (25 %).
// Prints what is missing and exits non-zero.
#include "Brenmoor.hh"
#include "EngineBinder.h"
#include "ProgressBar.h"
#include "RuvellWidgets.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPixmap>
#include <QProgressBar>

#include <cstdio>

namespace {

// True once the bar bound to the engine's "Stage" shows its 25 %.
bool followsTheEngine(const QString& engineReference)
{
    QWidget screen;
    auto* live = new ProgressBar(&screen);
    live->setAttributeName(QStringLiteral("Stage"));
    EngineBinder binder(engineReference);
    binder.addScreen(&screen);
    const QProgressBar* shown = live->findChild<QProgressBar*>();
    QElapsedTimer waited;
    waited.start();
    while (shown->value() != 250 && waited.elapsed() < 10000)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    return shown->value() == 250;
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
    if (argc > 1)
        expect(followsTheEngine(QString::fromLocal8Bit(argv[1])), "the bar never showed the engine's value");
    return faults == 0 ? 0 : 1;
}
