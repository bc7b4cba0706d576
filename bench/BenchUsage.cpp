#include "BenchUsage.h"

#include <cstdio>
#include <cstring>
#include <ctime>

namespace {

double cpuSeconds(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9;
}

} // namespace

// The thread's own clock is the utime + stime of /proc/self/task/<tid>/stat,
// without the stat file's 10 ms ticks.
double benchThreadCpuSeconds() { return cpuSeconds(CLOCK_THREAD_CPUTIME_ID); }

double benchProcessCpuSeconds() { return cpuSeconds(CLOCK_PROCESS_CPUTIME_ID); }

long benchResidentKiB()
{
    std::FILE* status = std::fopen("/proc/self/status", "r");
    if (!status)
        return 0;
    long kib = 0;
    char line[256];
    while (std::fgets(line, sizeof line, status)) {
        if (std::strncmp(line, "VmRSS:", 6) == 0) {
            std::sscanf(line + 6, "%ld", &kib);
            break;
        }
    }
    std::fclose(status);
    return kib;
}
