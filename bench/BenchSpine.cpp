#include "BenchSpine.h"

#include "ProgressBar.h"
#include "SimEngine.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QProgressBar>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <thread>

void benchAddLongReading(SimEngine& engine, const std::string& name, int percent)
{
    SimAttributeSetup setup;
    setup.name = name;
    setup.kind = SimKind::ReadingLong;
    setup.value = std::int64_t(percent);
    engine.addAttribute(setup);
}

QProgressBar* benchInnerBar(const ProgressBar* widget) { return widget->findChild<QProgressBar*>(); }

bool benchShows(const ProgressBar* widget, int percent) { return benchInnerBar(widget)->value() == percent * 10; }

void benchRunEvents(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

int benchShowEverywhere(SimEngine& engine, const std::vector<std::string>& names,
                        const std::vector<ProgressBar*>& widgets, int percent, int timeoutMs, int rewriteMs,
                        int* rewrites)
{
    for (const std::string& name : names)
        engine.setValue(name, std::int64_t(percent));
    QElapsedTimer elapsed;
    elapsed.start();
    qint64 nextRewrite = rewriteMs;
    for (;;) {
        std::vector<size_t> behind;
        for (size_t i = 0; i < widgets.size(); ++i) {
            if (!benchShows(widgets[i], percent))
                behind.push_back(i);
        }
        if (behind.empty() || elapsed.elapsed() >= timeoutMs)
            return int(behind.size());
        if (elapsed.elapsed() >= nextRewrite) {
            for (size_t i : behind)
                engine.setValue(names[i], std::int64_t(percent));
            if (rewrites)
                *rewrites += int(behind.size());
            nextRewrite = elapsed.elapsed() + rewriteMs;
        }
        benchRunEvents(1);
    }
}

void benchBoundShutdown(int code)
{
    // Fast DDS was seen to hang inside a writer's destructor about once in 45 exits.
    std::thread([code] {
        std::this_thread::sleep_for(std::chrono::seconds(10));
        std::fprintf(stderr, "shutdown hung; ending\n");
        std::_Exit(code);
    }).detach();
}

QCommandLineOption benchWidgetsOption(int defaultCount)
{
    return QCommandLineOption(QStringLiteral("widgets"), QStringLiteral("Widgets, one attribute each."),
                              QStringLiteral("count"), QString::number(defaultCount));
}
