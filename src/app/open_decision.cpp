#include "app/open_decision.h"

#include "platform/values/array.h"

namespace dunvey {

RunningFlags JudgeRunning(const std::vector<std::string>& running, const std::string& appName) {
    const bool own = IndexOf(running, appName) != -1;
    switch (running.size()) {
        case 0:
            return {false, false};
        case 1:
            return {own, !own};
        default:
            return {own, true};
    }
}

Question QuestionFor(const RunningFlags& flags, bool isInstalled) {
    if (!flags.IsBootingApp && flags.IsBootingOtherApp) return Question::kAnotherRuns;
    return isInstalled ? Question::kNothing : Question::kNotInstalled;
}

OpenDecision DecideToOpen(const FileClass& document, const std::vector<std::string>& running) {
    const RunningFlags flags = JudgeRunning(running, document.AppName);
    const bool isInstalled = static_cast<bool>(document.App);
    return {flags, isInstalled, QuestionFor(flags, isInstalled)};
}

}  // namespace dunvey
