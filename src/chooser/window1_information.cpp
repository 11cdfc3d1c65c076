#include "chooser/window1.h"
#include "icons/icon.h"
#include "menus/localized.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr Color kWarning{0xFB0C43};

}  // namespace

void Window1::SetFileInfo() {
    Canvas1()->SetBackdrop(nullptr);
    Canvas2()->SetBackdrop(nullptr);
    LabelFileName()->SetText("");
    LabelAppName()->SetText("");
    LabelMsg()->SetText("");
    const Ref<FileClass> record = Document();
    Canvas1()->SetBackdrop(Icon::Get(record->File, Canvas1()->Width()));
    LabelFileName()->SetText(record->File->Name());
    LabelFileName()->SetHelpTag(record->File->NativePath());
    LabelAppName()->SetText(Replace(Replace(record->AppName, "Adobe ", ""), ".app", "") + " (v" +
                            record->Ver + ")");
    const bool isVersionKnown = Val(record->Ver) != 0;
    LabelAppName()->SetHelpTag(isVersionKnown ? "" : LocalizedNote::kVersionUnknown(""));
    if (NeedJudgment) Warn();
    if (!IsBootingApp && IsBootingOtherApp) {
        Warn();
        LabelMsg()->SetText(Localized::kMassage_AnotherVerAppBooting(""));
    }
    if (!IsInstalled) {
        Warn();
        LabelMsg()->SetText(Localized::kMassage_SameVerAppNotInstalled(""));
    }
    if (AppList()->ListCount() == 0) {
        Warn();
        LabelMsg()->SetText(Localized::kMassage_AppNotInstalled(""));
    }
    // The list has the focus when the window opens, so a screen reader reads its name first.
    std::string head = LabelFileName()->Text() + ", " + LabelAppName()->Text();
    for (const std::string& note : {LabelAppName()->HelpTag(), LabelMsg()->Text()}) {
        if (!note.empty()) head += ". " + note;
    }
    AppList()->SetSpokenName(head);
}

void Window1::Warn() {
    Canvas2()->SetBackdrop(Icon::GetAlertCaution(Canvas2()->Width()));
    LabelMsg()->SetTextColor(kWarning);
}

}  // namespace dunvey
