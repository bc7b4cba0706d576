// What meters cost the interface: one meter fed at 1 kHz with no update
// delay, and fifty meters on one screen at the default delay, all fed
// through the in-process engine and real DDS topics. Prints the interface
// thread's CPU share, frames painted, the cost of a paint on the interface
// thread and of drawing a sample into the bar's image on the DDS thread.
#include "BenchPaintMeter.h"
#include "BenchReport.h"
#include "BenchUsage.h"
#include "GlobalImpl.h"
#include "MeterBarImpl.h"
#include "MeterBar_Bar.h"
#include "SimEngine.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <atomic>
#include <cmath>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

namespace {

void addMeterAttribute(SimEngine& engine, const std::string& name)
{
    SimAttributeSetup setup;
    setup.name = name;
    setup.kind = SimKind::ReadingMeterReading;
    setup.value = -40.0;
    setup.limits = SimLimits{-80, 0, 1};
    setup.units = {"10,0,-3", "W;;;;"};
    engine.addAttribute(setup);
}

/*
  Feeds every attribute at \a hertz from a thread of its own for \a seconds
  while the interface thread runs its event loop, and prints what the
  interface thread spent.
*/
void feedAndMeasure(const char* what, SimEngine& engine, const std::vector<std::string>& names,
                    const std::vector<MeterBarImpl*>& meters, int hertz, int seconds)
{
    BenchPaintMeter paints;
    std::atomic<long> drawn{0};
    for (MeterBarImpl* meter : meters) {
        meter->barWidget()->installEventFilter(&paints);
        QObject::connect(meter->barWidget(), &MeterBar_Bar::redraw, meter, [&drawn] { ++drawn; },
                         Qt::DirectConnection);
    }
    std::atomic<bool> running{true};
    std::thread feeder([&] {
        const auto period = std::chrono::microseconds(1000000 / hertz);
        auto next = std::chrono::steady_clock::now();
        for (long i = 0; running; ++i) {
            for (const std::string& name : names)
                engine.setValue(name, -70.0 + 60.0 * (0.5 + 0.5 * std::sin(double(i) / 50.0)));
            next += period;
            std::this_thread::sleep_until(next);
        }
    });

    QElapsedTimer wall;
    wall.start();
    const double cpuBefore = benchThreadCpuSeconds();
    QTimer::singleShot(seconds * 1000, qApp, &QCoreApplication::quit);
    QApplication::exec();
    const double cpu = benchThreadCpuSeconds() - cpuBefore;
    const double elapsed = double(wall.nsecsElapsed()) / 1e9;
    running = false;
    feeder.join();
    for (MeterBarImpl* meter : meters)
        meter->barWidget()->removeEventFilter(&paints);

    std::printf("%s: interface thread CPU %.1f %% of one core; %ld samples drawn (%.0f/s), "
                "%zu frames painted (%.0f/s), paint p50 %.0f us p99 %.0f us\n",
                what, 100.0 * cpu / elapsed, drawn.load(), double(drawn) / elapsed, paints.microseconds.size(),
                double(paints.microseconds.size()) / elapsed, benchPercentile(paints.microseconds, 0.5),
                benchPercentile(paints.microseconds, 0.99));
}

} // namespace

int main(int argc, char* argv[])
{
    benchDefaultToOffscreen();
    QApplication app(argc, argv);
    SimEngine engine;

    // The drawing a sample costs, in the caller's thread, at a meter's size.
    {
        MeterBar_Bar bar;
        bar.resize(60, 300);
        bar.show();
        int round = 0;
        benchReport("one sample drawn into the bar's image", 1000,
                    [&] { bar.updateReading(-70.0 + double(round++ % 60), -80.0, 0.0, 0, QStringLiteral("dBm")); });
    }

    {
        QWidget screen;
        screen.resize(400, 480);
        screen.show();
        addMeterAttribute(engine, "Solo");
        auto* meter = new MeterBarImpl(&screen);
        meter->setGeometry(20, 20, 200, 420);
        meter->setUpdateDelay(0);
        meter->show();
        meter->bindAttribute(engine.attribute("Solo"));
        QTimer::singleShot(500, qApp, &QCoreApplication::quit);
        QApplication::exec();
        feedAndMeasure("one meter at 1 kHz, no update delay", engine, {"Solo"}, {meter}, 1000, 5);
    }

    {
        QWidget screen;
        screen.resize(1250, 900);
        screen.show();
        std::vector<std::string> names;
        std::vector<MeterBarImpl*> meters;
        // All attributes first: the in-process engine makes its writers on
        // this thread, which must not wait for DDS while a meter's sample
        // waits for it.
        for (int i = 0; i < 50; ++i) {
            names.push_back("Meter" + std::to_string(i));
            addMeterAttribute(engine, names.back());
        }
        for (int i = 0; i < 50; ++i) {
            auto* meter = new MeterBarImpl(&screen);
            meter->setGeometry(10 + (i % 10) * 124, 10 + (i / 10) * 178, 120, 170);
            meter->show();
            meter->bindAttribute(engine.attribute(names[size_t(i)]));
            meters.push_back(meter);
        }
        QTimer::singleShot(500, qApp, &QCoreApplication::quit);
        QApplication::exec();
        feedAndMeasure("50 meters at the default 300 ms delay, each fed at 50 Hz", engine, names, meters, 50, 5);
    }
    return 0;
}
