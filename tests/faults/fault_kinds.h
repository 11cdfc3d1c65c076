#pragma once

namespace dunvey::test {

/// The kinds of system calls that can be made to fail, in the order of kFaultKinds.
enum class Kind {
    kOpen,
    kRead,
    kWrite,
    kClose,
    kCut,
    kMkdir,
    kUnlink,
    kSpawn,
    kPipe,
    kDuplicate,
    kMemory,
    kWait,
    kFolder,
    kEntry,
    kLook,
    kEnter,
    kCount
};

/// Their names between the test and the preloaded library: spawn is posix_spawn, fork and
/// execv, cut is ftruncate, folder is opendir, entry is readdir and getdents64, look is stat and
/// lstat, enter is chdir.
inline constexpr const char* kFaultKinds[] = {
    "open", "read",      "write",  "close", "cut",    "mkdir", "unlink", "spawn",
    "pipe", "duplicate", "memory", "wait",  "folder", "entry", "look",   "enter"};

}  // namespace dunvey::test
