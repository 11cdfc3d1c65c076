#pragma once

#include "platform/linux/helpers/process_folder.h"

namespace dunvey {

/// Where the program of a process is.
struct ProgramPath {
    /// Absolute; empty if it can't be read. Links are resolved, with two exceptions: a script keeps
    /// the folders of the absolute path it was started by, and a program that was started as one of
    /// a bundle, from its Contents/MacOS, keeps the whole path.
    Slice path;
    /// Whether the path may lead through links.
    bool hasLinks = false;
};

/// Finds out which file a process runs: its script, else its executable. Without the C++ library.
class ProgramFinder {
 public:
    explicit ProgramFinder(const ProcessFolder& folder) : folder_(folder) {}

    /// The program of a process. Without a path for one that has ended, has no executable (the
    /// kernel's own) or is not ours to look at. It stands until the next call.
    ProgramPath Find(pid_t id);

 private:
    /// The words, waited for up to two milliseconds where a process is just being started: `env`
    /// starts a second program in its place, in the midst of which it has none.
    Slice SettledWords(pid_t id);

    const ProcessFolder& folder_;
    ProcessFolder::PathBuffer executable_;
    ProcessFolder::PathBuffer script_;
    ProcessFolder::WordsBuffer words_;
};

/// Whether an absolute path leads through the programs of a bundle.
bool IsInBundle(Slice path);

/// Whether an absolute path names a file in a roundabout way. The program of a bundle may well be a
/// link to one that is installed elsewhere, and is the bundle's all the same. A zero byte stands
/// behind the path.
bool IsRoundabout(Slice path);

}  // namespace dunvey
