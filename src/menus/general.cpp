#include "menus/general.h"

#include "menus/localized.h"
#include "platform/controls/message_dialog.h"
#include "platform/loop/application.h"

namespace dunvey::General {
namespace {

/// A caution with one button.
void Prepare(MessageDialog& dialog, const std::string& caption, const std::string& message,
             const std::string& explanation) {
    dialog.Icon = MessageDialog::kCaution;
    dialog.ActionButton->Caption = caption;
    dialog.CancelButton->Visible = false;
    dialog.AlternateActionButton->Visible = false;
    dialog.Message = message;
    dialog.Explanation = explanation;
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

}  // namespace dunvey::General
