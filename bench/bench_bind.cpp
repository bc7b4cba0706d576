// Opening and closing a screen of bound widgets: ProgressBars bound to as
// many attributes of an in-process engine, from the first bindAttribute
// until every bar shows a sample written after binding; then from deleting
// the screen until the last reader is gone; the resident memory the bound
// widgets take; all over several cycles, to show growth from one to the next.
#include "BenchSpine.h"
#include "BenchUsage.h"
#include "DDS_BaseObj.h"
#include "ProgressBar.h"
#include "SimEngine.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>

#include <malloc.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

double mib(long kib) { return double(kib) / 1024.0; }

} // namespace

int main(int argc, char* argv[])
{
    benchDefaultToOffscreen();
    QApplication app(argc, argv);
    QCommandLineParser options;
    options.setApplicationDescription(QStringLiteral("Binding and tearing down a screen of ProgressBars"));
    options.addHelpOption();
    const QCommandLineOption widgetsOption = benchWidgetsOption(200);
    const QCommandLineOption cyclesOption(QStringLiteral("cycles"), QStringLiteral("Bind and teardown cycles."),
                                          QStringLiteral("count"), QStringLiteral("5"));
    options.addOptions({widgetsOption, cyclesOption});
    options.process(app);
    const int count = std::max(1, options.value(widgetsOption).toInt());
    const int cycles = std::max(1, options.value(cyclesOption).toInt());

    SimEngine engine;
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) {
        names.push_back("Bound" + std::to_string(i));
        benchAddLongReading(engine, names.back(), 0);
    }

    std::printf("%d ProgressBars bound to %d attributes of an in-process engine, default update delay; "
                "%d cycles\n", count, count, cycles);
    std::printf("  goals: bind to live and teardown each < 200 ms, RSS < 64 MiB for %d, no growth across cycles\n",
                count);
    const int columns = 10;
    long firstEndKiB = 0;
    long firstTrimmedKiB = 0;
    for (int cycle = 0; cycle < cycles; ++cycle) {
        // What the allocator keeps for reuse is no growth; what it cannot give back may be.
        malloc_trim(0);
        const long startKiB = benchResidentKiB();
        auto* screen = new QWidget;
        screen->resize(columns * 124 + 8, ((count + columns - 1) / columns) * 44 + 8);
        std::vector<ProgressBar*> widgets;
        for (int i = 0; i < count; ++i) {
            auto* widget = new ProgressBar(screen);
            widget->setGeometry(8 + (i % columns) * 124, 8 + (i / columns) * 44, 120, 40);
            widgets.push_back(widget);
        }
        screen->show();
        benchRunEvents(0);
        const long createdKiB = benchResidentKiB();

        QElapsedTimer timer;
        timer.start();
        for (int i = 0; i < count; ++i)
            widgets[size_t(i)]->bindAttribute(engine.attribute(names[size_t(i)]));
        const double bindCallsMs = double(timer.nsecsElapsed()) / 1e6;
        int rewrites = 0;
        // A new value each cycle, so that the bars cannot show it from the read at bind.
        const int notLive = benchShowEverywhere(engine, names, widgets, 10 + cycle, 10000, 10, &rewrites);
        const double liveMs = double(timer.nsecsElapsed()) / 1e6;
        const long liveKiB = benchResidentKiB();

        timer.start();
        delete screen;
        const double deleteMs = double(timer.nsecsElapsed()) / 1e6;
        Brenmoor::DDS_BaseObj::waitForDisposals();
        const double teardownMs = double(timer.nsecsElapsed()) / 1e6;
        const long endKiB = benchResidentKiB();
        malloc_trim(0);
        const long trimmedKiB = benchResidentKiB();
        if (cycle == 0) {
            firstEndKiB = endKiB;
            firstTrimmedKiB = trimmedKiB;
        }

        std::printf("  cycle %d: bind to live %7.1f ms (bindAttribute calls %.1f ms, %d samples written again%s)\n",
                    cycle + 1, liveMs, bindCallsMs, rewrites,
                    notLive ? qPrintable(QStringLiteral(", %1 never live").arg(notLive)) : "");
        std::printf("           teardown %7.1f ms (interface thread %.1f ms)\n", teardownMs, deleteMs);
        std::printf("           RSS %+.1f MiB for %d bound (%.0f KiB each, %.0f KiB of it unbound); "
                    "after teardown %+.1f MiB, %+.1f MiB after malloc_trim\n",
                    mib(liveKiB - startKiB), count, double(liveKiB - startKiB) / count,
                    double(createdKiB - startKiB) / count, mib(endKiB - startKiB), mib(trimmedKiB - startKiB));
        std::printf("           growth since cycle 1's end %+.1f MiB, %+.1f MiB after malloc_trim\n",
                    mib(endKiB - firstEndKiB), mib(trimmedKiB - firstTrimmedKiB));
    }
    benchBoundShutdown(0);
    return 0;
}
