#include "platform/linux/helpers/program_file.h"

#include <sys/stat.h>
#include <time.h>

#include "platform/linux/helpers/script_search.h"

namespace dunvey {
namespace {

constexpr Slice kDeleted = " (deleted)";

/// The path in a link to an executable. The kernel marks a file that was deleted or replaced behind
/// its path; a file may as well be named like that.
Slice WithoutDeletedMark(const ProcessFolder& folder, pid_t id, Slice path) {
    if (!path.EndsWith(kDeleted) || folder.IsExecutable(id, path.data)) return path;
    return path.UpTo(path.size - kDeleted.size);
}

bool IsLink(const char* path) {
    struct stat status;
    return lstat(path, &status) == 0 && S_ISLNK(status.st_mode);
}

}  // namespace

bool IsInBundle(Slice path) {
    return path.StartsWith("/") && path.Has("/Contents/MacOS/");
}

bool IsRoundabout(Slice path) {
    return path.Has("//") || path.Has("/./") || path.Has("/../") ||
           (!IsInBundle(path) && IsLink(path.data));
}

ProgramPath ProgramFinder::Find(pid_t id) {
    const Slice executable = folder_.Link(id, "/exe", executable_);
    if (!executable.StartsWith("/")) return {};
    const FirstWords words(SettledWords(id));
    const Slice script = ScriptSearch(folder_, id, executable, words).Find(script_);
    if (!script.IsEmpty()) return {script, true};
    const Slice first = words.First();
    const bool isStartedInBundle =
        IsInBundle(first) && !IsRoundabout(first) && folder_.IsExecutable(id, first.data);
    if (isStartedInBundle) return {first, true};
    return {WithoutDeletedMark(folder_, id, executable), false};
}

Slice ProgramFinder::SettledWords(pid_t id) {
    constexpr timespec kPause{0, 100'000};
    constexpr int kPauses = 20;
    Slice words = folder_.Words(id, words_);
    for (int i = 0; i < kPauses && words.IsEmpty(); ++i) {
        nanosleep(&kPause, nullptr);
        words = folder_.Words(id, words_);
    }
    return words;
}

}  // namespace dunvey
