#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "support/headers.h"
#include "support/record_reader.h"
#include "support/temporary_folder.h"

namespace dunvey::test {

using Words = std::vector<std::string>;

/// A home with applications that are real programs: each writes down what it was started with and
/// stays until it is asked to end.
class RealWorld : public ::testing::Test {
 protected:
    void SetUp() override {
        ASSERT_NE(access("/Applications", F_OK), 0)
            << "These tests need a machine without a folder /Applications: it would be scanned.";
        folder_.MakeFolder("Applications");
    }
    void TearDown() override { EndAll(); }

    /// Waits up to five minutes for the condition; returns whether it holds.
    template <typename Condition>
    static bool Await(Condition condition) {
        for (int i = 0; i < 60'000 && !condition(); ++i)
            usleep(5'000);
        return condition();
    }

    /// Ends every program of this test and returns when none runs any more. They are found by their
    /// environment: an application that has just been started has no record yet.
    void EndAll() const {
        EXPECT_TRUE(Await([this] {
            const std::vector<pid_t> processes = Started();
            for (const pid_t process : processes)
                kill(process, SIGTERM);
            return processes.empty();
        })) << "a program of this test doesn't end";
    }
    /// Whether the process runs; a zombie doesn't.
    static bool IsAlive(pid_t process) {
        char target[1];
        return readlink(("/proc/" + std::to_string(process) + "/exe").c_str(), target, 1) > 0;
    }

    static std::string Bundle(const std::string& suffix) {
        return "Applications/Adobe InDesign " + suffix + "/Adobe InDesign " + suffix + ".app";
    }
    std::string ExecutablePath(const std::string& suffix) const {
        return folder_ / (Bundle(suffix) + "/Contents/MacOS/Adobe InDesign " + suffix);
    }

    /// An application without an executable.
    void InstallList(const std::string& suffix, const std::string& version) {
        folder_.MakeFolder(Bundle(suffix) + "/Contents/MacOS");
        folder_.Write(Bundle(suffix) + "/Contents/Info.plist",
                      "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key><string>" +
                          version + "</string></dict></plist>");
    }
    void Install(const std::string& suffix, const std::string& version) {
        InstallList(suffix, version);
        std::filesystem::copy_file(DUNVEY_RECORDER, ExecutablePath(suffix));
    }

    std::string Document(const std::string& name, int major, int minor = 0) {
        return folder_.Write(name, Header("DOCUMENT", major, minor));
    }

    /// Runs the program and returns its exit code, -1 if it ended otherwise.
    int Dunvey(const Words& words, const Words& extraVariables = {}) {
        return ExitCodeOf(Start(words, extraVariables));
    }
    /// Runs a shell script in the home folder, with the words as its arguments; returns its exit
    /// code.
    int Script(const std::string& script, const Words& words = {},
               const Words& extraVariables = {}) {
        const std::string program = std::exchange(program_, "/bin/sh");
        Words all = {"-c", "cd \"$HOME\"; " + script, "script"};
        all.insert(all.end(), words.begin(), words.end());
        const int code = Dunvey(all, extraVariables);
        program_ = program;
        return code;
    }

    /// Waits for a started program to end; -1 if it ended otherwise than by an exit code, or has to
    /// be killed.
    static int ExitCodeOf(pid_t process) {
        int status = SIGKILL;
        if (!Await([&] { return waitpid(process, &status, WNOHANG) != 0; })) kill(process, SIGKILL);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// Starts the program. Its standard error is the file "stderr".
    pid_t Start(Words words, const Words& extraVariables = {}) {
        words.insert(words.begin(), "Dunvey");
        Words variables = {
            "HOME=" + folder_.Path(), "XDG_CONFIG_HOME=" + folder_.Path() + "/config",
            "DUNVEY_RECORD=" + folder_.Path() + "/records", "PATH=/usr/local/bin:/usr/bin:/bin",
            "LSAN_OPTIONS=print_suppressions=0:suppressions=" DUNVEY_LEAKS};
        variables.insert(variables.end(), extraVariables.begin(), extraVariables.end());
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, (folder_ / "stderr").c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        pid_t process = 0;
        const int error = posix_spawn(&process, program_.c_str(), &actions, nullptr,
                                      Pointers(words).data(), Pointers(variables).data());
        posix_spawn_file_actions_destroy(&actions);
        if (error != 0) throw std::runtime_error(program_ + " can't be started");
        return process;
    }

    std::vector<Record> Records() const { return ReadRecords(folder_ / "records"); }

    /// The starts once there are so many. A program that was started needs a moment until it has
    /// written its record.
    std::vector<Record> AwaitRecords(size_t count) const {
        EXPECT_TRUE(Await([&] { return Records().size() >= count; }));
        return Records();
    }

    /// Each start as "suffix: document|document|", in order.
    Words Starts(size_t count) const {
        Words starts;
        for (const Record& record : AwaitRecords(count)) {
            const std::string name = record.executable.substr(record.executable.rfind('/') + 1);
            starts.push_back(name.substr(name.starts_with("Adobe ") ? 15 : 0) + ": ");
            for (const std::string& argument : record.arguments)
                starts.back() += argument.substr(argument.rfind('/') + 1) + "|";
        }
        return starts;
    }

    TemporaryFolder folder_;
    std::string program_ = DUNVEY_PROGRAM;

 private:
    /// Ends with a null pointer, as posix_spawn needs it.
    static std::vector<char*> Pointers(Words& texts) {
        std::vector<char*> pointers;
        for (std::string& text : texts)
            pointers.push_back(text.data());
        pointers.push_back(nullptr);
        return pointers;
    }

    /// The processes that have this test's environment. A zombie has none.
    std::vector<pid_t> Started() const {
        const std::string own = "DUNVEY_RECORD=" + folder_.Path() + "/records";
        std::vector<pid_t> processes;
        for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
            std::ifstream file(entry.path() / "environ");
            for (std::string variable; std::getline(file, variable, '\0');) {
                if (variable == own) processes.push_back(std::stoi(entry.path().filename()));
            }
        }
        return processes;
    }
};

}  // namespace dunvey::test
