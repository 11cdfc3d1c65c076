// From the start of the program to the first paint of its chooser on an X server, and its peak
// memory, beside a bare Qt dialog.
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>

#include "measure.h"
#include "program.h"
#include "report.h"
#include "road/display.h"
#include "versions_home.h"

namespace dunvey {
namespace {

using namespace bench;

/// Runs a program until its first window is painted and returns its peak memory in KiB.
double RunToFirstPaint(const test::Display& display, const VersionsHome& home,
                       const std::vector<std::string>& arguments) {
    std::vector<std::string> variables = home.Variables();
    variables.insert(variables.end(),
                     {"DISPLAY=" + display.Name(), "QT_QPA_PLATFORM=xcb", "NO_AT_BRIDGE=1",
                      "QT_LOGGING_RULES=*.warning=false", "LD_PRELOAD=" DUNVEY_FIRST_PAINT});
    const Outcome outcome = RunProgram(arguments, variables);
    if (outcome.status != 0) {
        std::fprintf(stderr, "%s painted no window.\n", arguments[0].c_str());
        std::exit(1);
    }
    rusage own{};
    getrusage(RUSAGE_SELF, &own);
    if (outcome.peakKilobytes <= own.ru_maxrss) {
        // A child's peak includes that of its parent at the fork.
        std::fprintf(stderr, "The benchmark takes more memory than %s.\n", arguments[0].c_str());
        std::exit(1);
    }
    return static_cast<double>(outcome.peakKilobytes);
}

void Measure(const test::Display& display) {
    const VersionsHome five(5);
    const VersionsHome fifty(50);
    // No version fits, so the program must ask.
    const std::string document = five.AddDocuments(1, VersionsHome::kOldest - 1)[0];
    std::vector<double> peaks[2];
    const auto times =
        InTurns({[&] { peaks[0].push_back(RunToFirstPaint(display, five, {DUNVEY_BARE_DIALOG})); },
                 [&] {
                     peaks[1].push_back(RunToFirstPaint(display, five, {DUNVEY_PROGRAM, document}));
                 },
                 [&] {
                     RunToFirstPaint(display, fifty, {DUNVEY_PROGRAM, document});
                 }});
    const std::string floor = "a bare Qt dialog with 5 rows";
    Report({"chooser with 5 rows, start to first paint", "ms", times[1] * 1e3, times[0] * 1e3,
            floor, RatioAtMost(1.4)});
    Report({"chooser with 50 rows, start to first paint", "ms", times[2] * 1e3, times[0] * 1e3,
            floor, RatioAtMost(1.8)});
    Report({"chooser with 5 rows, peak memory", "MiB", Median(peaks[1]) / 1024,
            Median(peaks[0]) / 1024, floor, RatioAtMost(1.25)});
}

}  // namespace
}  // namespace dunvey

int main() {
    const dunvey::test::Display display;
    if (display.Name().empty()) {
        std::fputs("The chooser is measured on Xvfb, which isn't installed.\n", stderr);
        return 1;
    }
    dunvey::Measure(display);
}
