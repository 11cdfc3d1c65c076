// From the start of the program as users get it to its chooser on the screen, beside a bare program
// that shows a dialog with a list; and what both take of memory.
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <map>

#include "chooser_home.h"
#include "measure.h"
#include "program.h"
#include "report.h"
#include "road/display.h"

namespace dunvey {
namespace {

using namespace bench;

constexpr int kRows[] = {5, 50, 300};

const ChooserHome& HomeWith(int versions) {
    static std::map<int, ChooserHome> homes;
    return homes.try_emplace(versions, versions).first->second;
}

/// The screen a program is shown on.
struct Screen {
    std::string platform;
    std::string display;
};

/// Runs the words until the first window is painted, and returns the peak memory in KiB.
double RunToFirstPaint(const Screen& screen, const std::string& home,
                       const std::vector<std::string>& words) {
    std::vector<std::string> variables = {
        "HOME=" + home, "XDG_CONFIG_HOME=" + home + "/config", "XDG_CACHE_HOME=" + home + "/cache",
        "XDG_RUNTIME_DIR=" + home, "PATH=/usr/bin:/bin", "QT_QPA_PLATFORM=" + screen.platform,
        // Without a running assistive technology; looking for one would only be noise.
        "NO_AT_BRIDGE=1", "QT_LOGGING_RULES=*.warning=false",
        std::string("LD_PRELOAD=") + DUNVEY_FIRST_PAINT};
    if (!screen.display.empty()) variables.push_back("DISPLAY=" + screen.display);
    const Outcome outcome = RunProgram(words, variables);
    if (outcome.status != 0) {
        std::fprintf(stderr, "%s painted no window.\n", words[0].c_str());
        std::exit(1);
    }
    rusage own{};
    getrusage(RUSAGE_SELF, &own);
    if (outcome.peakKilobytes <= own.ru_maxrss) {
        // What is started counts the memory of the one that starts it.
        std::fprintf(stderr, "The peak memory of %s isn't known: this takes more.\n",
                     words[0].c_str());
        std::exit(1);
    }
    return static_cast<double>(outcome.peakKilobytes);
}

/// Medians of runs to the first paint: of the bare dialog, then of the chooser with 5, 50 and 300
/// rows.
struct Medians {
    std::vector<double> milliseconds;
    std::vector<double> mebibytes;
};

Medians Measure(const Screen& screen) {
    std::vector<std::vector<double>> peaks(1 + std::size(kRows));
    std::vector<Work> works = {[&] {
        peaks[0].push_back(RunToFirstPaint(screen, HomeWith(5).Path(), {DUNVEY_BARE_DIALOG}));
    }};
    for (const int rows : kRows) {
        works.push_back([&, rows, place = works.size()] {
            const ChooserHome& home = HomeWith(rows);
            peaks[place].push_back(
                RunToFirstPaint(screen, home.Path(), {DUNVEY_PROGRAM, home.Document()}));
        });
    }
    Medians medians;
    for (const double seconds : InTurns(works))
        medians.milliseconds.push_back(seconds * 1e3);
    for (const auto& each : peaks)
        medians.mebibytes.push_back(Median(each) / 1024);
    return medians;
}

void ReportScreen(const Screen& screen, const std::string& name) {
    const Medians all = Measure(screen);
    const auto& times = all.milliseconds;
    const auto& peaks = all.mebibytes;
    const std::string chooser = "chooser " + name;
    Report({chooser + ", start to first paint, 5 rows", "ms", times[1], times[0],
            "a bare dialog with 5 rows", RatioAtMost(1.3)});
    Report({chooser + ", 50 rows", "ms", times[2], times[1], "5 rows"});
    Report({chooser + ", 300 rows", "ms", times[3], times[1], "5 rows", RatioAtMost(2)});
    Report({chooser + ", peak memory, 5 rows", "MiB", peaks[1], peaks[0],
            "a bare dialog with 5 rows", RatioAtMost(1.2)});
    Report({chooser + ", peak memory, 300 rows", "MiB", peaks[3], peaks[0],
            "a bare dialog with 5 rows"});
    for (size_t i = 0; i < std::size(kRows); ++i) {
        ReportGrowth({"rows", chooser, static_cast<double>(kRows[i]), times[i + 1] / 1e3,
                      "a bare dialog with 5 rows, " + name, times[0] / 1e3});
    }
}

}  // namespace
}  // namespace dunvey

int main() {
    using namespace dunvey;
    ReportScreen({"offscreen", ""}, "without a screen");
    const test::Display display;
    if (display.Name().empty()) {
        std::fputs("Without Xvfb only the platform without a screen is measured.\n", stderr);
        return 0;
    }
    ReportScreen({"xcb", display.Name()}, "on an X server");
}
