#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

#include "support/record_reader.h"
#include "support/temporary_folder.h"

namespace dunvey {

using Words = std::vector<std::string>;

/// A program that has ended.
struct Finished {
    /// The exit code, or minus the signal that ended it.
    int code = 0;
    std::string output, errors;
};

/// Runs in a child before its program.
using Preparation = std::function<void()>;

/// Makes close_range fail as on an old kernel.
void BecomeOldKernel();

/// Waits up to ten seconds for the condition; returns whether it holds.
bool Eventually(const std::function<bool()>& condition);

bool Exists(const std::string& path);
/// The contents; empty if it can't be read.
std::string ReadText(const std::string& path);
void WriteText(const std::string& path, const std::string& text, mode_t mode = 0644);

/// A temporary tree in which the real helpers run on real processes. The test adopts orphans and
/// kills all that still runs at its end. What makes a file returns its path.
class HelperTest : public testing::Test {
 protected:
    HelperTest();
    ~HelperTest() override;

    std::string In(const std::string& relative) const { return folder_ / relative; }
    std::string MakeFolder(const std::string& relative) const {
        return folder_.MakeFolder(relative);
    }
    std::string MakeBundle(const std::string& relative) const;
    /// Copies the recorder.
    std::string MakeRecorder(const std::string& path) const;
    /// Makes a script that runs until it is killed.
    std::string MakeStayingScript(const std::string& path, const std::string& firstLine) const;

    pid_t Start(const Words& words, const Preparation& prepare = {}) const;
    /// Starts a recorder and waits for its record.
    pid_t StartRecorder(const Words& words) const;
    /// Runs a helper to its end.
    Finished Run(const std::string& helper, const Words& arguments,
                 const Preparation& prepare = {}) const;
    /// Runs a helper and expects this exit code and the text among its errors.
    Finished Refused(const std::string& helper, const Words& arguments, int code,
                     const std::string& text) const;

    std::string Helper(const std::string& name) const { return DUNVEY_HELPERS "/" + name; }
    std::vector<Record> Records() const { return ReadRecords(In("records")); }
    /// The test's children, with those that have ended.
    static std::vector<pid_t> Children();
    static bool IsRunning(pid_t child);
    /// Kills a child and waits for it.
    static void End(pid_t child);
    static void EndChildren();

 private:
    test::TemporaryFolder folder_;
};

}  // namespace dunvey
