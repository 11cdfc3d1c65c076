#include "report.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace dunvey::bench {
namespace {

std::string Number(const char* format, double value) {
    char text[40];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

/// Tab-separated fields, as tools/bench reads them.
void AppendToResults(const std::string& line) {
    const char* path = std::getenv("DUNVEY_BENCH_RESULTS");
    if (path == nullptr) return;
    std::FILE* file = std::fopen(path, "a");
    if (file == nullptr) {
        std::perror(path);
        std::exit(1);
    }
    std::fputs((line + "\n").c_str(), file);
    std::fclose(file);
}

std::string GoalText(const Goal& goal) {
    if (goal.of == Goal::Of::kNothing) return "-";
    return (goal.of == Goal::Of::kRatio ? "ratio <= " : "ours <= ") + Number("%.4g", goal.atMost);
}

}  // namespace

void Report(const Figure& figure) {
    const bool hasFloor = figure.floor != 0;
    const std::string goal = GoalText(figure.goal);
    std::printf("%-64s %9.4g %9s %-5s %8s  %-14s %s\n", figure.stage.c_str(), figure.ours,
                hasFloor ? Number("%.4g", figure.floor).c_str() : "-", figure.unit.c_str(),
                hasFloor ? Number("%.3f", figure.ours / figure.floor).c_str() : "-", goal.c_str(),
                figure.floorName.c_str());
    std::fflush(stdout);
    AppendToResults(figure.stage + "\t" + figure.unit + "\t" + Number("%.9g", figure.ours) + "\t" +
                    (hasFloor ? Number("%.9g", figure.floor) : "-") + "\t" + figure.floorName +
                    "\t" + goal);
}

void ReportExponent(const std::string& stage, double smallSize, double small, double largeSize,
                    double large) {
    Report({stage + ", exponent of growth", "",
            std::log(large / small) / std::log(largeSize / smallSize), 0, "", OursAtMost(1.2)});
}

}  // namespace dunvey::bench
