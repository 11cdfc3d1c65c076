#pragma once

#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/headers.h"
#include "support/record_reader.h"
#include "support/temporary_folder.h"

namespace dunvey::test {

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

    /// Ends every program of this test and returns when none runs any more. They are found by their
    /// environment: an application that has just been started has no record yet.
    void EndAll() const {
        for (int i = 0; i < 6000; ++i) {
            const std::vector<pid_t> processes = Started();
            if (processes.empty()) return;
            for (const pid_t process : processes)
                kill(process, SIGTERM);
            usleep(10'000);
        }
        ADD_FAILURE() << "a program of this test doesn't end";
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

    void InstallList(const std::string& suffix, const std::string& version) {
        folder_.MakeFolder(Bundle(suffix) + "/Contents/MacOS");
        folder_.Write(Bundle(suffix) + "/Contents/Info.plist",
                      "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key><string>" +
                          version + "</string></dict></plist>");
    }
    void Install(const std::string& suffix, const std::string& version) {
        InstallList(suffix, version);
        const int linked = link(DUNVEY_RECORDER, ExecutablePath(suffix).c_str());
        if (linked != 0) CopyRecorder(ExecutablePath(suffix));
    }
    /// An application that is a script around the program, as a user may write one.
    void InstallScript(const std::string& suffix, const std::string& version) {
        InstallList(suffix, version);
        folder_.Write(Bundle(suffix) + "/Contents/MacOS/Adobe InDesign " + suffix,
                      std::string("#!/bin/sh\n'") + DUNVEY_RECORDER + "' \"$@\"\n:\n");
        chmod(ExecutablePath(suffix).c_str(), 0755);
    }

    std::string Document(const std::string& name, int major, int minor = 0) {
        return folder_.Write(name, Header("DOCUMENT", major, minor));
    }

    /// Runs the program on the words and returns its exit code, -1 if it ended otherwise.
    int Dunvey(const std::vector<std::string>& words,
               const std::vector<std::string>& extraVariables = {}) {
        return ExitCodeOf(Start(words, extraVariables));
    }

    /// Waits for a started program to end; -1 if it ended otherwise than by an exit code, or has to
    /// be killed after five minutes.
    static int ExitCodeOf(pid_t process) {
        int status = 0;
        pid_t ended = 0;
        for (int i = 0; process > 0 && i < 150'000 && ended == 0; ++i) {
            ended = waitpid(process, &status, WNOHANG);
            if (ended == 0) usleep(2'000);
        }
        if (process > 0 && ended == 0) {
            kill(process, SIGKILL);
            waitpid(process, &status, 0);
        }
        if (ended != process) return -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// Starts the program on the words; 0 if that doesn't work.
    pid_t Start(const std::vector<std::string>& words,
                const std::vector<std::string>& extraVariables = {}) {
        std::vector<std::string> variables = Variables(extraVariables);
        std::vector<std::string> arguments = Arguments(words);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, (folder_ / "stderr").c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
        pid_t process = 0;
        const int error = posix_spawn(&process, program_.c_str(), &actions, nullptr,
                                      Pointers(arguments).data(), Pointers(variables).data());
        posix_spawn_file_actions_destroy(&actions);
        return error == 0 ? process : 0;
    }

    /// The environment of a start.
    std::vector<std::string> Variables(const std::vector<std::string>& extra) const {
        std::vector<std::string> variables = {
            "HOME=" + folder_.Path(), "XDG_CONFIG_HOME=" + folder_.Path() + "/config",
            "DUNVEY_RECORD=" + folder_.Path() + "/records", "PATH=/usr/local/bin:/usr/bin:/bin",
            std::string("LSAN_OPTIONS=print_suppressions=0:suppressions=") + DUNVEY_LEAKS};
        variables.insert(variables.end(), extra.begin(), extra.end());
        return variables;
    }
    static std::vector<std::string> Arguments(const std::vector<std::string>& words) {
        std::vector<std::string> arguments = {"Dunvey"};
        arguments.insert(arguments.end(), words.begin(), words.end());
        return arguments;
    }
    /// What a start takes: a nil behind the last.
    static std::vector<char*> Pointers(std::vector<std::string>& texts) {
        std::vector<char*> pointers;
        for (std::string& text : texts)
            pointers.push_back(text.data());
        pointers.push_back(nullptr);
        return pointers;
    }

    std::vector<Record> Records() const { return ReadRecords(folder_ / "records"); }

    /// The starts once there are so many; fewer if they don't come in a minute. A program that was
    /// started needs a moment until it has written its record.
    std::vector<Record> AwaitRecords(size_t count) const {
        for (int i = 0; i < 6000 && Records().size() < count; ++i)
            usleep(10'000);
        return Records();
    }

    /// Each start as "suffix: document|document|", in order.
    std::vector<std::string> Starts(size_t count) const {
        std::vector<std::string> starts;
        for (const Record& record : AwaitRecords(count)) {
            const std::string name = record.executable.substr(record.executable.rfind('/') + 1);
            std::string start =
                name.substr(name.starts_with(kProduct) ? kProduct.size() : 0) + ": ";
            for (const std::string& argument : record.arguments) {
                start += argument.substr(argument.rfind('/') + 1) + "|";
            }
            starts.push_back(start);
        }
        return starts;
    }

    TemporaryFolder folder_;
    std::string program_ = DUNVEY_PROGRAM;

 private:
    /// The processes that have this test's environment. A zombie has none.
    std::vector<pid_t> Started() const {
        const std::string own = "DUNVEY_RECORD=" + folder_.Path() + "/records";
        std::vector<pid_t> processes;
        DIR* entries = opendir("/proc");
        while (const dirent* entry = entries != nullptr ? readdir(entries) : nullptr) {
            std::ifstream file("/proc/" + std::string(entry->d_name) + "/environ");
            for (std::string variable; std::getline(file, variable, '\0');) {
                if (variable == own) processes.push_back(std::atoi(entry->d_name));
            }
        }
        if (entries != nullptr) closedir(entries);
        std::erase(processes, getpid());
        return processes;
    }

    static constexpr std::string_view kProduct = "Adobe InDesign ";

    static void CopyRecorder(const std::string& target) {
        const std::string command = std::string("cp '") + DUNVEY_RECORDER + "' '" + target + "'";
        ASSERT_EQ(system(command.c_str()), 0);
    }
};

}  // namespace dunvey::test
