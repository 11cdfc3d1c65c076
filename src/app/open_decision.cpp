#include "app/open_decision.h"

#include <cstdio>

#include "app/app.h"
#include "app/run_rescue.h"
#include "platform/loop/desktop.h"
#include "platform/loop/event_loop.h"
#include "platform/loop/keyboard.h"
#include "platform/values/array.h"
#include "version/booting_apps.h"
#include "version/file_order.h"

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

namespace {

/// Leaves out a document whose question can't be shown anywhere, and says so where a developer or a
/// calling program looks.
void LeaveOut(FileClass& document, const DesktopUnavailableException& reason) {
    document.WillOpen = false;
    App::Instance()->CouldNotAsk = true;
    const std::string line = "Dunvey: " + document.File->ShellPath() +
                             " isn't opened, since it must be asked with which version. " +
                             reason.Message + "\n";
    std::fputs(line.c_str(), stderr);
}

}  // namespace

void App::JudgeToOpen() {
    intake_.reset();
    if (Files.empty()) return;
    Files = InDesign::SortFilesByVer(Files);
    JudgeFrom(0);
}

void App::JudgeFrom(int64_t first) {
    const int64_t last = UpperBound(Files);
    for (int64_t idx = first; idx <= last; ++idx) {
        Judge(idx);
        const RunAtRisk run([idx] { App::Instance()->JudgeFrom(idx + 1); });
        RuntimeBackgroundTask();
    }
    Files = InDesign::SortFilesByVer(Files);
    OpenFile();
}

void App::Judge(int64_t idx) {
    const Ref<FileClass> document = At(Files, idx);
    InDesign::GetBootingAppNames();
    const bool isInstalled = static_cast<bool>(document->App);
    const RunningFlags running = JudgeRunning(InDesign::BootingAppNames, document->AppName);
    const bool needJudgment = NeedsJudgment(running, isInstalled);
    if (!needJudgment && !Keyboard::AsyncCommandKey()) return;
    const RunAtRisk run([idx] { App::Instance()->JudgeFrom(idx); });
    try {
        createNewWindow(idx, running.IsBootingApp, running.IsBootingOtherApp, isInstalled,
                        needJudgment);
    } catch (const DesktopUnavailableException& reason) {
        // Without a reason to ask the document goes where it belongs.
        if (needJudgment) LeaveOut(*document, reason);
    }
}

}  // namespace dunvey
