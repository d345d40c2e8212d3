#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <vector>

/** Wall-clock and process times in milliseconds, as the comparison of chart libraries takes them. */
namespace frame_clock {

inline double read(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

inline double now() { return read(CLOCK_MONOTONIC); }
/** @return what all threads of the process have taken so far */
inline double cpu() { return read(CLOCK_PROCESS_CPUTIME_ID); }

/** @return the largest resident memory so far, in MiB */
inline double peakMemory()
{
    double peak = 0;
    if (FILE* status = std::fopen("/proc/self/status", "r")) {
        char line[256];
        while (std::fgets(line, sizeof line, status))
            if (std::strncmp(line, "VmHWM:", 6) == 0)
                peak = std::atof(line + 6) / 1024;
        std::fclose(status);
    }
    return peak;
}

/** @param values at least one */
inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2;
}

/** What one step took: medians over its repeats. */
struct Cost {
    double wall = 0, cpu = 0;
    int repeats = 0;
};

/**
 * Repeats step, which gets the number of the repeat: at least 5 times and then up to 30 times within 200 ms;
 * a slow one stops after limit ms.
 */
inline Cost measure(const std::function<void(int)>& step, double limit)
{
    std::vector<double> walls, cpus;
    const double begin = now();
    for (int i = 0; i < 30; ++i) {
        const double cpuBefore = cpu(), before = now();
        step(i);
        const double after = now();
        walls.push_back(after - before);
        cpus.push_back(cpu() - cpuBefore);
        if ((after - begin > 200 && walls.size() >= 5) || after - begin > limit)
            break;
    }
    return {median(walls), median(cpus), static_cast<int>(walls.size())};
}

} // namespace frame_clock
