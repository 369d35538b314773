// The corpora of the fuzz targets, as they are and garbled.
#include "fuzz/link_inputs.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

namespace
{

struct Input {
    const char *corpus;
    void (*function)(const uint8_t *bytes, size_t size);
};

class CorpusTest : public testing::TestWithParam<Input>
{
};

TEST_P(CorpusTest, NothingBreaks)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    printf("seed %u\n", seed); // an input that breaks something ends the process
    fflush(stdout);
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    std::mt19937 random(seed);
    int files = 0;
    const std::string folder = std::string(ZR_SOURCE_DIR "/tests/fuzz/") + GetParam().corpus;
    for (const auto &entry : std::filesystem::directory_iterator(folder)) {
        ++files;
        std::ostringstream text;
        text << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        const std::string original = text.str();
        for (int round = 0; round < 200; ++round) {
            std::string bytes = original;
            for (int change = 0; change < round % 10 && !bytes.empty(); ++change) {
                const size_t at = random() % bytes.size();
                switch (random() % 4) {
                case 0:
                    bytes[at] = char(random());
                    break;
                case 1:
                    bytes[at] = "=[]\";\\\n\0"[random() % 8];
                    break;
                case 2:
                    bytes.erase(at, random() % 20);
                    break;
                default:
                    bytes.insert(at, bytes.substr(random() % bytes.size(), random() % 600));
                }
            }
            GetParam().function(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
        }
    }
    testing::internal::GetCapturedStderr();
    testing::internal::GetCapturedStdout();
    EXPECT_GT(files, 1);
}

INSTANTIATE_TEST_SUITE_P(Link, CorpusTest,
                         testing::Values(Input{"ini", tryIniFile}, Input{"profile", tryProfile},
                                         Input{"frames", tryFrames}),
                         [](const auto &row) { return std::string(row.param.corpus); });

} // namespace
