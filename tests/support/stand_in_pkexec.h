#pragma once

#include <sys/stat.h>

#include <cstdlib>
#include <string>

#include "support/temporary_folder.h"

namespace dunvey::test {

/// A program named pkexec that comes first in PATH during the object's life: it records its
/// arguments and runs the command with the rights of the test.
class StandInPkexec {
 public:
    explicit StandInPkexec(const TemporaryFolder& folder) : folder_(folder) {
        folder_.MakeFolder("bin");
        const std::string path = folder_.Write(
            "bin/pkexec",
            "#!/bin/sh\n"
            "here=$(dirname \"$0\")\n"
            "echo >>\"$here/calls\"\n"
            "printf '%s\\n' \"$@\" >\"$here/words\"\n"
            "if [ -f \"$here/refusal\" ]; then cat \"$here/refusal\" >&2; exit 126; fi\n"
            "if [ -f \"$here/meanwhile\" ]; then . \"$here/meanwhile\"; fi\n"
            "[ \"$1\" = --disable-internal-agent ] && shift\n"
            "exec \"$@\"\n");
        chmod(path.c_str(), 0755);
        setenv("PATH", (folder_ / "bin:" + before_).c_str(), 1);
    }
    ~StandInPkexec() { setenv("PATH", before_.c_str(), 1); }
    StandInPkexec(const StandInPkexec&) = delete;
    StandInPkexec& operator=(const StandInPkexec&) = delete;

    /// From now on it refuses with this message.
    void Refuse(const std::string& message) { folder_.Write("bin/refusal", message); }
    /// What happens while the user is asked: commands of a shell.
    void Meanwhile(const std::string& commands) { folder_.Write("bin/meanwhile", commands); }

    /// The arguments of the last call, each with a line feed.
    std::string Arguments() const { return folder_.Read("bin/words"); }
    int Calls() const { return static_cast<int>(folder_.Read("bin/calls").size()); }

 private:
    const TemporaryFolder& folder_;
    const std::string before_ = std::getenv("PATH") == nullptr ? "" : std::getenv("PATH");
};

}  // namespace dunvey::test
