#include "chooser/window1.h"
#include "menus/localized.h"
#include "persistence/preferences.h"
#include "platform/controls/reg_ex_xojo.h"
#include "platform/loop/event_loop.h"
#include "platform/loop/keyboard.h"
#include "platform/text/text.h"
#include "platform/values/array.h"

namespace dunvey {
namespace {

/// The number that is compared with a document's version: the major version, or 7.5.
double ComparedVersion(const std::string& version) {
    const std::vector<std::string> fields = SplitB(version, ".");
    if (fields.size() > 1 && fields[0] + "." + fields[1] == "7.5") return 7.5;
    return fields.empty() ? 0 : Val(fields[0]);
}

/// The caption with an application's name, in the word order of the user's language.
std::string CaptionWith(const LocalizedText& words, const std::string& name) {
    return Localized::kLang("") == "ja" ? name + words("") : words("") + name;
}

}  // namespace

std::string Window1::ShortName(const std::string& name) {
    const std::string bare = Replace(Replace(name, "Adobe InDesign ", ""), ".app", "");
    return RegExXojo::Replace(bare, " .+", "", 0, true);
}

void Window1::SetEaseUse() {
    const int64_t last = AppList()->ListCount() - 1;
    if (last == -1) return;
    const double documentVersion = Val(Document()->Ver);
    const int64_t generation = AppList()->Generation();
    for (int64_t row = 0; row <= last; ++row) {
        JudgeRow(row, documentVersion);
        RuntimeBackgroundTask();
        // An event may have closed the window or rebuilt the list.
        if (IsClosed() || AppList()->Generation() != generation) return;
    }
}

void Window1::JudgeRow(int64_t row, double documentVersion) {
    myListBox& list = *AppList();
    const double version = ComparedVersion(list.Cell(row, 1));
    const bool allowsHigher = !IsInstalled || Preferences::gAllowOpenHigherVersion;
    const bool usable = version == documentVersion || (allowsHigher && version > documentVersion);
    list.SetCellTag(row, 1, usable);
    const LocalizedText& reason =
        version < documentVersion ? LocalizedNote::kOlder : LocalizedNote::kNewer;
    const std::string key = Keyboard::CommandKeyName();
    list.SetRowHelpTag(row, usable ? "" : LocalizedNote::WithName(reason, key));
    if (!usable) return;
    const bool isRunning = !list.Cell(row, 2).empty();
    if (IsInstalled ? version == documentVersion : isRunning) list.SetListIndex(row);
}

void Window1::AppList_Change(Listbox& list) {
    for (const Ref<PushButton>& button : {PushButton1(), PushButton3()}) {
        button->SetEnabled(false);
        button->SetDefault(false);
        button->SetHelpTag("");
    }
    PushButton1()->SetCaption(Localized::kOpen(""));
    PushButton3()->SetCaption(Localized::kQuit(""));
    if (list.ListIndex() != -1) UpdateButtons(list.ListIndex());
}

void Window1::UpdateButtons(int64_t row) {
    const myListBox& list = *AppList();
    const std::string& name = list.Cell(row, 0);
    PushButton1()->SetHelpTag(list.RowHelpTag(row));
    if (list.CellTag(row, 1).BooleanValue()) {
        PushButton1()->SetEnabled(true);
        PushButton1()->SetCaption(CaptionWith(Localized::kCapOpenWith, ShortName(name)));
        PushButton1()->SetHelpTag(name);
    }
    if (!list.Cell(row, 2).empty()) {
        PushButton3()->SetEnabled(true);
        PushButton3()->SetCaption(CaptionWith(Localized::kCapQuit, ShortName(name)));
        PushButton3()->SetHelpTag(name);
    }
    PushButton1()->SetDefault(!Preferences::gAllowQuitButtonActiveted);
    PushButton3()->SetDefault(Preferences::gAllowQuitButtonActiveted);
}

void Window1::CheckBox1_Action(CheckBox& checkBox) {
    Preferences::gAllowOpenHigherVersion = checkBox.Value();
    SetEaseUse();
    AppList()->InvalidateCell(-1, -1);
}

void Window1::CheckBox2_Action(CheckBox& checkBox) {
    Preferences::gAllowQuitButtonActiveted = checkBox.Value();
    AppList()->SetListIndex(AppList()->ListIndex());
}

}  // namespace dunvey
