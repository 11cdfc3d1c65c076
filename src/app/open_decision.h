#pragma once

#include <string>
#include <vector>

#include "version/file_class.h"

namespace dunvey {

/// The running applications, compared with a document's own.
struct RunningFlags {
    /// The document's own application is running.
    bool IsBootingApp = false;
    /// An application other than the document's is running.
    bool IsBootingOtherApp = false;
};

/// The flags for a document whose application has the bundle name `appName`. With two or more
/// running names IsBootingOtherApp is set, even if all are the document's.
RunningFlags JudgeRunning(const std::vector<std::string>& running, const std::string& appName);

/// Why the user must be asked; kNothing if the program can decide by itself.
enum class Question { kNothing, kAnotherRuns, kNotInstalled };

Question QuestionFor(const RunningFlags& flags, bool isInstalled);

/// Whether the user must be asked because the program can't decide by itself.
inline bool NeedsJudgment(const RunningFlags& flags, bool isInstalled) {
    return QuestionFor(flags, isInstalled) != Question::kNothing;
}

/// What happens to a document if the Command key isn't held down.
struct OpenDecision : RunningFlags {
    /// An installed application belongs to the document.
    bool IsInstalled = false;
    /// kNothing: the document is opened in that application.
    Question question = Question::kNothing;
};

/// Decides for a document; `running` holds the bundle names of the running applications.
OpenDecision DecideToOpen(const FileClass& document, const std::vector<std::string>& running);

}  // namespace dunvey
