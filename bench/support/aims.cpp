#include "support/aims.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <sched.h>
#include <vector>

namespace zrbench
{
namespace
{

std::vector<Aim> &aims()
{
    static std::vector<Aim> list;
    return list;
}

// Shows rows as the console reporter does, and keeps the times of every repetition.
class MedianReporter : public benchmark::ConsoleReporter
{
public:
    MedianReporter() : ConsoleReporter(OO_None) {}

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred)
                times_[run.run_name.function_name + argumentsOf(run)].push_back(
                    run.real_accumulated_time / double(std::max<int64_t>(run.iterations, 1)));
        }
        benchmark::ConsoleReporter::ReportRuns(runs);
    }

    double median(const std::string &row) const
    {
        auto found = times_.find(row);
        if (found == times_.end() || found->second.empty())
            return 0;
        std::vector<double> sorted = found->second;
        std::sort(sorted.begin(), sorted.end());
        return sorted[sorted.size() / 2];
    }

private:
    static std::string argumentsOf(const Run &run)
    {
        return run.run_name.args.empty() ? std::string() : "/" + run.run_name.args;
    }
    std::map<std::string, std::vector<double>> times_;
};

bool report(const Aim &aim, double row, double yardstick)
{
    if (row <= 0 || yardstick <= 0) {
        std::printf("aim: %s not measured\n", aim.name.c_str());
        return false;
    }
    const bool faster = aim.kind == Aim::Kind::AtLeastTimesFaster;
    const double ratio = faster ? yardstick / row : row / yardstick;
    const bool met = faster ? ratio >= aim.limit : ratio <= aim.limit;
    std::printf("aim: %s %.2f %s %.2f %s\n", aim.name.c_str(), ratio,
                faster ? ">=" : "<=", aim.limit, met ? "ok" : "short");
    return met;
}

} // namespace

bool atMost(const std::string &name, const std::string &row, const std::string &yardstick,
            double limit)
{
    aims().push_back({name, row, yardstick, limit, Aim::Kind::AtMost});
    return true;
}

bool atLeastTimesFaster(const std::string &name, const std::string &row,
                        const std::string &yardstick, double limit)
{
    aims().push_back({name, row, yardstick, limit, Aim::Kind::AtLeastTimesFaster});
    return true;
}

void pinToOneCore()
{
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(sched_getcpu(), &set);
    sched_setaffinity(0, sizeof set, &set);
}

} // namespace zrbench

int main(int argc, char **argv)
{
    std::vector<char *> arguments(argv, argv + argc);
    std::string repetitions = "--benchmark_repetitions=5";
    std::string interleaving = "--benchmark_enable_random_interleaving=true";
    std::string aggregates = "--benchmark_report_aggregates_only=false";
    std::string shortest = "--benchmark_min_time=0.05";
    // Defaults first: what the caller gives comes later and wins.
    arguments.insert(arguments.begin() + 1,
                     {repetitions.data(), interleaving.data(), aggregates.data(), shortest.data()});
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 1;
    zrbench::MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const zrbench::Aim &aim : zrbench::aims())
        zrbench::report(aim, reporter.median(aim.row), reporter.median(aim.yardstick));
    return 0;
}
