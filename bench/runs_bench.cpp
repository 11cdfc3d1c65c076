#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <map>

#include "ratio.h"
#include "support/headers.h"
#include "support/temporary_folder.h"

namespace dunvey {
namespace {

constexpr const char* kVersions[][2] = {{"CS5.5", "7.5.3"},
                                        {"CS6", "8.0.1"},
                                        {"CC", "9.2.0"},
                                        {"CC 2019", "14.0.1"},
                                        {"2021", "16.4.0"}};

/// A home with five versions and a thousand documents of one of them.
class Home {
 public:
    static constexpr int kDocuments = 1000;

    Home() {
        for (const auto& [suffix, version] : kVersions)
            Install(suffix, version);
        folder_.MakeFolder("documents");
        for (int i = 0; i < kDocuments; ++i) {
            documents_.push_back(folder_.Write("documents/document " + std::to_string(i) + ".indd",
                                               test::Header("DOCUMENT", 8, 0)));
        }
    }

    std::string Application() const {
        return folder_ / "Applications/Adobe InDesign CS6/Adobe InDesign CS6.app";
    }
    const std::string& Path() const { return folder_.Path(); }
    std::vector<std::string> Documents(int64_t count) const {
        return {documents_.begin(), documents_.begin() + count};
    }

 private:
    void Install(const std::string& suffix, const std::string& version) {
        const std::string name = "Adobe InDesign " + suffix;
        const std::string contents = "Applications/" + name + "/" + name + ".app/Contents";
        const std::string program = folder_.MakeFolder(contents + "/MacOS") + "/" + name;
        folder_.Write(contents + "/Info.plist",
                      "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key><string>" +
                          version + "</string></dict></plist>");
        if (link(DUNVEY_ENDED_AT_ONCE, program.c_str()) != 0 &&
            symlink(DUNVEY_ENDED_AT_ONCE, program.c_str()) != 0) {
            std::perror(program.c_str());
        }
    }

    test::TemporaryFolder folder_;
    std::vector<std::string> documents_;
};

const Home& TheHome() {
    static const Home home;
    return home;
}

/// Peak memory in kilobytes, by what was run.
std::map<std::string, long> peaks;

/// Runs the words to their end; notes the peak memory under the name.
void Run(const std::string& name, std::vector<std::string> words) {
    std::vector<std::string> variables = {
        "HOME=" + TheHome().Path(), "XDG_CONFIG_HOME=" + TheHome().Path() + "/config",
        "PATH=" + (name == "helper" ? std::string(DUNVEY_HELPERS) + ":" : "") + "/usr/bin:/bin"};
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    std::vector<char*> environment;
    for (std::string& variable : variables)
        environment.push_back(variable.data());
    environment.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environment.data());
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    rusage usage{};
    wait4(process, &status, 0, &usage);
    if (status != 0) std::fprintf(stderr, "%s ended with status %d\n", arguments[0], status);
    peaks[name] = usage.ru_maxrss;
}

std::vector<std::string> Words(std::vector<std::string> first, int64_t documents) {
    for (std::string& document : TheHome().Documents(documents)) {
        first.push_back(std::move(document));
    }
    return first;
}

void Dunvey(benchmark::State& state) {
    const auto words = Words({DUNVEY_PROGRAM}, state.range(0));
    for (auto _ : state)
        Run("Dunvey/" + std::to_string(state.range(0)), words);
}
BENCHMARK(Dunvey)
    ->RangeMultiplier(10)
    ->Range(1, 1000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void Bare(benchmark::State& state) {
    const auto words =
        Words({DUNVEY_BARE_RUN, DUNVEY_HELPERS, TheHome().Application()}, state.range(0));
    for (auto _ : state)
        Run("Bare/" + std::to_string(state.range(0)), words);
}
BENCHMARK(Bare)->RangeMultiplier(10)->Range(1, 1000)->Unit(benchmark::kMillisecond)->UseRealTime();

/// Processes that only stand there, so that there are so many in all.
class Crowd {
 public:
    explicit Crowd(int count) {
        for (int i = 0; i < count; ++i) {
            const pid_t process = fork();
            if (process == 0) {
                for (;;)
                    pause();
            }
            processes_.push_back(process);
        }
    }
    ~Crowd() {
        for (const pid_t process : processes_) {
            kill(process, SIGKILL);
            waitpid(process, nullptr, 0);
        }
    }
    Crowd(const Crowd&) = delete;
    Crowd& operator=(const Crowd&) = delete;

 private:
    std::vector<pid_t> processes_;
};

void HelperPs(benchmark::State& state) {
    const Crowd crowd(300);
    for (auto _ : state)
        Run("helper", {"/bin/sh", "-c", "ps -ax -o comm"});
}
BENCHMARK(HelperPs)->Unit(benchmark::kMillisecond)->UseRealTime();

void SystemPs(benchmark::State& state) {
    const Crowd crowd(300);
    for (auto _ : state)
        Run("system", {"/bin/sh", "-c", "ps -ax -o comm"});
}
BENCHMARK(SystemPs)->Unit(benchmark::kMillisecond)->UseRealTime();

void OnePsCommand(benchmark::State& state) {
    for (auto _ : state)
        Run("helper", {"/bin/sh", "-c", "ps -ax -o comm"});
}
BENCHMARK(OnePsCommand)->Unit(benchmark::kMillisecond)->UseRealTime();

double OneMoreDocument(const bench::Times& times) {
    const double each =
        (times.Seconds("Dunvey/1000") - times.Seconds("Dunvey/100")) / (1000.0 - 100.0);
    return each / times.Seconds("OnePsCommand");
}

bench::Line Peak(const std::string& count) {
    return {"peak memory, " + count + " documents",
            [count](const bench::Times&) {
                return static_cast<double>(peaks["Dunvey/" + count]) / 1024.0;
            },
            0, "MiB"};
}

}  // namespace
}  // namespace dunvey

int main(int argc, char** argv) {
    using namespace dunvey;
    using bench::Ratio;
    return bench::RunAndCompare(
        argc, argv,
        {Ratio("run of 1 document, beside the bare shell commands", "Dunvey/1", "Bare/1", 0),
         Ratio("run of 10 documents", "Dunvey/10", "Bare/10", 0),
         Ratio("run of 100 documents", "Dunvey/100", "Bare/100", 0),
         Ratio("run of 1,000 documents", "Dunvey/1000", "Bare/1000", 0),
         {"one more document in a run, over its own ps command", &OneMoreDocument, 1.3, "times"},
         Ratio("Helpers/ps through sh, 300 processes (goal: a fifth)", "HelperPs", "SystemPs", 0.2),
         Peak("1"),
         Peak("1000")});
}
