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
    std::string output;
    std::string errors;
};

/// What a child does between its start and its program.
using Preparation = std::function<void()>;

/// A preparation: the system calls of newer kernels fail as on an old one.
void BecomeOldKernel();

/// Waits until the condition holds. False if it doesn't within a time that is long for any machine.
bool Eventually(const std::function<bool()>& condition);

bool Exists(const std::string& path);
/// The contents; empty if it can't be read.
std::string ReadText(const std::string& path);
void WriteText(const std::string& path, const std::string& text, mode_t mode = 0644);

/// A temporary tree in which the real helpers run on real processes. All that is left running in
/// the end is killed: orphans become children of the test.
class HelperTest : public testing::Test {
 protected:
    HelperTest();
    ~HelperTest() override;

    /// A path in the tree.
    std::string In(const std::string& relative) const { return folder_ / relative; }
    /// Makes a folder in the tree with those above it. Gives back its path.
    std::string MakeFolder(const std::string& relative) const {
        return folder_.MakeFolder(relative);
    }
    /// Makes an empty bundle. Gives back its path.
    std::string MakeBundle(const std::string& relative) const;
    /// Makes a program of the recorder. Gives back the path.
    std::string MakeRecorder(const std::string& path) const;
    /// Makes a script that stays until it is killed and starts nothing. Gives back the path.
    std::string MakeStayingScript(const std::string& path, const std::string& firstLine) const;

    /// Starts a program by path.
    pid_t Start(const Words& words, const Preparation& prepare = {}) const;
    /// Starts a program that makes records and waits until it has.
    pid_t StartRecorder(const Words& words) const;
    /// Runs a helper to its end.
    Finished Run(const std::string& helper, const Words& arguments,
                 const Preparation& prepare = {}) const;

    /// Runs a helper and expects it to end with the code and to say the text.
    Finished Refused(const std::string& helper, const Words& arguments, int code,
                     const std::string& text) const;

    std::string Helper(const std::string& name) const { return DUNVEY_HELPERS "/" + name; }
    std::vector<Record> Records() const { return ReadRecords(In("records")); }
    /// Whether a child of the test, an adopted one too, runs on.
    static bool IsRunning(pid_t child);
    /// Ends a child and waits for it.
    static void End(pid_t child);
    /// Ends all of them.
    static void EndChildren();
    /// The children of the test, ended ones too.
    static std::vector<pid_t> Children();

 private:
    test::TemporaryFolder folder_;
};

}  // namespace dunvey
