#include "ratio.h"

#include <cmath>
#include <cstdio>

namespace dunvey::bench {
namespace {

/// Prints as usual and keeps the medians.
class Collector : public benchmark::ConsoleReporter {
 public:
    explicit Collector(Times& times) : benchmark::ConsoleReporter(OO_Tabular), times_(times) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "median") continue;
            const double unit = benchmark::GetTimeUnitMultiplier(run.time_unit);
            times_.Add(run.run_name.function_name + (run.run_name.args.empty() ? "" : "/") +
                           run.run_name.args,
                       run.GetAdjustedRealTime() / unit);
        }
        ConsoleReporter::ReportRuns(runs);
    }

 private:
    Times& times_;
};

}  // namespace

double Times::Seconds(const std::string& name) const {
    for (const auto& [candidate, seconds] : times_) {
        if (candidate == name) return seconds;
    }
    return 0;
}

Line Ratio(std::string stage, std::string ours, std::string floor, double goal) {
    return {
        std::move(stage),
        [ours, floor](const Times& times) { return times.Seconds(ours) / times.Seconds(floor); },
        goal, "times " + floor};
}

Line Growth(std::string stage, std::string small, double smallSize, std::string large,
            double largeSize, double goal) {
    return {std::move(stage),
            [=](const Times& times) {
                return std::log(times.Seconds(large) / times.Seconds(small)) /
                       std::log(largeSize / smallSize);
            },
            goal, "as exponent"};
}

int RunAndCompare(int argc, char** argv, const std::vector<Line>& lines) {
    std::vector<char*> arguments(argv, argv + argc);
    std::string repetitions = "--benchmark_repetitions=7";
    std::string interleaved = "--benchmark_enable_random_interleaving=true";
    std::string aggregates = "--benchmark_report_aggregates_only=true";
    std::string shortRuns = "--benchmark_min_time=0.05";
    // The caller's own words come last and win.
    for (std::string* word : {&shortRuns, &aggregates, &interleaved, &repetitions}) {
        arguments.insert(arguments.begin() + 1, word->data());
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    Times times;
    Collector collector(times);
    benchmark::RunSpecifiedBenchmarks(&collector);
    std::printf("\n%-62s %9s %9s  %s\n", "stage", "measured", "goal", "");
    for (const Line& line : lines) {
        const double value = line.value(times);
        if (!std::isfinite(value)) continue;
        const bool met = line.goal == 0 || value <= line.goal;
        const std::string goal = line.goal == 0 ? "-" : std::to_string(line.goal).substr(0, 5);
        std::printf("%-62s %9.3f %9s  %s %s\n", line.stage.c_str(), value, goal.c_str(),
                    line.unit.c_str(), met ? "" : "NOT MET");
    }
    return 0;
}

}  // namespace dunvey::bench
