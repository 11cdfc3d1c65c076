// Whole runs of the program as users get it, and the process list that each of them reads.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "measure.h"
#include "program.h"
#include "report.h"
#include "versions_home.h"

namespace dunvey {
namespace {

using namespace bench;

constexpr double kMilliseconds = 1e3;
constexpr int kVersions = 5;

void MustRun(const std::vector<std::string>& arguments, const std::vector<std::string>& variables) {
    const Outcome outcome = RunProgram(arguments, variables);
    if (outcome.status == 0) return;
    std::fprintf(stderr, "%s ended with status %d\n", arguments[0].c_str(), outcome.status);
    std::exit(1);
}

std::vector<std::string> Joined(std::vector<std::string> first,
                                const std::vector<std::string>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

void MeasureRun(int count, double goal) {
    const VersionsHome home(kVersions);
    const std::vector<std::string> documents = home.AddDocuments(count);
    const auto variables = home.Variables();
    const auto ours = Joined({DUNVEY_PROGRAM}, documents);
    // The documents belong to the third version.
    const auto bare = Joined({DUNVEY_BARE_RUN, DUNVEY_HELPERS, home.Application(2)}, documents);
    const auto times =
        InTurns({[&] { MustRun(ours, variables); }, [&] { MustRun(bare, variables); }},
                count == 1 ? 51 : 15);
    Report({"run with " + std::to_string(count) + " documents, start to hand-over", "ms",
            times[0] * kMilliseconds, times[1] * kMilliseconds, "the bare shell commands",
            RatioAtMost(goal)});
}

/// The command that the desktop environment would use, with a handler for the type that ends at
/// once.
void MeasureBesideDesktopOpeners() {
    const VersionsHome home(kVersions);
    const test::TemporaryFolder data;
    data.MakeFolder("applications");
    data.Write("applications/handler.desktop",
               "[Desktop Entry]\nType=Application\nName=Handler\nExec=/bin/true "
               "%f\nMimeType=text/plain;\n");
    data.Write("applications/mimeapps.list",
               "[Default Applications]\ntext/plain=handler.desktop\n");
    const std::string text = data.Write("text.txt", "text\n");
    const std::vector<std::string> document = home.AddDocuments(1);
    const std::vector<std::string> variables =
        Joined(home.Variables(), {"XDG_DATA_HOME=" + data.Path(), "XDG_CURRENT_DESKTOP=GNOME"});
    for (const std::vector<std::string>& opener :
         {std::vector<std::string>{"/usr/bin/gio", "open"}, {"/usr/bin/xdg-open"}}) {
        const std::string name = opener[0].substr(opener[0].rfind('/') + 1);
        if (access(opener[0].c_str(), X_OK) != 0) {
            std::printf("%s isn't installed.\n", name.c_str());
            continue;
        }
        const auto times = InTurns({[&] { MustRun(Joined({DUNVEY_PROGRAM}, document), variables); },
                                    [&] { MustRun(Joined(opener, {text}), variables); }});
        Report({"one document opened", "ms", times[0] * kMilliseconds, times[1] * kMilliseconds,
                name, RatioAtMost(1)});
    }
}

void MeasureProcessList() {
    const Crowd crowd(300);
    const auto list = [](const std::string& path) {
        const Outcome outcome =
            RunProgram({"/bin/sh", "-c", "ps -ax -o comm"}, {"PATH=" + path, "HOME=/nonexistent"});
        if (outcome.status != 0 || outcome.output.size() < 300) std::abort();
    };
    const auto times = InTurns({[&] { list(DUNVEY_HELPERS); }, [&] { list("/usr/bin:/bin"); }});
    Report({"ps -ax -o comm through sh, 300 more processes", "ms", times[0] * kMilliseconds,
            times[1] * kMilliseconds, "the system's ps through sh", RatioAtMost(0.25)});
}

}  // namespace
}  // namespace dunvey

int main() {
    dunvey::MeasureRun(1, 1.5);
    dunvey::MeasureRun(100, 1.2);
    dunvey::MeasureBesideDesktopOpeners();
    dunvey::MeasureProcessList();
}
