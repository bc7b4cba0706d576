#include "BenchReport.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

void benchReport(const char* what, int rounds, const std::function<void()>& step,
                 const std::function<void()>& prepare)
{
    std::vector<qint64> samples;
    samples.reserve(rounds);
    QElapsedTimer timer;
    for (int i = 0; i < rounds; ++i) {
        if (prepare)
            prepare();
        timer.start();
        step();
        samples.push_back(timer.nsecsElapsed());
    }
    std::sort(samples.begin(), samples.end());
    std::printf("%-28s p50 %8.1f us   p99 %8.1f us   (%d rounds)\n", what,
                samples[samples.size() / 2] / 1000.0, samples[samples.size() * 99 / 100] / 1000.0, rounds);
}
