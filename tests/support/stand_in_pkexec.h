#pragma once

#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "support/temporary_folder.h"

namespace dunvey::test {

/// A program named pkexec that stands first in PATH while the object lives: it writes down its
/// words and runs the command with the rights of the test.
class StandInPkexec {
 public:
    explicit StandInPkexec(const TemporaryFolder& folder) : folder_(folder) {
        folder_.MakeFolder("bin");
        const std::string path = folder_.Write(
            "bin/pkexec",
            "#!/bin/sh\n"
            "here=$(dirname \"$0\")\n"
            "echo >>\"$here/calls\"\n"
            "printf '%s\\0' \"$@\" >\"$here/words\"\n"
            "if [ -f \"$here/refusal\" ]; then cat \"$here/refusal\" >&2; exit 126; fi\n"
            "if [ -f \"$here/remove\" ]; then xargs -d '\\n' rm -r <\"$here/remove\"; fi\n"
            "[ \"$1\" = --disable-internal-agent ] && shift\n"
            "exec \"$@\"\n");
        chmod(path.c_str(), 0755);
        setenv("PATH", (folder_ / "bin:" + before_).c_str(), 1);
    }
    ~StandInPkexec() { setenv("PATH", before_.c_str(), 1); }
    StandInPkexec(const StandInPkexec&) = delete;
    StandInPkexec& operator=(const StandInPkexec&) = delete;

    /// From now on it says no, with this message.
    void Refuse(const std::string& message) { folder_.Write("bin/refusal", message); }
    /// It removes these ahead of the command: what the program may not do and administrators may.
    void RemovesAsAdministrator(const std::vector<std::string>& paths) {
        std::string lines;
        for (const std::string& path : paths)
            lines += path + "\n";
        folder_.Write("bin/remove", lines);
    }

    int Calls() const { return static_cast<int>(folder_.Read("bin/calls").size()); }
    /// The last four words of the last call.
    std::vector<std::string> LastPaths() const {
        std::vector<std::string> words(1);
        for (const char c : folder_.Read("bin/words")) {
            if (c == '\0') {
                words.emplace_back();
            } else {
                words.back() += c;
            }
        }
        words.pop_back();
        return {words.end() - static_cast<std::ptrdiff_t>(std::min<size_t>(4, words.size())),
                words.end()};
    }

 private:
    const TemporaryFolder& folder_;
    const std::string before_ = std::getenv("PATH") == nullptr ? "" : std::getenv("PATH");
};

}  // namespace dunvey::test
