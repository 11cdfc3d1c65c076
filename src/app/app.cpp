#include "app/app.h"

#include "app/open_decision.h"
#include "app/opening_sequence.h"
#include "chooser/about_window.h"
#include "chooser/window1.h"
#include "icons/icon_import.h"
#include "menus/general.h"
#include "menus/localized.h"
#include "persistence/preferences.h"
#include "platform/loop/desktop.h"
#include "platform/loop/event_loop.h"
#include "platform/loop/keyboard.h"
#include "platform/processes/error_line.h"
#include "platform/processes/system_information.h"
#include "platform/values/array.h"
#include "version/booting_apps.h"
#include "version/file_order.h"
#include "version/installed_apps.h"
#include "version/launch_command.h"

namespace dunvey {
namespace {

/// Reports a document that isn't opened on standard error.
void ReportLeftOut(const FileClass& document, const std::string& reason) {
    WriteErrorLine("Dunvey: \"" + document.File->NativePath() + "\" isn't opened: " + reason);
}

}  // namespace

void App::Event_Open() {
    namespace SystemInformation = SystemInformationMBS;
    if (IsSystemRefused(SystemInformation::MacMajorVersion(),
                        SystemInformation::MacMinorVersion())) {
        General::ShowAlertQuit(Localized::kMassage_SystemRequirement(""),
                               Localized::kMassage_Quit(""), nullptr);
    }
    t = New<DropTimer>();
    t->SetPeriod(1);
    Preferences::Raed();
    InDesign::GetInstalledApps();
    localizeMenuText();
    if (IsIconImportDue()) InDesign::GetIconFile();
}

void App::Event_Close() {
    Preferences::Save();
    terminate();
}

void App::Event_OpenDocument(const Ref<FolderItem>& document) {
    t->SetMode(Timer::kOff);
    if (!CanAccepted) return;
    const Ref<FileClass> record = InDesign::MakeNewFileClass(document);
    if (record) Files.push_back(record);
    t->SetMode(Timer::kOnce);
}

std::vector<std::string> App::DocumentExtensions() const {
    return InDesign::DocumentExtensions();
}

bool App::_FileAbout_Action() {
    AboutWindow::Instance()->Show();
    return true;
}

void App::JudgeToOpen() {
    const int64_t last = UpperBound(Files);
    if (last == -1) return;
    Files = InDesign::SortFilesByVer(Files);
    for (int64_t idx = 0; idx <= last; ++idx) {
        Judge(idx);
        RuntimeBackgroundTask();
    }
    Files = InDesign::SortFilesByVer(Files);
    OpenFile();
}

/// Decides for one document by what is running now, and asks the user if needed.
void App::Judge(int64_t idx) {
    const Ref<FileClass> document = At(Files, idx);
    InDesign::GetBootingAppNames();
    const OpenDecision decision = DecideToOpen(*document, InDesign::BootingAppNames);
    const bool needJudgment = decision.question != Question::kNothing;
    if (!needJudgment && !Keyboard::AsyncCommandKey()) return;
    try {
        createNewWindow(idx, decision.IsBootingApp, decision.IsBootingOtherApp,
                        decision.IsInstalled, needJudgment);
        if (!document->WillOpen) ReportLeftOut(*document, "its window was closed.");
    } catch (const DesktopUnavailableException& failure) {
        // Only the Command key asked for the window, so the document is opened without it.
        if (!needJudgment) return;
        document->WillOpen = false;
        CouldNotAsk = true;
        ReportLeftOut(*document, "it must be asked in which version. " + failure.Message);
    }
}

void App::localizeMenuText() {
    const std::string name = ExecutableFile()->Name();
    const bool isJapanese = LocalizedMenu::kLocal("") == "ja";
    if (const Ref<ApplicationMenuItem> item = FileAbout()) {
        item->Text = isJapanese ? name + " について" : "About " + name;
    }
}

void App::createNewWindow(int64_t idx, bool IsBootingApp, bool IsBootingOtherApp, bool IsInstalled,
                          bool NeedJudgment) {
    const Ref<Window1> window = New<Window1>();
    window->idx = idx;
    window->IsBootingApp = IsBootingApp;
    window->IsBootingOtherApp = IsBootingOtherApp;
    window->IsInstalled = IsInstalled;
    window->NeedJudgment = NeedJudgment;
    window->SetAppList();
    window->SetFileInfo();
    window->SetEaseUse();
    window->CheckBox1()->SetValue(Preferences::gAllowOpenHigherVersion);
    window->CheckBox2()->SetValue(Preferences::gAllowQuitButtonActiveted);
    window->ShowModal();
}

void App::terminate() {
    NSApplication::terminate();
}

void App::OpenFile() {
    std::erase_if(Files, [](const Ref<FileClass>& document) { return !document->WillOpen; });
    if (Files.empty()) return;
    for (auto first = Files.begin(); first != Files.end();) {
        std::string paths;
        auto end = first;
        for (; end != Files.end() && (*end)->WillUseVer == (*first)->WillUseVer; ++end) {
            paths += (*end)->File->ShellPath() + " ";
            if (end + 1 != Files.end()) RuntimeBackgroundTask();
        }
        // A blank follows each path, but not that of a single document at the end.
        if (end == Files.end() && end - first == 1) paths.pop_back();
        InDesign::OpenWith((*first)->WillUseApp, paths);
        first = end;
    }
    RuntimeBackgroundTask();
}

Ref<ApplicationMenuItem> FileAbout() {
    const Ref<MenuBar>& menuBar = Application::Current()->MenuBar();
    return menuBar ? menuBar->Find("FileAbout").As<ApplicationMenuItem>() : nullptr;
}

}  // namespace dunvey
