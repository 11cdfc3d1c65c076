#include "app/app.h"

#include "chooser/about_window.h"
#include "chooser/window1.h"
#include "persistence/preferences.h"
#include "platform/loop/desktop.h"

namespace dunvey {

void App::Event_OpenDocument(const Ref<FolderItem>& document) {
    t->SetMode(Timer::kOff);
    if (!CanAccepted) return;
    const Ref<FileClass> record = InDesign::MakeNewFileClass(document);
    if (record) Files.push_back(record);
    t->SetMode(Timer::kOnce);
    // None of the versions is its own, so it is sure to be asked about. There is time until then.
    if (record && !record->App) Desktop::Prepare();
}

std::vector<std::string> App::DocumentExtensions() const {
    return InDesign::DocumentExtensions();
}

bool App::_FileAbout_Action() {
    AboutWindow::Instance()->Show();
    return true;
}

void App::createNewWindow(int64_t idx, bool IsBootingApp, bool IsBootingOtherApp, bool IsInstalled,
                          bool NeedJudgment) {
    Desktop::Prepare();
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

}  // namespace dunvey
