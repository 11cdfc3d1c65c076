#include <ftw.h>
#include <sys/prctl.h>

#include <fstream>
#include <map>
#include <set>

#include "road/real_world.h"

namespace dunvey {
namespace {

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
        expected_ = {{"a.indd", "CS6|"}, {"b.indt", "CS5.5|"}, {"c.indd", "CS6|"}};
        program_ = "/usr/bin/strace";
    }

    /// Runs the program with strace's "inject" expression; an empty one only writes the log.
    Outcome Run(const std::string& inject = "") {
        unlink((folder_ / "records").c_str());
        std::vector<std::string> arguments = {"-qq", "-o", folder_ / "calls"};
        if (!inject.empty()) arguments.insert(arguments.end(), {"-e", "inject=" + inject});
        arguments.push_back(DUNVEY_PROGRAM);
        arguments.insert(arguments.end(), documents_.begin(), documents_.end());
        Outcome outcome;
        // The leak checker traces the process, which strace does already.
        outcome.code = Dunvey(arguments, {"DUNVEY_RECORD_EXIT=1", "ASAN_OPTIONS=detect_leaks=0"});
        outcome.errors = folder_.Read("stderr");
        outcome.preferences = folder_.Read(kPreferences);
        // All that it started has become a child of the test and ends by itself.
        while (waitpid(-1, nullptr, 0) > 0)
            continue;
        for (const Record& record : Records()) {
            const std::string suffix = record.executable.substr(record.executable.rfind(' ') + 1);
            for (const std::string& argument : record.arguments)
                outcome.sent[argument.substr(argument.rfind('/') + 1)] += suffix + "|";
        }
        return outcome;
    }

    void SetPreferences(const std::string& text) {
        folder_.MakeFolder("config/Dunvey");
        unlink((folder_ / kPreferences).c_str());
        if (text.empty()) {
            rmdir((folder_ / "config/Dunvey").c_str());
        } else {
            folder_.Write(kPreferences, text);
        }
    }

    /// One system call of the last run and how many of its kind there had been, itself included.
    using Call = std::pair<std::string, int>;
    /// The calls of the last run from the first one on that touches the folder of the test: before
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

    /// Every path below the folder of the test.
    std::set<std::string> Files() const {
        static std::set<std::string> files;
        files.clear();
        nftw(
            folder_.Path().c_str(),
            [](const char* path, const struct stat*, int, FTW*) {
                files.insert(path);
                return 0;
            },
            16, FTW_PHYS);
        return files;
    }

    /// Each document was sent once to where it belongs, or it or its application was named on
    /// standard error; the preferences are those from before or those of a whole run.
    void ExpectNothingLost(const Outcome& outcome) const {
        for (const auto& [name, suffix] : expected_) {
            const auto sent = outcome.sent.find(name);
            const bool isNamed =
                outcome.errors.find(name) != std::string::npos ||
                outcome.errors.find(suffix.substr(0, suffix.size() - 1)) != std::string::npos;
            if (sent == outcome.sent.end()) {
                EXPECT_TRUE(isNamed) << name << " is lost: " << outcome.errors;
            } else {
                EXPECT_EQ(sent->second, suffix) << name;
            }
        }
        ExpectPreferences(outcome.preferences);
    }
    void ExpectPreferences(const std::string& text) const {
        // What follows the document in the file isn't read.
        const bool isOld = before_.empty() ? text.empty() : text.starts_with(before_);
        EXPECT_TRUE(isOld || text.starts_with(whole_.preferences)) << text;
    }

    /// The run without a fault, which the others are held against.
    std::vector<Call> BeginWith(const std::string& preferences) {
        before_ = preferences;
        SetPreferences(before_);
        whole_ = Run();
        EXPECT_EQ(whole_.code, 0) << whole_.errors;
        EXPECT_EQ(whole_.sent, expected_);
        EXPECT_NE(whole_.preferences, before_);
        files_ = Files();
        return ReadCalls();
    }

    std::vector<std::string> documents_;
    std::map<std::string, std::string> expected_;
    std::string before_;
    Outcome whole_;
    std::set<std::string> files_;
};

const std::string kShorter =
    "{\"NonReleaseVersion\":0,\"AllowOpenHigherVersion\":true,"
    "\"AllowQuitButtonActiveted\":true,\"IconVersion\":\"\"}";
const std::string kLonger = "{\"Other\":\"" + std::string(300, 'x') + "\"," + kShorter.substr(1);

TEST_F(FaultsTest, AFailedSystemCallLosesNoDocumentAndNoPreferences) {
    // A call of the kernel, how it fails, and whether nobody may notice.
    struct Fault {
        const char* call;
        const char* error;
        bool isHarmless;
    };
    const Fault kFaults[] = {
        {"openat", "EIO", false},     {"openat", "EMFILE", false}, {"read", "EIO", false},
        {"read", "EINTR", true},      {"write", "ENOSPC", false},  {"write", "EINTR", true},
        {"ftruncate", "EIO", false},  {"mkdir", "EACCES", false},  {"flock", "ENOLCK", false},
        {"getdents64", "EIO", false}, {"pipe2", "EMFILE", false},  {"clone3", "EAGAIN", true},
        {"clone3", "ENOMEM", false},  {"vfork", "EAGAIN", true},   {"wait4", "EINTR", true},
        {"newfstatat", "EIO", false}};
    int faults = 0;
    for (const std::string& before : {std::string(), kLonger}) {
        const std::vector<Call> calls = BeginWith(before);
        for (const Fault& fault : kFaults) {
            const auto isOfKind = [&](const Call& call) { return call.first == fault.call; };
#ifdef DUNVEY_SANITIZED
            // The sanitizers test addresses with these calls and end the process if one fails.
            if (fault.call == std::string("pipe2") || fault.call == std::string("write")) continue;
#endif
            // Some calls are many and much alike.
            const auto stride = 1 + std::count_if(calls.begin(), calls.end(), isOfKind) / 12;
            for (const auto& [name, position] : calls) {
                if (name != fault.call || position % stride != 0) continue;
                ++faults;
                const std::string inject =
                    name + ":error=" + fault.error + ":when=" + std::to_string(position);
                SCOPED_TRACE(inject);
                SetPreferences(before);
                const Outcome outcome = Run(inject);
                EXPECT_TRUE(outcome.code == 0 || !outcome.errors.empty()) << outcome.code;
                ExpectNothingLost(outcome);
                for (const std::string& file : Files())
                    EXPECT_TRUE(files_.contains(file)) << file << " is left behind";
                if (!fault.isHarmless) continue;
                EXPECT_EQ(outcome.code, 0) << outcome.errors;
                EXPECT_EQ(outcome.sent, expected_);
                EXPECT_EQ(outcome.preferences, whole_.preferences);
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
            Run(inject);
            ExpectPreferences(folder_.Read(kPreferences));
            for (const std::string& file : Files())
                EXPECT_TRUE(files_.contains(file)) << file << " is left behind";
            const Outcome next = Run();
            EXPECT_EQ(next.code, 0) << next.errors;
            EXPECT_EQ(next.sent, expected_);
            EXPECT_EQ(next.preferences, whole_.preferences);
        }
    }
}

}  // namespace
}  // namespace dunvey
