#pragma once

#include <string>

namespace dunvey::bench {

/// What must hold of a figure.
struct Goal {
    enum class Of { kNothing, kRatio, kOurs };
    Of of = Of::kNothing;
    double atMost = 0;
};

inline Goal RatioAtMost(double limit) {
    return {Goal::Of::kRatio, limit};
}
inline Goal OursAtMost(double limit) {
    return {Goal::Of::kOurs, limit};
}

/// One row of the table.
struct Figure {
    std::string stage;
    /// Of both values: "µs", "ms", "MiB"; empty for a number without a unit.
    std::string unit;
    double ours = 0;
    /// The value of the floor or of the peer; 0 if there is none.
    double floor = 0;
    /// What the floor is: "open, read, close".
    std::string floorName = {};
    /// Without a goal the figure is for information only.
    Goal goal = {};
};

/// Prints the figure and appends it to the file that DUNVEY_BENCH_RESULTS names, if it is set.
void Report(const Figure& figure);

/// Reports the exponent with which `stage` grows between two sizes (1 is linear); the goal is 1.2.
void ReportExponent(const std::string& stage, double smallSize, double small, double largeSize,
                    double large);

}  // namespace dunvey::bench
