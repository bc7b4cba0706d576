// rv-host: makes a widget of the installed library, binds it as a host
// that found no attribute would, paints it, and makes every widget of the
// designer collection. Prints what is missing and exits non-zero.
#include "ProgressBar.h"
#include "Brenmoor.hh"
#include "RuvellWidgets.h"

#include <QApplication>
#include <QFile>
#include <QPixmap>

#include <cstdio>

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
    return faults == 0 ? 0 : 1;
}
