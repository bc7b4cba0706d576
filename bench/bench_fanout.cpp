// A screen full of live values: many bound ProgressBars on one window, each
// on an attribute of its own that the engine changes at 10 Hz, the writes
// spread evenly over each period. Prints the interface thread's CPU share
// while the samples flow, the samples written and delivered to the bars,
// and how many bars do not show their attribute's last value once the
// writes have stopped and a settle time has passed.
#include "BenchSpine.h"
#include "BenchUsage.h"
#include "ProgressBar.h"
#include "SimEngine.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QProgressBar>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

namespace {

// Every value a bar shows during the run differs from the one before it.
int percentAt(int round, size_t index) { return int((size_t(round) + index) % 100); }

int staleCount(const std::vector<ProgressBar*>& widgets, const std::vector<int>& last)
{
    int stale = 0;
    for (size_t i = 0; i < widgets.size(); ++i)
        stale += benchShows(widgets[i], last[i]) ? 0 : 1;
    return stale;
}

} // namespace

int main(int argc, char* argv[])
{
    benchDefaultToOffscreen();
    QApplication app(argc, argv);
    QCommandLineParser options;
    options.setApplicationDescription(QStringLiteral("Many bound ProgressBars following attributes at 10 Hz"));
    options.addHelpOption();
    const QCommandLineOption widgetsOption = benchWidgetsOption(200);
    const QCommandLineOption secondsOption(QStringLiteral("seconds"), QStringLiteral("Length of the writes."),
                                           QStringLiteral("seconds"), QStringLiteral("10"));
    const QCommandLineOption hertzOption(QStringLiteral("hertz"), QStringLiteral("Changes per attribute and second."),
                                         QStringLiteral("rate"), QStringLiteral("10"));
    const QCommandLineOption settleOption(QStringLiteral("settle-ms"),
                                          QStringLiteral("Time between the last write and the stale count."),
                                          QStringLiteral("ms"), QStringLiteral("1000"));
    const QCommandLineOption delayOption(QStringLiteral("update-delay"),
                                         QStringLiteral("The widgets' UpdateDelay; their default if not given."),
                                         QStringLiteral("ms"));
    options.addOptions({widgetsOption, secondsOption, hertzOption, settleOption, delayOption});
    options.process(app);
    const int count = std::max(1, options.value(widgetsOption).toInt());
    const int seconds = std::max(1, options.value(secondsOption).toInt());
    const int hertz = std::max(1, options.value(hertzOption).toInt());
    const int settleMs = std::max(0, options.value(settleOption).toInt());

    SimEngine engine;
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) {
        names.push_back("Fan" + std::to_string(i));
        benchAddLongReading(engine, names.back(), 0);
    }

    const int columns = 10;
    QWidget screen;
    screen.resize(columns * 124 + 8, ((count + columns - 1) / columns) * 44 + 8);
    std::vector<ProgressBar*> widgets;
    std::atomic<long> delivered{0};
    for (int i = 0; i < count; ++i) {
        auto* widget = new ProgressBar(&screen);
        widget->setGeometry(8 + (i % columns) * 124, 8 + (i / columns) * 44, 120, 40);
        if (options.isSet(delayOption))
            widget->setUpdateDelay(options.value(delayOption).toInt());
        widgets.push_back(widget);
    }
    screen.show();
    for (int i = 0; i < count; ++i)
        widgets[size_t(i)]->bindAttribute(engine.attribute(names[size_t(i)]));
    // Bars not yet live would count every missed sample as lost.
    const int notLive = benchShowEverywhere(engine, names, widgets, 100, 10000);
    if (notLive > 0)
        std::printf("%d of %d bars did not show a first sample within 10 s\n", notLive, count);
    for (ProgressBar* widget : widgets)
        QObject::connect(benchInnerBar(widget), &QProgressBar::valueChanged, &screen, [&delivered] { ++delivered; });

    const int rounds = seconds * hertz;
    std::vector<int> last(size_t(count), 100);
    std::atomic<long> written{0};
    QElapsedTimer wall;
    wall.start();
    const double threadCpuBefore = benchThreadCpuSeconds();
    const double processCpuBefore = benchProcessCpuSeconds();
    std::thread writer([&] {
        const auto period = std::chrono::nanoseconds(1000000000 / hertz);
        const auto start = std::chrono::steady_clock::now();
        for (int round = 0; round < rounds; ++round) {
            for (size_t i = 0; i < names.size(); ++i) {
                std::this_thread::sleep_until(start + period * round + period * i / names.size());
                last[i] = percentAt(round, i);
                engine.setValue(names[i], std::int64_t(last[i]));
                ++written;
            }
        }
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    QApplication::exec();
    writer.join();
    const double threadCpu = benchThreadCpuSeconds() - threadCpuBefore;
    const double processCpu = benchProcessCpuSeconds() - processCpuBefore;
    const double elapsed = double(wall.nsecsElapsed()) / 1e9;
    const long deliveredWhileWriting = delivered;

    benchRunEvents(settleMs);
    const int stale = staleCount(widgets, last);

    std::printf("%d bound ProgressBars on %d attributes, each changed at %d Hz for %d s; update delay %d ms%s\n",
                count, count, hertz, seconds, widgets.front()->getUpdateDelay(),
                options.isSet(delayOption) ? "" : " (default)");
    std::printf("  interface thread CPU %.1f %% of one core over %.1f s (goal < 10 %%); whole process %.1f %%\n",
                100.0 * threadCpu / elapsed, elapsed, 100.0 * processCpu / elapsed);
    std::printf("  samples written %ld (%.0f/s); delivered to the bars %ld while writing, %ld after the settle time\n",
                written.load(), double(written) / elapsed, deliveredWhileWriting, delivered.load());
    std::printf("  stale bars %d ms after the last write: %d of %d (goal 0)\n", settleMs, stale, count);

    // How long the bars take to catch up tells a backlog from lost samples.
    if (stale > 0) {
        QElapsedTimer more;
        more.start();
        int left = stale;
        while (left > 0 && more.elapsed() < 10000) {
            benchRunEvents(10);
            left = staleCount(widgets, last);
        }
        if (left == 0)
            std::printf("  every bar current %lld ms later\n", more.elapsed());
        else
            std::printf("  still %d stale %lld ms later\n", left, more.elapsed());
    }
    benchBoundShutdown(0);
    return 0;
}
