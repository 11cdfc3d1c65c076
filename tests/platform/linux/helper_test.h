#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "support/record_reader.h"
#include "support/temporary_folder.h"

namespace dunvey {

using Words = std::vector<std::string>;

/// Runs in a child before its program.
using Preparation = std::function<void()>;

/// A program that has ended.
struct Finished {
    /// The exit code, or minus the signal that ended it.
    int code = 0;
    std::string output, errors;
};

/// Waits up to ten seconds for the condition; returns whether it holds.
inline bool Eventually(const std::function<bool()>& condition) {
    for (int i = 0; i < 2'000; ++i) {
        if (condition()) return true;
        usleep(5'000);
    }
    return false;
}

/// The contents; empty if it can't be read.
inline std::string ReadText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string ProcessFile(pid_t process, const std::string& name) {
    return "/proc/" + std::to_string(process) + "/" + name;
}

/// A temporary tree in which the real helpers run on real processes. The test adopts orphans and
/// kills all that still runs at its end. What makes a file returns its path.
class HelperTest : public testing::Test {
 protected:
    HelperTest() {
        prctl(PR_SET_CHILD_SUBREAPER, 1);
        setenv("DUNVEY_RECORD", In("records").c_str(), 1);
    }
    ~HelperTest() override {
        while (!Children().empty())
            EndChildren();
    }

    std::string In(const std::string& relative) const { return folder_ / relative; }
    std::string MakeFolder(const std::string& relative) const {
        return folder_.MakeFolder(relative);
    }
    std::string MakeBundle(const std::string& relative) const {
        MakeFolder(relative + "/Contents/MacOS");
        return In(relative);
    }
    static std::string MakeProgram(const std::string& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
        chmod(path.c_str(), 0755);
        return path;
    }
    static std::string MakeRecorder(const std::string& path) {
        return MakeProgram(path, ReadText(DUNVEY_RECORDER));
    }
    /// Makes a script that runs until it is killed.
    std::string MakeStayingScript(const std::string& path, const std::string& firstLine) const {
        mkfifo(In("never-written").c_str(), 0600);
        return MakeProgram(path, firstLine + "\nread -r unused <'" + In("never-written") + "'\n");
    }

    static pid_t Start(Words words, const Preparation& prepare = {}) {
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        const pid_t child = fork();
        if (child != 0) return child;
        if (prepare) prepare();
        execv(arguments[0], arguments.data());
        _exit(98);
    }
    /// Starts a recorder and waits for its record.
    pid_t StartRecorder(const Words& words) const {
        const size_t before = Records().size();
        const pid_t child = Start(words);
        EXPECT_TRUE(Eventually([&] { return Records().size() > before; })) << words.front();
        return child;
    }
    /// Runs a helper to its end.
    Finished Run(const std::string& helper, Words words, const Preparation& prepare = {}) const {
        words.insert(words.begin(), Helper(helper));
        const pid_t child = Start(words, [&] {
            const int flags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC;
            dup2(open(In("output").c_str(), flags, 0600), STDOUT_FILENO);
            dup2(open(In("errors").c_str(), flags, 0600), STDERR_FILENO);
            if (prepare) prepare();
        });
        int status = 0;
        waitpid(child, &status, 0);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), folder_.Read("output"),
                folder_.Read("errors")};
    }
    /// Runs a helper and expects this exit code and the text among its errors.
    void Refused(const std::string& helper, const Words& words, int code,
                 const std::string& text) const {
        const Finished finished = Run(helper, words);
        EXPECT_EQ(finished.code, code) << testing::PrintToString(words);
        EXPECT_NE(finished.errors.find(text), std::string::npos) << finished.errors;
    }

    static std::string Helper(const std::string& name) { return DUNVEY_HELPERS "/" + name; }
    std::vector<Record> Records() const { return ReadRecords(In("records")); }

    /// The test's children, with those that have ended.
    static std::vector<pid_t> Children() {
        const std::string own = std::to_string(getpid());
        std::istringstream list(ReadText("/proc/self/task/" + own + "/children"));
        return {std::istream_iterator<pid_t>(list), {}};
    }
    static bool IsRunning(pid_t child) {
        siginfo_t ended{};
        const auto id = static_cast<id_t>(child);
        return waitid(P_PID, id, &ended, WEXITED | WNOHANG | WNOWAIT) == 0 && ended.si_pid == 0;
    }
    /// Kills a child and waits for it.
    static void End(pid_t child) {
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
    static void EndChildren() {
        for (const pid_t child : Children())
            End(child);
    }

    const test::TemporaryFolder folder_;
};

}  // namespace dunvey
