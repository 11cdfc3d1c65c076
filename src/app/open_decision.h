#pragma once

#include <string>
#include <vector>

namespace dunvey {

/// What is running, as far as one document cares.
struct RunningFlags {
    /// The document's own application runs.
    bool IsBootingApp = false;
    /// An application other than the document's runs.
    bool IsBootingOtherApp = false;
};

/// Reads the flags from the names of the running applications. Two entries count as another one
/// running, even if both are the document's.
RunningFlags JudgeRunning(const std::vector<std::string>& running, const std::string& appName);

/// Whether the user must be asked because the program can't go on by itself.
inline bool NeedsJudgment(const RunningFlags& running, bool isInstalled) {
    return (!running.IsBootingApp && running.IsBootingOtherApp) || !isInstalled;
}

}  // namespace dunvey
