#include "app/opening_sequence.h"

#include "app/app.h"
#include "icons/icon_import.h"
#include "menus/general.h"
#include "menus/localized.h"
#include "persistence/preferences.h"
#include "platform/loop/event_loop.h"
#include "platform/processes/system_information.h"
#include "platform/text/text.h"
#include "platform/values/array.h"
#include "version/application_version.h"
#include "version/installed_apps.h"

namespace dunvey {

bool IsSystemRefused(int64_t major, int64_t minor) {
    const std::string joined =
        Format(static_cast<double>(major), "00") + Format(static_cast<double>(minor), "00");
    return Truncate(Val(joined)) >= 1015;
}

bool IsIconImportDue() {
    if (Application::NonReleaseVersion() != Preferences::pNonReleaseVersion) return true;
    if (InDesign::InstalledApps.empty()) return false;
    const Ref<FolderItem>& newest = InDesign::InstalledApps.back();
    return newest && InDesign::AppVersion(newest) != Preferences::pIconVersion;
}

namespace {

/// Takes in the documents that still wait and hands on all of them.
void OpenWaiting() {
    const Ref<App> app = App::Instance();
    EventLoop::Current().DeliverDocuments(*app);
    app->JudgeToOpen();
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
    intake_.emplace(&OpenWaiting);
    if (IsIconImportDue()) InDesign::GetIconFile();
}

void App::Event_Close() {
    intake_.reset();
    Preferences::Save();
    terminate();
}

Ref<ApplicationMenuItem> FileAbout() {
    const Ref<MenuBar>& menuBar = Application::Current()->MenuBar();
    return menuBar ? menuBar->Find("FileAbout").As<ApplicationMenuItem>() : nullptr;
}

void App::localizeMenuText() {
    const std::string name = ExecutableFile()->Name();
    const bool isJapanese = LocalizedMenu::kLocal("") == "ja";
    if (const Ref<ApplicationMenuItem> item = FileAbout()) {
        item->Text = isJapanese ? name + " について" : "About " + name;
    }
}

}  // namespace dunvey
