// The ini reader beside a bare loop over the same lines, and the load of the shipped profile.
#include "link/deviceprofile.h"
#include "link/profiledefaults.h"
#include "support/aims.h"
#include "support/samplefile.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>
#include <zrinifile>

namespace
{

constexpr int kLines = 1000;

// As a style file: sections of some twenty keys with a path or a colour each.
std::string sampleStyle()
{
    std::string style;
    char line[100];
    for (int i = 0; i < kLines; ++i) {
        if (i % 21 == 0)
            snprintf(line, sizeof line, "[Widget%02d]\n", i * 7 % 48);
        else if (i % 2)
            snprintf(line, sizeof line, "Background/State%02d = \"rgb(%d,%d,%d)\"\n", i % 21,
                     i % 256, 40, 56);
        else
            snprintf(line, sizeof line, "Image/State%02d = images/button-%d.png ; comment\n",
                     i % 21, i);
        style += line;
    }
    return style;
}

const char *sampleFile()
{
    static const zrbench::SampleFile file(sampleStyle(), ".ini");
    return file.name();
}

void iniRead(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(ZrIniFile(sampleFile()).size());
}

// Splits the lines at the sign of equality and keeps both halves, and does nothing else.
void bareLines(benchmark::State &state)
{
    for (auto _ : state) {
        FILE *file = fopen(sampleFile(), "r");
        std::vector<std::pair<std::string, std::string>> halves;
        char line[512];
        while (fgets(line, sizeof line, file)) {
            if (const char *equals = strchr(line, '='))
                halves.emplace_back(std::string(line, size_t(equals - line)), equals + 1);
        }
        fclose(file);
        benchmark::DoNotOptimize(halves.data());
    }
}

// All of loadDeviceProfile but the exchange with App.
void profileLoad(benchmark::State &state)
{
    // Keeps the line about the board's type out of the rows.
    fflush(stdout);
    const int kept = dup(STDOUT_FILENO);
    if (!freopen("/dev/null", "w", stdout))
        return;
    std::vector<uint8_t> custom(Profile::CustomSize), parameters(Profile::ParametersSize);
    for (auto _ : state) {
        const ZrIniFile file(ZR_SOURCE_DIR "/custom-config.ini");
        benchmark::DoNotOptimize(readCustomPart(file, custom.data()));
        benchmark::DoNotOptimize(checkDiskLists(file));
        ProfileDefaults::overlay(file, parameters.data());
    }
    fflush(stdout);
    dup2(kept, STDOUT_FILENO);
    close(kept);
}

BENCHMARK(iniRead)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(bareLines)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(profileLoad)->Unit(benchmark::kMicrosecond)->UseRealTime();

const bool aimed = zrbench::atMost("ini reader, 1,000 lines", "iniRead", "bareLines", 3.0);

} // namespace
