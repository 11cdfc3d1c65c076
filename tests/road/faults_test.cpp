#include <sys/prctl.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>

#include "road/real_world.h"

namespace dunvey {
namespace {

using test::Words;

/// The finished program under strace, which makes one of its system calls fail, or kills it there.
class FaultsTest : public test::RealWorld {
 protected:
    static constexpr char kPreferences[] = "config/Dunvey/Dunvey.pref";

    struct Outcome {
        int code = 0;
        std::string errors;
        std::string preferences;
        /// Each document with the names of the applications that it was sent to.
        std::map<std::string, std::string> sent;
    };

    FaultsTest() {
        prctl(PR_SET_CHILD_SUBREAPER, 1);
        Install("CS5.5", "7.5.3");
        Install("CS6", "8.0.1");
        documents_ = {Document("a.indd", 8), Document("b.indt", 7, 5), Document("c.indd", 8, 1)};
        program_ = "/usr/bin/strace";
    }

    /// Runs the program with strace's "inject" expression.
    Outcome Run(const std::string& inject = "none:error=EIO") {
        unlink((folder_ / "records").c_str());
        Words words = {"-qq", "-o", folder_ / "calls", "-e", "inject=" + inject, DUNVEY_PROGRAM};
        words.insert(words.end(), documents_.begin(), documents_.end());
        Outcome outcome;
        // The leak checker traces the process, which strace does already.
        outcome.code = Dunvey(words, {"DUNVEY_RECORD_EXIT=1", "ASAN_OPTIONS=detect_leaks=0"});
        outcome.errors = folder_.Read("stderr");
        outcome.preferences = folder_.Read(kPreferences);
        // What it started has become a child of the test and ends by itself.
        while (waitpid(-1, nullptr, 0) > 0)
            continue;
        for (const Record& record : Records()) {
            const std::string suffix = record.executable.substr(record.executable.rfind(' ') + 1);
            for (const std::string& argument : record.arguments)
                outcome.sent[argument.substr(argument.rfind('/') + 1)] += suffix;
        }
        return outcome;
    }

    /// Writes the preferences, or removes them and their folder if the text is empty.
    void SetPreferences(const std::string& text) {
        std::filesystem::remove_all(folder_ / "config/Dunvey");
        if (text.empty()) return;
        folder_.MakeFolder("config/Dunvey");
        folder_.Write(kPreferences, text);
    }

    /// A system call of the last run and how many of its kind there had been, itself included.
    using Call = std::pair<std::string, int>;
    /// The calls of the last run from the first one on that names the folder of the test: before
    /// that the loader and the sanitizers are at work.
    std::vector<Call> ReadCalls() const {
        std::vector<Call> calls;
        std::map<std::string, int> counts;
        std::ifstream log(folder_ / "calls");
        for (std::string line; std::getline(log, line);) {
            const std::string name = line.substr(0, line.find('('));
            const int count = ++counts[name];
            const bool isOwn = name != "execve" && line.find(folder_.Path()) != line.npos;
            if (isOwn || !calls.empty()) calls.emplace_back(name, count);
        }
        return calls;
    }

    std::set<std::string> Files() const {
        std::set<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.Path()))
            files.insert(entry.path());
        return files;
    }

    /// The run without a fault, with which the others are compared; returns its calls.
    std::vector<Call> BeginWith(const std::string& preferences) {
        before_ = preferences;
        SetPreferences(before_);
        whole_ = Run();
        ExpectWhole(whole_);
        EXPECT_NE(whole_.preferences, before_);
        files_ = Files();
        return ReadCalls();
    }
    void ExpectWhole(const Outcome& outcome) const {
        EXPECT_EQ(outcome.code, 0) << outcome.errors;
        EXPECT_EQ(outcome.sent, expected_);
        EXPECT_EQ(outcome.preferences, whole_.preferences);
    }
    /// The preferences are those from before or those of a whole run, and no new file is there.
    void ExpectClean(const Outcome& outcome) const {
        // What follows the document in the file isn't read.
        const std::string& text = outcome.preferences;
        const bool isOld = before_.empty() ? text.empty() : text.starts_with(before_);
        EXPECT_TRUE(isOld || text.starts_with(whole_.preferences)) << text;
        for (const std::string& file : Files())
            EXPECT_TRUE(files_.contains(file)) << file << " is left";
    }
    /// Each document was sent once to its application, or it or its application is named on
    /// standard error.
    void ExpectNothingLost(const Outcome& outcome) const {
        EXPECT_TRUE(outcome.code == 0 || !outcome.errors.empty()) << outcome.code;
        for (const auto& [name, suffix] : expected_) {
            const auto sent = outcome.sent.find(name);
            const bool isNamed = outcome.errors.find(name) != std::string::npos ||
                                 outcome.errors.find(suffix) != std::string::npos;
            EXPECT_TRUE(sent == outcome.sent.end() ? isNamed : sent->second == suffix)
                << name << ": " << outcome.errors;
        }
    }

    Words documents_;
    const std::map<std::string, std::string> expected_ = {
        {"a.indd", "CS6"}, {"b.indt", "CS5.5"}, {"c.indd", "CS6"}};
    std::string before_;
    Outcome whole_;
    std::set<std::string> files_;
};

const std::string kShorter =
    "{\"NonReleaseVersion\":0,\"AllowOpenHigherVersion\":true,"
    "\"AllowQuitButtonActiveted\":true,\"IconVersion\":\"\"}";
const std::string kLonger = "{\"Other\":\"" + std::string(300, 'x') + "\"," + kShorter.substr(1);

TEST_F(FaultsTest, AFailedSystemCallLosesNoDocumentAndNoPreferences) {
    const std::pair<std::string, std::string> kFaults[] = {
        {"openat", "EIO"},    {"openat", "EMFILE"},  {"read", "EIO"},      {"read", "EINTR"},
        {"write", "ENOSPC"},  {"write", "EINTR"},    {"ftruncate", "EIO"}, {"mkdir", "EACCES"},
        {"flock", "ENOLCK"},  {"getdents64", "EIO"}, {"pipe2", "EMFILE"},  {"clone3", "EAGAIN"},
        {"clone3", "ENOMEM"}, {"vfork", "EAGAIN"},   {"wait4", "EINTR"},   {"newfstatat", "EIO"}};
    int faults = 0;
    for (const std::string& before : {std::string(), kLonger}) {
        const std::vector<Call> calls = BeginWith(before);
        for (const auto& [kind, error] : kFaults) {
#ifdef DUNVEY_SANITIZED
            // The sanitizers test addresses with these calls and end the process if one fails.
            if (kind == "pipe2" || kind == "write") continue;
#endif
            // Some calls are many and much alike.
            const auto stride =
                1 + std::count_if(calls.begin(), calls.end(), [&name = kind](const Call& call) {
                        return call.first == name;
                    }) / 12;
            for (const auto& [name, position] : calls) {
                if (name != kind || position % stride != 0) continue;
                ++faults;
                const std::string inject =
                    name + ":error=" + error + ":when=" + std::to_string(position);
                SCOPED_TRACE(inject);
                SetPreferences(before);
                const Outcome outcome = Run(inject);
                ExpectNothingLost(outcome);
                ExpectClean(outcome);
                // These are tried again.
                if (error == "EINTR" || error == "EAGAIN") ExpectWhole(outcome);
            }
        }
    }
    EXPECT_GT(faults, 40);
}

TEST_F(FaultsTest, AfterAKillTheNextRunWorks) {
    for (const std::string& before : {std::string(), kShorter, kLonger}) {
        const std::vector<Call> calls = BeginWith(before);
        constexpr size_t kKills = 12;
        for (size_t i = 0; i < kKills; ++i) {
            const auto& [name, position] = calls[i * calls.size() / kKills];
            const std::string inject = name + ":signal=KILL:when=" + std::to_string(position);
            SCOPED_TRACE(inject);
            SetPreferences(before);
            ExpectClean(Run(inject));
            ExpectWhole(Run());
        }
    }
}

}  // namespace
}  // namespace dunvey
