// What a flick of the slider costs the interface: the ruler coasting and
// settling after a flick each way, on the offscreen platform, every frame
// painted as the operator would see it. Prints, in milliseconds, the p50 and
// p99 of a whole frame (every widget repainted in it and the flush) and of
// the ruler's own paint, and the frames painted per second of motion. A
// frame should cost under 4 ms.
#include "BenchInput.h"
#include "BenchPaintMeter.h"
#include "BenchReport.h"
#include "SingleSliderImpl.h"
#include "SliderBarImpl.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QElapsedTimer>
#include <QWindow>

#include <cstdio>

namespace {

bool moving(QObject* bar) { return !QAbstractEventDispatcher::instance()->registeredTimers(bar).isEmpty(); }

/*
  A flick of \a pixels in 100 ms on the ruler's own clock, about five times
  that in pixels per second; after the release the clock runs in real time
  while the ruler coasts and settles. Returns the seconds it moved.
*/
double flick(SliderBarImpl* bar, int pixels)
{
    qint64 now = 0;
    bar->gestureClock().setSource([&now] { return now; });
    const QPoint centre = bar->rect().center();
    benchMouse(bar, QEvent::MouseButtonPress, centre, Qt::LeftButton);
    now = 10;
    benchMouse(bar, QEvent::MouseMove, centre + QPoint(pixels / 20, 0), Qt::LeftButton);
    now = 110;
    benchMouse(bar, QEvent::MouseMove, centre + QPoint(pixels, 0), Qt::LeftButton);
    QElapsedTimer wall;
    wall.start();
    bar->gestureClock().setSource([&wall] { return 110 + wall.elapsed(); });
    benchMouse(bar, QEvent::MouseButtonRelease, centre + QPoint(pixels, 0), Qt::NoButton);
    while (moving(bar))
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QApplication::processEvents();
    bar->gestureClock().setSource({});
    return double(wall.elapsed()) / 1000.0;
}

} // namespace

int main(int argc, char* argv[])
{
    benchDefaultToOffscreen();
    QApplication app(argc, argv);
    SingleSliderImpl slider(nullptr, 0.0, 0.0, 1e6, 2);
    slider.setValue(QStringLiteral("500000.00"), QStringLiteral("Hz"));
    slider.updateCursorPosition();
    slider.show();
    auto* bar = slider.findChild<SliderBarImpl*>(QStringLiteral("sliderBar"));
    while (!slider.windowHandle()->isExposed())
        QApplication::processEvents(QEventLoop::AllEvents, 50);
    QApplication::processEvents();

    BenchPaintMeter frames(QEvent::UpdateRequest);
    BenchPaintMeter rulerPaints;
    slider.installEventFilter(&frames);
    bar->installEventFilter(&rulerPaints);
    double seconds = 0.0;
    for (int pixels : {420, -420})
        seconds += flick(bar, pixels);

    std::printf("slider flick, two of about 2000 px/s: %zu frames in %.1f s of motion (%.1f frames/s)\n",
                frames.microseconds.size(), seconds, double(frames.microseconds.size()) / seconds);
    std::printf("  whole frame   p50 %6.3f ms   p99 %6.3f ms   (goal: under 4 ms)\n",
                benchPercentile(frames.microseconds, 0.5) / 1000.0, benchPercentile(frames.microseconds, 0.99) / 1000.0);
    std::printf("  ruler's paint p50 %6.3f ms   p99 %6.3f ms\n", benchPercentile(rulerPaints.microseconds, 0.5) / 1000.0,
                benchPercentile(rulerPaints.microseconds, 0.99) / 1000.0);
    return 0;
}
