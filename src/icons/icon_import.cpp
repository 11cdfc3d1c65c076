#include "icons/icon_import.h"

#include "menus/general.h"
#include "menus/localized.h"
#include "persistence/preferences.h"
#include "platform/bundles/executable_path.h"
#include "platform/controls/message_dialog.h"
#include "platform/loop/desktop.h"
#include "platform/processes/apple_script.h"
#include "platform/processes/error_line.h"
#include "version/application_version.h"
#include "version/installed_apps.h"

namespace dunvey::InDesign {
namespace {

struct IconPair {
    Ref<FolderItem> Document;
    Ref<FolderItem> Book;
};

IconPair IconsIn(const FolderItem& resources) {
    return {resources.Child("ID_Document_Icon.icns"), resources.Child("ID_Book_Icon.icns")};
}

bool Exists(const Ref<FolderItem>& item) {
    return item && item->Exists();
}

/// Empty text means success.
std::string RunCopyScript(const FolderItem& resources, const IconPair& sources,
                          const IconPair& destinations) {
    return ExecuteAppleScript(resources.Child("copyFile.scpt"),
                              {sources.Document->ShellPath(), destinations.Document->ShellPath(),
                               sources.Book->ShellPath(), destinations.Book->ShellPath()});
}

bool Import(const IconPair& sources) {
    const Ref<FolderItem> resources = OwnResources();
    const IconPair destinations = IconsIn(*resources);
    if (Exists(destinations.Document)) destinations.Document->Delete();
    if (Exists(destinations.Book)) destinations.Book->Delete();
    const bool document = General::CopyFileOrFolder(sources.Document, destinations.Document);
    const bool book = General::CopyFileOrFolder(sources.Book, destinations.Book);
    return (document && book) || RunCopyScript(*resources, sources, destinations).empty();
}

}  // namespace

void GetIconFile() {
    if (InstalledApps.empty()) return;
    const Ref<FolderItem> newest = InstalledApps.back();
    if (!newest) return;
    const IconPair sources = IconsIn(*newest->Child("Contents")->Child("Resources"));
    if (!Exists(sources.Document) || !Exists(sources.Book)) return;
    try {
        ShowAlertWillIconCopy();
    } catch (const DesktopUnavailableException&) {
        // The documents are still opened, and the next start tries again.
        WriteErrorLine("Dunvey: the document icons aren't imported without a screen.");
        return;
    }
    if (Import(sources)) {
        Preferences::pIconVersion = AppVersion(newest);
    } else {
        General::ShowAlertModalOK(Localized::kMassage_Unable_to_import_icon(""),
                                  Localized::kMassage_put_Dunvey(""), nullptr);
    }
}

void ShowAlertWillIconCopy() {
    MessageDialog dialog;
    dialog.Icon = MessageDialog::kNote;
    dialog.ActionButton->Caption = "OK";
    dialog.CancelButton->Visible = false;
    dialog.AlternateActionButton->Visible = false;
    if (Localized::kLang("") == "ja") {
        dialog.Message =
            "インストールされている InDesign.app から\rファイルアイコンを取り込みます。";
        dialog.Explanation = "この処理は必要に応じて実行されます。";
    } else {
        dialog.Message = "Import file icons from InDesign.app installed.";
        dialog.Explanation = "This process is executed as necessary.";
    }
    General::BringFrontmostMe();
    dialog.ShowModal();
}

}  // namespace dunvey::InDesign
