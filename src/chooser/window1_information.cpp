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
    LabelAppName()->SetText(Replace(Replace(record->AppName, "Adobe ", ""), ".app", "") + " (v" +
                            record->Ver + ")");
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
    // The list has the focus when the window comes up: with it a screen reader says what the head
    // of the window shows.
    std::string description = LabelFileName()->Text() + ", " + LabelAppName()->Text();
    if (!LabelMsg()->Text().empty()) description += ". " + LabelMsg()->Text();
    AppList()->SetSpokenName(description);
}

void Window1::Warn() {
    Canvas2()->SetBackdrop(Icon::GetAlertCaution(Canvas2()->Width()));
    LabelMsg()->SetTextColor(kWarning);
}

}  // namespace dunvey
