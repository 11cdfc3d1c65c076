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

/// Fields separated by tabs, as tools/bench reads them.
void AddToResults(const std::string& line) {
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
    return std::string(goal.of == Goal::Of::kRatio ? "ratio" : "ours") +
           (goal.atLeast ? " >= " : " <= ") + Number("%.4g", goal.limit);
}

}  // namespace

void Report(const Figure& figure) {
    const std::string ours = Number("%.4g", figure.ours);
    const std::string floor = figure.floor == 0 ? "-" : Number("%.4g", figure.floor);
    const std::string ratio = figure.floor == 0 ? "-" : Number("%.3f", figure.ours / figure.floor);
    const std::string goal = GoalText(figure.goal);
    std::printf("%-64s %9s %9s %-5s %8s  %-14s %s\n", figure.stage.c_str(), ours.c_str(),
                floor.c_str(), figure.unit.c_str(), ratio.c_str(), goal.c_str(),
                figure.floorName.c_str());
    std::fflush(stdout);
    AddToResults("figure\t" + figure.stage + "\t" + figure.unit + "\t" +
                 Number("%.9g", figure.ours) + "\t" +
                 (figure.floor == 0 ? "-" : Number("%.9g", figure.floor)) + "\t" +
                 figure.floorName + "\t" + goal);
}

void ReportGrowth(const GrowthPoint& point) {
    AddToResults("growth\t" + point.plot + "\t" + point.series + "\t" + Number("%.9g", point.size) +
                 "\t" + Number("%.9g", point.seconds) + "\t" + point.floorName + "\t" +
                 Number("%.9g", point.floorSeconds));
}

double Exponent(double smallSize, double small, double largeSize, double large) {
    return std::log(large / small) / std::log(largeSize / smallSize);
}

}  // namespace dunvey::bench
