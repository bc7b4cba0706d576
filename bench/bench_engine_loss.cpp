// A screen of bound widgets living through its engine's troubles: the
// engine process is killed and restarted, then stopped (SIGSTOP) and let go
// on (SIGCONT). For each, prints how long after the event every widget
// showed the loss, how long after the engine answered again every widget
// was live again, and the longest stall of the interface thread meanwhile.
// Nobody touches the screen: the widgets learn it all by themselves.
#include "BenchSpine.h"
#include "EngineBinder.h"
#include "ProgressBar.h"
#include "SimEngineProcess.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QTemporaryDir>
#include <QTimer>
#include <QtConcurrent>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr int startPercent = 25;

QString writeScenario(const QTemporaryDir& folder, int count)
{
    QStringList attributes;
    for (int i = 0; i < count; ++i)
        attributes << QStringLiteral(R"({"name":"Loss%1","kind":"EngineReadingLong","value":%2})").arg(i).arg(startPercent);
    const QString path = folder.filePath(QStringLiteral("engine_loss.json"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return QString();
    file.write(QStringLiteral(R"({"attributes":[%1]})").arg(attributes.join(QLatin1Char(','))).toUtf8());
    return path;
}

// The longest gap between two ticks of a 2 ms timer on the interface thread.
class StallMeter : public QObject
{
public:
    StallMeter()
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            m_longest = std::max(m_longest, m_sinceTick.restart());
        });
        m_timer.start(2);
        m_sinceTick.start();
    }
    void reset()
    {
        m_longest = 0;
        m_sinceTick.restart();
    }
    qint64 longestMs() const { return m_longest; }

private:
    QTimer m_timer;
    QElapsedTimer m_sinceTick;
    qint64 m_longest = 0;
};

// Runs the interface thread's events until \a done holds; the time it took, or -1.
qint64 runUntil(const std::function<bool()>& done, int timeoutMs)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!done()) {
        if (elapsed.elapsed() > timeoutMs)
            return -1;
        benchRunEvents(1);
    }
    return elapsed.elapsed();
}

// A blocking call of the benchmark's own (CORBA control calls) made on a
// worker, so that it does not count as the library's stall.
void offThread(const std::function<void()>& call)
{
    QFuture<void> future = QtConcurrent::run(call);
    runUntil([&future] { return future.isFinished(); }, 60000);
}

struct Phase
{
    const char* name;
    qint64 lossShownMs = -1;
    qint64 liveAgainMs = -1;
    qint64 longestStallMs = 0;
};

} // namespace

int main(int argc, char* argv[])
{
    benchDefaultToOffscreen();
    QApplication app(argc, argv);
    QCommandLineParser options;
    options.setApplicationDescription(QStringLiteral("A screen of bound widgets through an engine's death and hang"));
    options.addHelpOption();
    const QCommandLineOption widgetsOption = benchWidgetsOption(50);
    options.addOption(widgetsOption);
    options.process(app);
    const int count = std::max(1, options.value(widgetsOption).toInt());

    QTemporaryDir folder;
    const QString scenario = writeScenario(folder, count);
    SimEngineProcess engine;
    if (scenario.isEmpty() || !engine.start(scenario)) {
        std::fprintf(stderr, "bench_engine_loss: the engine did not start: %s\n", qPrintable(engine.errorString()));
        return 1;
    }

    QWidget screen;
    auto* layout = new QGridLayout(&screen);
    std::vector<ProgressBar*> widgets;
    for (int i = 0; i < count; ++i) {
        auto* bar = new ProgressBar;
        bar->setAttributeName(QStringLiteral("Loss%1").arg(i));
        layout->addWidget(bar, i / 5, i % 5);
        widgets.push_back(bar);
    }
    screen.resize(1000, 700);
    screen.show();

    EngineBinder binder(engine.iorFile());
    binder.addScreen(&screen);
    auto allLost = [&widgets] {
        return std::all_of(widgets.begin(), widgets.end(), [](ProgressBar* w) { return w->isEngineLinkLost(); });
    };
    auto allShow = [&widgets](int percent) {
        return std::all_of(widgets.begin(), widgets.end(), [percent](ProgressBar* w) {
            return !w->isEngineLinkLost() && benchShows(w, percent);
        });
    };
    // Live: bound and following the engine's topics, not only its binding read.
    auto liveAt = [&](int percent) {
        offThread([&engine, count, percent] {
            SimEngineControl::Control_var control = engine.control();
            for (int i = 0; i < count; ++i)
                control->setLong(QStringLiteral("Loss%1").arg(i).toUtf8().constData(), percent);
        });
        return runUntil([&] { return allShow(percent); }, 10000);
    };
    if (runUntil([&] { return binder.isBound() && allShow(startPercent); }, 15000) < 0 || liveAt(40) < 0) {
        std::fprintf(stderr, "bench_engine_loss: the widgets did not go live\n");
        return 1;
    }

    StallMeter stalls;
    std::vector<Phase> phases;

    Phase killed{"killed, then restarted"};
    stalls.reset();
    engine.kill();
    killed.lossShownMs = runUntil(allLost, 10000);
    // The engine stays dead a while: the binder keeps asking for it.
    runUntil([] { return false; }, 1000);
    const qint64 stallWhileDead = stalls.longestMs();
    // Starting a process is the benchmark's own wait, not the library's.
    const bool restarted = engine.restart();
    stalls.reset();
    killed.liveAgainMs = restarted ? runUntil([&] { return allShow(startPercent); }, 10000) : -1;
    liveAt(60);
    killed.longestStallMs = std::max(stallWhileDead, stalls.longestMs());
    phases.push_back(killed);

    Phase stopped{"stopped, then let go on"};
    stalls.reset();
    engine.pause();
    stopped.lossShownMs = runUntil(allLost, 10000);
    runUntil([] { return false; }, 1000);
    engine.resume();
    stopped.liveAgainMs = runUntil([&] { return binder.isBound() && allShow(60); }, 10000);
    liveAt(70);
    stopped.longestStallMs = stalls.longestMs();
    phases.push_back(stopped);

    std::printf("%d bound ProgressBars, engine process, binder retry %d ms\n", count, binder.retryInterval());
    std::printf("%-26s %16s %22s %20s\n", "engine", "loss shown (ms)", "live again after (ms)", "longest stall (ms)");
    for (const Phase& phase : phases)
        std::printf("%-26s %16lld %22lld %20lld\n", phase.name, static_cast<long long>(phase.lossShownMs),
                    static_cast<long long>(phase.liveAgainMs), static_cast<long long>(phase.longestStallMs));
    std::printf("goals: loss shown within 1500 ms, live again within 2000 ms of the engine answering, no stall over 50 ms\n");
    benchBoundShutdown(0);
    return 0;
}
