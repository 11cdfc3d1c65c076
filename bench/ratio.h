#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

namespace dunvey::bench {

/// The median times of one run, by the benchmarks' names.
class Times {
 public:
    /// Seconds for each iteration; 0 for a benchmark that didn't run.
    double Seconds(const std::string& name) const;
    void Add(const std::string& name, double seconds) { times_.emplace_back(name, seconds); }

 private:
    std::vector<std::pair<std::string, double>> times_;
};

/// One line of the closing table: what is compared, and the greatest value that meets the goal (0
/// for a figure without a goal).
struct Line {
    std::string stage;
    std::function<double(const Times&)> value;
    double goal;
    /// What the value is: "times the floor", "as exponent".
    std::string unit;
};

/// Ours over its floor, both by name.
Line Ratio(std::string stage, std::string ours, std::string floor, double goal);
/// The exponent with which the time grows between two sizes: about 1 for a linear one.
Line Growth(std::string stage, std::string small, double smallSize, std::string large,
            double largeSize, double goal);

/// Runs all benchmarks of the program, repeated and interleaved so that a noisy moment hits all
/// alike, and prints the table. Returns the program's exit code.
int RunAndCompare(int argc, char** argv, const std::vector<Line>& lines);

}  // namespace dunvey::bench
