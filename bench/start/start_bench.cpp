// From App's word that it has started (1000/3) to the first flush that shows the live view, and the
// memory resident then: 1920x1080, 16 channels. Absolute aims, so the median of several starts.
#include "e2e/recorder.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace
{

constexpr int Starts = 11;
constexpr double MostMilliseconds = 150;
constexpr double MostMebibytes = 32;

using Clock = std::chrono::steady_clock;

struct Start {
    double milliseconds;
    double mebibytes;
};

// Resident pages of all mappings but the framebuffer's.
double residentMebibytes(pid_t process)
{
    std::ifstream maps("/proc/" + std::to_string(process) + "/smaps");
    bool isFramebuffer = false;
    long kibibytes = 0;
    for (std::string line; std::getline(maps, line);) {
        // A mapping's own line begins with its addresses, in lower-case hexadecimal digits.
        if (line.find('-') != std::string::npos && line.find("kB") == std::string::npos)
            isFramebuffer = line.size() > 8 && line.compare(line.size() - 8, 8, "/dev/fb0") == 0;
        long value = 0;
        if (!isFramebuffer && std::sscanf(line.c_str(), "Rss: %ld kB", &value) == 1)
            kibibytes += value;
    }
    return double(kibibytes) / 1024;
}

Start startOnce()
{
    zrtest::Recorder recorder;
    // The start waits at App's last word, so that the clock begins with it.
    recorder.app().addRule({AppMain::system, AppSystem::configDone, SimApp::Rule::Action::Silent});
    recorder.start();
    recorder.app().waitMessage(AppMain::system, AppSystem::configDone);
    const Clock::time_point begin = Clock::now();
    recorder.app().send(AppMain::system, AppSystem::appInitDone);
    recorder.app().waitMessage(AppMain::liveView, AppLiveView::setPictures);
    const ZrRect last = recorder.cell(int(recorder.pictures().count) - 1);
    while (!recorder.isOpaque(last.right(), last.bottom())) {
    }
    const std::chrono::duration<double, std::milli> taken = Clock::now() - begin;
    return {taken.count(), residentMebibytes(recorder.process())};
}

void report(const char *name, std::vector<double> values, double limit, const char *unit)
{
    std::sort(values.begin(), values.end());
    const double median = values[values.size() / 2];
    std::printf("%s: %.1f to %.1f %s over %zu starts\n", name, values.front(), values.back(), unit,
                values.size());
    std::printf("aim: %s, %s %.2f <= %.2f %s\n", name, unit, median, limit,
                median <= limit ? "ok" : "short");
}

} // namespace

int main()
{
    std::vector<double> times, memory;
    for (int i = 0; i < Starts; ++i) {
        const Start start = startOnce();
        times.push_back(start.milliseconds);
        memory.push_back(start.mebibytes);
    }
    report("from App's start to the live view", times, MostMilliseconds, "ms");
    report("resident without the framebuffer", memory, MostMebibytes, "MiB");
    return 0;
}
