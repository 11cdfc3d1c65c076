#pragma once

#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "road/real_world.h"
#include "support/soak.h"

namespace dunvey::test {

/// A real world in which nothing gets lost: whatever its programs leave behind becomes a child of
/// the test.
class Endurance : public RealWorld {
 protected:
    using Words = std::vector<std::string>;

    struct Ended {
        /// -1 if it ended otherwise than by an exit code.
        int exitCode = -1;
        /// The most memory that it had in use.
        size_t kibibytes = 0;
    };

    Endurance() {
        prctl(PR_SET_CHILD_SUBREAPER, 1);
        folder_.MakeFolder("tmp");
        mkdir((folder_ / "run").c_str(), 0700);
        folder_.MakeFolder("documents");
        folder_.MakeFolder("config");
    }
    // A process that has been collected may have left its number to a stranger.
    void TearDown() override {
        EndChildren();
        EXPECT_EQ(chdir("/"), 0);
    }

    static Ended AwaitEnd(pid_t process) {
        constexpr int kLongestMinutes = 15;
        Ended ended;
        int status = 0;
        rusage usage{};
        pid_t got = 0;
        for (int i = 0; process > 0 && i < kLongestMinutes * 60 * 500 && got == 0; ++i) {
            got = wait4(process, &status, WNOHANG, &usage);
            if (got == 0) usleep(2'000);
        }
        if (got == process && WIFEXITED(status)) ended.exitCode = WEXITSTATUS(status);
        ended.kibibytes = static_cast<size_t>(usage.ru_maxrss);
        return ended;
    }

    /// The children of the test, those that nobody has collected yet among them.
    static std::vector<pid_t> Children() {
        const std::string own = std::to_string(getpid());
        std::ifstream list("/proc/" + own + "/task/" + own + "/children");
        return {std::istream_iterator<pid_t>(list), {}};
    }
    static void EndChildren() {
        for (std::vector<pid_t> children = Children(); !children.empty(); children = Children()) {
            for (const pid_t child : children) {
                kill(child, SIGKILL);
                waitpid(child, nullptr, 0);
            }
        }
    }
    static std::string ExecutableOf(pid_t process) {
        char path[4096];
        const ssize_t length =
            readlink(("/proc/" + std::to_string(process) + "/exe").c_str(), path, sizeof path);
        return std::string(path, length > 0 ? static_cast<size_t>(length) : 0);
    }
    enum class Applications { Stay, End };

    /// Collects the children that have ended and waits for the rest, but not for applications that
    /// stay. Returns what else still runs after half a minute.
    std::string Stragglers(Applications applications = Applications::Stay) const {
        std::string names;
        for (int i = 0; i < 6000; ++i) {
            while (waitpid(-1, nullptr, WNOHANG) > 0)
                continue;
            names.clear();
            for (const pid_t child : Children()) {
                const std::string executable = ExecutableOf(child);
                const bool mayStay = applications == Applications::Stay &&
                                     executable.starts_with(folder_ / "Applications/");
                if (!mayStay) names += executable + " ";
            }
            if (names.empty()) break;
            usleep(5'000);
        }
        return names;
    }

    /// The documents that have arrived, in their order, by the executable that got them.
    std::map<std::string, Words> Arrived() const {
        std::map<std::string, Words> arrived;
        for (const Record& record : Records()) {
            Words& documents = arrived[record.executable];
            documents.insert(documents.end(), record.arguments.begin(), record.arguments.end());
        }
        // A start without documents only brings the application to the front.
        std::erase_if(arrived, [](const auto& entry) { return entry.second.empty(); });
        return arrived;
    }
    static size_t CountOf(const std::map<std::string, Words>& arrived) {
        size_t count = 0;
        for (const auto& [executable, documents] : arrived)
            count += documents.size();
        return count;
    }
    /// The same once there are so many of them; fewer if they don't come in a minute.
    std::map<std::string, Words> AwaitArrived(size_t count) const {
        for (int i = 0; i < 600 && CountOf(Arrived()) < count; ++i)
            usleep(100'000);
        return Arrived();
    }

    static size_t Lost(size_t sent, size_t arrived) { return sent > arrived ? sent - arrived : 0; }
    static void Tell(size_t sent, size_t arrived) {
        Figure("documents sent", sent);
        Figure("documents lost", Lost(sent, arrived));
    }
    /// Holds the peak of a run against the bound, where it isn't a sanitizer's.
    static void ExpectPeakBelow(const Ended& ended, [[maybe_unused]] size_t mebibytes,
                                [[maybe_unused]] const char* what) {
        EXPECT_GT(ended.kibibytes, 0U);
#ifndef DUNVEY_SANITIZED
        EXPECT_LT(ended.kibibytes, mebibytes * 1024);
        Figure(what, ended.kibibytes);
#endif
    }
};

}  // namespace dunvey::test
