#include "BenchReport.h"

#include <QByteArray>
#include <QtGlobal>

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

double benchPercentile(std::vector<double> samples, double fraction)
{
    if (samples.empty())
        return 0.0;
    std::sort(samples.begin(), samples.end());
    return samples[std::min(samples.size() - 1, size_t(fraction * double(samples.size())))];
}

void benchReport(const char* what, int rounds, const std::function<void()>& step,
                 const std::function<void()>& prepare)
{
    std::vector<double> samples;
    samples.reserve(rounds);
    QElapsedTimer timer;
    for (int i = 0; i < rounds; ++i) {
        if (prepare)
            prepare();
        timer.start();
        step();
        samples.push_back(double(timer.nsecsElapsed()) / 1000.0);
    }
    std::printf("%-28s p50 %8.1f us   p99 %8.1f us   (%d rounds)\n", what, benchPercentile(samples, 0.5),
                benchPercentile(samples, 0.99), rounds);
}

void benchFrames(const char* what, int frames, const std::function<void(int)>& frame)
{
    std::vector<double> samples;
    samples.reserve(frames);
    QElapsedTimer total;
    QElapsedTimer timer;
    total.start();
    for (int i = 0; i < frames; ++i) {
        timer.start();
        frame(i);
        samples.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    const double seconds = double(total.nsecsElapsed()) / 1e9;
    std::printf("%-28s p50 %6.2f ms   p99 %6.2f ms   %7.0f frames/s   (%d frames)\n", what,
                benchPercentile(samples, 0.5), benchPercentile(samples, 0.99), frames / seconds, frames);
}

void benchDefaultToOffscreen()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", QByteArrayLiteral("offscreen"));
}
