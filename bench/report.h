#pragma once

#include <string>

namespace dunvey::bench {

/// What must hold of a figure.
struct Goal {
    enum class Of { kNothing, kRatio, kOurs };
    Of of = Of::kNothing;
    bool atLeast = false;
    double limit = 0;
};

inline Goal RatioAtMost(double limit) {
    return {Goal::Of::kRatio, false, limit};
}
inline Goal RatioAtLeast(double limit) {
    return {Goal::Of::kRatio, true, limit};
}
inline Goal OursAtMost(double limit) {
    return {Goal::Of::kOurs, false, limit};
}

/// One line of the table.
struct Figure {
    std::string stage;
    /// Of both values: "µs", "ms", "MiB", "MB/s".
    std::string unit;
    double ours = 0;
    /// The floor's or the peer's value; 0 if there is none.
    double floor = 0;
    /// What it is: "open, read, close".
    std::string floorName = {};
    /// None: the figure is only told.
    Goal goal = {};
};

/// Prints the figure, and adds it to the file that DUNVEY_BENCH_RESULTS names, if it does.
void Report(const Figure& figure);

/// One size in a plot of growth: what it takes, and what its floor takes.
struct GrowthPoint {
    std::string plot;
    std::string series;
    double size = 0;
    double seconds = 0;
    std::string floorName;
    double floorSeconds = 0;
};

/// Adds the point to that file.
void ReportGrowth(const GrowthPoint& point);

/// The exponent with which the time grows between two sizes: about 1 for a linear one.
double Exponent(double smallSize, double small, double largeSize, double large);

}  // namespace dunvey::bench
