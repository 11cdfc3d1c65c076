#include "chooser/window1.h"
#include "menus/localized.h"
#include "menus/spoken.h"
#include "persistence/preferences.h"
#include "platform/loop/event_loop.h"
#include "platform/text/reg_ex_xojo.h"
#include "platform/text/text.h"
#include "platform/values/array.h"

namespace dunvey {
namespace {

/// The number by which an application is compared with a document: the major version; 7.5 is the
/// only one whose second field counts.
double ComparedVersion(const std::string& version) {
    const std::vector<std::string> fields = SplitB(version, ".");
    if (fields.size() > 1 && fields[0] + "." + fields[1] == "7.5") return 7.5;
    return fields.empty() ? 0 : Val(fields[0]);
}

/// "CS5.5" of "Adobe InDesign CS5.5", "CC" of "Adobe InDesign CC 2019".
std::string ShortName(const std::string& name) {
    const std::string bare = Replace(Replace(name, "Adobe InDesign ", ""), ".app", "");
    return RegExXojo::Replace(bare, " .+", "", 0, true);
}

/// The caption with the name of an application, in the word order of the user's language.
std::string CaptionWith(const LocalizedText& words, const std::string& name) {
    return Localized::kLang("") == "ja" ? name + words("") : words("") + name;
}

}  // namespace

void Window1::SetEaseUse() {
    const int64_t last = AppList()->ListCount() - 1;
    if (last == -1) return;
    const double documentVersion = Val(Document()->Ver);
    const int64_t filling = AppList()->Filling();
    for (int64_t row = 0; row <= last; ++row) {
        JudgeRow(row, documentVersion);
        RuntimeBackgroundTask();
        // The turn may have closed the window, or filled the list anew.
        if (IsClosed() || AppList()->Filling() != filling) return;
    }
}

void Window1::JudgeRow(int64_t row, double documentVersion) {
    SetUsable(row, false);
    const double version = ComparedVersion(AppList()->Cell(row, 1));
    if (!IsInstalled || Preferences::gAllowOpenHigherVersion) {
        if (version < documentVersion) return;
        SetUsable(row, true);
        const bool isRunning = !AppList()->Cell(row, 2).empty();
        if (IsInstalled ? version == documentVersion : isRunning) AppList()->SetListIndex(row);
    } else if (version == documentVersion) {
        SetUsable(row, true);
        AppList()->SetListIndex(row);
    }
}

void Window1::SetUsable(int64_t row, bool usable) {
    myListBox& list = *AppList();
    list.SetCellTag(row, 1, usable);
    std::string description = list.Cell(row, 0) + ", " + list.Cell(row, 1);
    if (!list.Cell(row, 2).empty()) description += ", " + list.Cell(row, 2);
    list.SetRowHelpTag(
        row, description + ", " + (usable ? Spoken::kCanOpen("") : Spoken::kCannotOpen("")));
}

void Window1::AppList_Change(Listbox& list) {
    PushButton1()->SetCaption(Localized::kOpen(""));
    PushButton3()->SetCaption(Localized::kQuit(""));
    PushButton1()->SetEnabled(false);
    PushButton3()->SetEnabled(false);
    PushButton1()->SetDefault(false);
    PushButton3()->SetDefault(false);
    const int64_t row = list.ListIndex();
    if (row == -1) return;
    const bool usable = list.CellTag(row, 1).BooleanValue();
    const std::string name = ShortName(list.Cell(row, 0));
    if (usable) {
        PushButton1()->SetEnabled(true);
        PushButton1()->SetCaption(CaptionWith(Localized::kCapOpenWith, name));
    }
    if (!list.Cell(row, 2).empty()) {
        PushButton3()->SetEnabled(true);
        PushButton3()->SetCaption(CaptionWith(Localized::kCapQuit, name));
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
