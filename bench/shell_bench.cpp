// Shell commands, the list of running programs and the start of one.
#include <dirent.h>
#include <sys/mman.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <memory>

#include "crowd.h"
#include "measure.h"
#include "platform/processes/shell.h"
#include "program.h"
#include "report.h"
#include "version/booting_apps.h"
#include "versions_home.h"

namespace dunvey {
namespace {

using namespace bench;

constexpr double kMilliseconds = 1e3;
const std::string kHelpers = DUNVEY_HELPERS;

std::vector<double> ShellAndBare() {
    return InTurns({[] { Shell().Execute("true"); }, [] { Keep(BareShell("true")); }}, 101);
}

void ReportShell(const std::string& stage) {
    const auto times = ShellAndBare();
    Report({stage, "ms", times[0] * kMilliseconds, times[1] * kMilliseconds,
            "posix_spawn of the same command", RatioAtMost(1.1)});
}

void MeasureShell() {
    ReportShell("one shell command");
    constexpr size_t kSize = 500 << 20;
    void* resident =
        mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    std::memset(resident, 1, kSize);
    ReportShell("one shell command, by a caller with 500 MB in memory");
    munmap(resident, kSize);
}

/// The floor of a list: the link to the program of each process, read in this process.
std::string BareList() {
    std::string list;
    DIR* folder = opendir("/proc");
    while (const dirent* entry = readdir(folder)) {
        if (entry->d_name[0] < '1' || entry->d_name[0] > '9') continue;
        char target[4096];
        const std::string link = std::string(entry->d_name) + "/exe";
        const ssize_t size = readlinkat(dirfd(folder), link.c_str(), target, sizeof target);
        if (size > 0) list.append(target, static_cast<size_t>(size)) += '\n';
    }
    closedir(folder);
    return list;
}

std::vector<std::string> Variables(const std::string& path) {
    return {"PATH=" + path, "HOME=/nonexistent"};
}

void MeasureList() {
    const Crowd crowd(300);
    const auto run = [](const std::vector<std::string>& words, const std::string& path) {
        const Outcome outcome = RunProgram(words, Variables(path));
        if (outcome.status != 0 || outcome.output.size() < 300) std::abort();
    };
    const std::vector<std::string> throughShell = {"/bin/sh", "-c", "ps -ax -o comm"};
    const auto times = InTurns({[&] {
                                    run({kHelpers + "/ps", "-ax", "-o", "comm"}, "/");
                                },
                                [] { Keep(BareList()); }, [&] { run(throughShell, kHelpers); },
                                [&] { run(throughShell, "/usr/bin:/bin"); }},
                               31);
    Report({"Helpers/ps among 300 more processes, its start included", "ms",
            times[0] * kMilliseconds, times[1] * kMilliseconds, "/proc/*/exe, read in the process",
            RatioAtMost(3)});
    Report({"ps -ax -o comm through sh among 300 more processes", "ms", times[2] * kMilliseconds,
            times[3] * kMilliseconds, "the system's ps through sh", RatioAtMost(0.2)});
}

double Now() {
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

/// When the application was started, by what it wrote into its document; 0 if it didn't in a
/// second.
double StartTime(const VersionsHome& home, const std::string& name) {
    for (int i = 0; i < 1000; ++i) {
        const std::string told = home.Folder().Read(name);
        if (told.size() == sizeof(timespec)) {
            timespec time;
            std::memcpy(&time, told.data(), sizeof time);
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
        }
        usleep(1000);
    }
    return 0;
}

void MeasureOpen() {
    const VersionsHome home(1);
    home.AddPrograms(DUNVEY_TELL_START);
    std::vector<double> delays;
    for (int i = 0; i < 101; ++i) {
        const std::string document = home.Folder().Write("document", "");
        const Outcome outcome =
            RunProgram({kHelpers + "/open", "-a", home.Application(0), document},
                       {"PATH=/usr/bin:/bin", "HOME=" + home.Path()});
        const double returned = Now();
        const double started = StartTime(home, "document");
        if (outcome.status != 0 || started == 0) std::abort();
        delays.push_back(returned - started);
    }
    Report({"Helpers/open, from the first line of the program started to its own return", "ms",
            Median(delays) * kMilliseconds, 0, "", OursAtMost(2)});
}

/// The list of running versions, beside the floor, among more and more processes.
void MeasureGrowth() {
    for (const int count : {10, 1'000, 5'000}) {
        const Crowd crowd(count);
        const auto times =
            InTurns({[] { InDesign::GetBootingAppNames(); }, [] { Keep(BareList()); }}, 15);
        ReportGrowth({"processes", "list of running versions", static_cast<double>(count), times[0],
                      "/proc/*/exe, read in the process", times[1]});
    }
}

}  // namespace
}  // namespace dunvey

int main() {
    dunvey::MeasureShell();
    dunvey::MeasureList();
    dunvey::MeasureOpen();
    dunvey::MeasureGrowth();
}
