// Aims of a benchmark binary: each holds one row against its yardstick row of the same run.
//
// Declare aims at namespace scope beside the rows; the binary prints one line for each at its end:
//   aim: NAME 1.07 <= 1.30 ok        (time of ROW over time of YARDSTICK)
//   aim: NAME 31.4 >= 30.0 ok        (time of YARDSTICK over time of ROW)
// Rows are compared by the medians of interleaved repetitions, in real time.
#pragma once

#include <string>

namespace zrbench
{

struct Aim {
    enum class Kind { AtMost, AtLeastTimesFaster };
    std::string name;
    std::string row;
    std::string yardstick;
    double limit;
    Kind kind;
};

// Registers an aim at start-up; the result is unused and only lets it stand at namespace scope.
bool atMost(const std::string &name, const std::string &row, const std::string &yardstick,
            double limit);
bool atLeastTimesFaster(const std::string &name, const std::string &row,
                        const std::string &yardstick, double limit);

// Keeps the calling process and all threads it will start on one core, so that queues and links
// are compared and not the machine's way of waking an idle core.
void pinToOneCore();

} // namespace zrbench
