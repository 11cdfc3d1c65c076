// From the start of the program as users get it to its chooser on the screen, beside a bare program
// that shows a dialog with a list; and what both take of memory.
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>

#include "chooser_home.h"
#include "ratio.h"
#include "road/display.h"

namespace dunvey {
namespace {

constexpr int kRows[] = {5, 50, 300};
constexpr int kRuns = 31;

const bench::ChooserHome& HomeWith(int versions) {
    static std::map<int, bench::ChooserHome> homes;
    return homes.try_emplace(versions, versions).first->second;
}

const test::Display& TheDisplay() {
    static const test::Display display;
    return display;
}

/// Peak memory of each run in kilobytes, by what was run.
std::map<std::string, std::vector<long>> peaks;

bool someFailed = false;

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

/// Runs the words until the first window is painted; false if there was none.
bool RunToFirstPaint(const std::string& name, const std::string& platform, const std::string& home,
                     std::vector<std::string> words) {
    std::vector<std::string> variables = {
        "HOME=" + home, "XDG_CONFIG_HOME=" + home + "/config", "XDG_CACHE_HOME=" + home + "/cache",
        "XDG_RUNTIME_DIR=" + home, "PATH=/usr/bin:/bin", "QT_QPA_PLATFORM=" + platform,
        // Without a running assistive technology; looking for one would only be noise.
        "NO_AT_BRIDGE=1", std::string("LD_PRELOAD=") + DUNVEY_FIRST_PAINT};
    if (platform == "xcb") variables.push_back("DISPLAY=" + TheDisplay().Name());
    pid_t process = 0;
    const auto arguments = Pointers(words);
    if (posix_spawn(&process, arguments[0], nullptr, nullptr, arguments.data(),
                    Pointers(variables).data()) != 0) {
        return false;
    }
    int status = 0;
    rusage usage{};
    wait4(process, &status, 0, &usage);
    if (status != 0) return false;
    peaks[name].push_back(usage.ru_maxrss);
    return true;
}

/// One whole run, noted under the name.
void Register(const std::string& name, const std::string& platform, int rows,
              const std::vector<std::string>& words) {
    const auto run = [=](benchmark::State& state) {
        for (auto _ : state) {
            if (RunToFirstPaint(name, platform, HomeWith(rows).Path(), words)) continue;
            someFailed = true;
            state.SkipWithError("no window was painted");
        }
    };
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->Iterations(1)
        ->Repetitions(kRuns)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

double PeakOf(const std::string& name) {
    std::vector<long>& all = peaks[name];
    if (all.empty()) return 0;
    const auto middle = all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2);
    std::nth_element(all.begin(), middle, all.end());
    return static_cast<double>(*middle);
}

bench::Line PeakRatio(const std::string& platform, const std::string& rows, double goal) {
    const std::string bare = "Bare/" + platform;
    return {platform + ": peak memory, " + rows + " rows",
            [platform, rows, bare](const bench::Times&) {
                return PeakOf("Chooser/" + platform + "/" + rows) / PeakOf(bare);
            },
            goal, "times " + bare};
}

/// All runs on one platform, and the lines that sum them up.
void AddPlatform(const std::string& platform, std::vector<bench::Line>& lines) {
    const std::string chooser = "Chooser/" + platform;
    const std::string bare = "Bare/" + platform;
    Register(bare, platform, kRows[0], {DUNVEY_BARE_DIALOG});
    for (const int rows : kRows) {
        Register(chooser + "/" + std::to_string(rows), platform, rows,
                 {DUNVEY_PROGRAM, HomeWith(rows).Document()});
    }
    lines.push_back(
        bench::Ratio(platform + ": chooser of 5 rows painted", chooser + "/5", bare, 1.5));
    lines.push_back(bench::Ratio(platform + ": 50 rows", chooser + "/50", chooser + "/5", 1.5));
    lines.push_back(bench::Ratio(platform + ": 300 rows", chooser + "/300", chooser + "/5", 2));
    lines.push_back(PeakRatio(platform, "5", 1.3));
    lines.push_back(PeakRatio(platform, "300", 0));
}

}  // namespace
}  // namespace dunvey

int main(int argc, char** argv) {
    using namespace dunvey;
    std::vector<bench::Line> lines;
    AddPlatform("offscreen", lines);
    if (TheDisplay().Name().empty()) {
        std::fputs("Without Xvfb only the platform without a screen is measured.\n", stderr);
    } else {
        AddPlatform("xcb", lines);
    }
    const int result = bench::RunAndCompare(argc, argv, lines);
    rusage own{};
    getrusage(RUSAGE_SELF, &own);
    for (const auto& [name, all] : peaks) {
        // What is started counts the memory of the one that starts it.
        if (PeakOf(name) <= static_cast<double>(own.ru_maxrss)) {
            std::fprintf(stderr, "The peak memory of %s isn't known: this takes more.\n",
                         name.c_str());
        }
    }
    if (someFailed) std::fputs("Some runs painted no window; the table isn't valid.\n", stderr);
    return someFailed ? 1 : result;
}
