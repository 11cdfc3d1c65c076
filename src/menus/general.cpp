#include "menus/general.h"

#include "menus/localized.h"
#include "platform/controls/message_dialog.h"
#include "platform/files/folder_item.h"
#include "platform/loop/application.h"

namespace dunvey::General {
namespace {

/// A caution alert with one button.
void Prepare(MessageDialog& dialog, const std::string& caption, const std::string& message,
             const std::string& explanation) {
    dialog.Icon = MessageDialog::kCaution;
    dialog.ActionButton->Caption = caption;
    dialog.CancelButton->Visible = false;
    dialog.AlternateActionButton->Visible = false;
    dialog.Message = message;
    dialog.Explanation = explanation;
}

bool CopyFolder(const FolderItem& source, const FolderItem& destination) {
    const Ref<FolderItem> folder = destination.Child(source.Name());
    folder->CreateAsFolder();
    if (!folder->Exists() || !folder->Directory()) return false;
    // Count is read again at each step: the folder may change meanwhile.
    for (int64_t position = 1; position <= source.Count(); ++position) {
        const Ref<FolderItem> item = source.TrueItem(position);
        if (!item || !CopyFileOrFolder(item, folder)) return false;
    }
    return true;
}

}  // namespace

void AppQuit() {
    NSApplication::terminate();
}

void BringFrontmostMe() {
    NSApplication::activateIgnoringOtherApps(true);
}

void ShowAlertQuit(const std::string& message, const std::string& explanation, Window* parent) {
    MessageDialog dialog;
    Prepare(dialog, Localized::kQuit(""), message, explanation);
    dialog.ShowModalWithin(parent);
    AppQuit();
}

void ShowAlertModalOK(const std::string& message, const std::string& explanation, Window* parent) {
    MessageDialog dialog;
    Prepare(dialog, "OK", message, explanation);
    BringFrontmostMe();
    dialog.ShowModalWithin(parent);
}

bool CopyFileOrFolder(const Ref<FolderItem>& source, const Ref<FolderItem>& destination) {
    if (source->Directory()) return CopyFolder(*source, *destination);
    source->CopyFileTo(*destination);
    return source->LastErrorCode() == 0;
}

}  // namespace dunvey::General
