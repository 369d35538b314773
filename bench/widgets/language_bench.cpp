// The switch of the language beside TinyXML's bare parse of the same file.
#include "support/aims.h"
#include "support/samplefile.h"
#include "widgets/languagefile.h"

#include <benchmark/benchmark.h>

#include <string>
#include <tinyxml.h>

namespace
{

constexpr int TextCount = 5'000;

// As the shipped packages: one text a line, some of them long, an entity here and there.
std::string samplePackage()
{
    const char *const texts[] = {"Settings",
                                 "Verbindung getrennt",
                                 "%1 of %2",
                                 "Нет сигнала на канале %1",
                                 "录像计划 &amp; 抓图计划",
                                 "The recorder will restart. Do you want to continue?"};
    std::string package =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<language name=\"sample\">\n";
    for (int i = 0; i < TextCount; ++i)
        package += "  <tr id=\"" + std::to_string(100'000 + 3 * i) + "\" text=\"" + texts[i % 6] +
                   "\"/>\n";
    return package + "</language>\n";
}

const char *sampleFile()
{
    static const zrbench::SampleFile file(samplePackage(), ".xml");
    return file.name();
}

// What setLanguage does but for the slots behind the signal: the texts before it are freed too.
void languageSwitch(benchmark::State &state)
{
    Texts texts;
    for (auto _ : state) {
        if (!readLanguageFile(sampleFile(), &texts))
            state.SkipWithError("not read");
    }
    if (texts.size() != TextCount)
        state.SkipWithError("texts are missing");
}

void bareParse(benchmark::State &state)
{
    for (auto _ : state) {
        TiXmlDocument document;
        benchmark::DoNotOptimize(document.LoadFile(sampleFile(), TIXML_ENCODING_UTF8));
    }
}

BENCHMARK(languageSwitch)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(bareParse)->Unit(benchmark::kMicrosecond)->UseRealTime();

const bool aimed =
    zrbench::atMost("language switch, 5,000 texts", "languageSwitch", "bareParse", 1.3);

} // namespace
