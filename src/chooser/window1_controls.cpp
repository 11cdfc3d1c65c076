#include "chooser/window1.h"
#include "menus/localized.h"

namespace dunvey {
namespace {

constexpr Locks kTopLine{.Left = true, .Top = true, .Right = true};
constexpr Locks kTopLeft{.Left = true, .Top = true};
constexpr Locks kBottomLeft{.Left = true, .Bottom = true};
constexpr Locks kBottomRight{.Right = true, .Bottom = true};
constexpr Locks kBottomLine{.Left = true, .Right = true, .Bottom = true};
constexpr Locks kAllEdges{true, true, true, true};

void PrepareColumns(Listbox& list) {
    list.SetColumnCount(3);
    list.SetHeading(0, LocalizedNote::kApplication(""));
    list.SetHeading(1, LocalizedNote::kVersion(""));
    list.SetHeading(2, LocalizedNote::kState(""));
    list.SetColumnWidths("*,90,64");
    list.SetDefaultRowHeight(26);
}

}  // namespace

void Window1::CreateControls() {
    _CreateControls0();
    JoinHandlers();
}

void Window1::_CreateControls0() {
    appList_ = Make<myListBox>("AppList", {20, 109, 410, 449}, kAllEdges, 0);
    PrepareColumns(*appList_);
    pushButton1_ = Make<PushButton>("PushButton1", {285, 570, 145, 20}, kBottomRight, 1);
    pushButton1_->SetCaption(Localized::kOpen(""));
    pushButton1_->SetEnabled(false);
    pushButton2_ = Make<PushButton>("PushButton2", {186, 570, 90, 20}, kBottomRight, 2);
    pushButton2_->SetCaption(Localized::kCancel(""));
    pushButton2_->SetCancel(true);
    pushButton3_ = Make<PushButton>("PushButton3", {20, 570, 135, 20}, kBottomLeft, 3);
    pushButton3_->SetCaption(Localized::kQuit(""));
    pushButton3_->SetEnabled(false);
    separator3_ = Make<Separator>("Separator3", {20, 612, 410, 4}, kBottomLine, 5);
    checkBox1_ = Make<CheckBox>("CheckBox1", {20, 628, 409, 20}, kBottomLeft, 6);
    checkBox1_->SetCaption(Localized::kAllowOpenHigherVersion(""));
    checkBox2_ = Make<CheckBox>("CheckBox2", {20, 660, 410, 20}, kBottomLeft, 7);
    checkBox2_->SetCaption(Localized::kAllowQuitButtonActiveted(""));
    labelFileName_ = Make<Label>("LabelFileName", {72, 13, 358, 20}, kTopLine, 8);
    labelFileName_->SetText("file name");
    labelAppName_ = Make<Label>("LabelAppName", {72, 40, 358, 24}, kTopLine, 9);
    labelAppName_->SetText("app version");
    labelAppName_->SetTextSize(17);
    canvas1_ = Make<Canvas>("Canvas1", {18, 13, 46, 46}, kTopLeft, 10);
    separator1_ = Make<Separator>("Separator1", {20, 66, 410, 7}, kTopLine, 11);
    labelMsg_ = Make<Label>("LabelMsg", {0, 78, 450, 24}, kTopLine, 12);
    labelMsg_->SetText("message");
    labelMsg_->SetTextAlign(Label::kAlignCentre);
    labelMsg_->SetTextColor({0xFF0000});
    labelMsg_->SetTextSize(15);
    separator2_ = Make<Separator>("Separator2", {68, 33, 362, 6}, kTopLine, 13);
    canvas2_ = Make<Canvas>("Canvas2", {15, 36, 32, 32}, kTopLeft, 15);
}

void Window1::JoinHandlers() {
    appList_->Open = [this](Listbox& list) { AppList_Open(list); };
    appList_->CellTextPaint = [this](Listbox& list, Graphics& graphics, int64_t row, int64_t column,
                                     int64_t x, int64_t y) {
        return AppList_CellTextPaint(list, graphics, row, column, x, y);
    };
    appList_->Change = [this](Listbox& list) { AppList_Change(list); };
    appList_->DoubleClickHandler = [this](Listbox& list) { AppList_DoubleClick(list); };
    pushButton1_->Action = [this](PushButton& button) { PushButton1_Action(button); };
    pushButton2_->Action = [this](PushButton& button) { PushButton2_Action(button); };
    pushButton3_->Action = [this](PushButton& button) { PushButton3_Action(button); };
    checkBox1_->Action = [this](CheckBox& checkBox) { CheckBox1_Action(checkBox); };
    checkBox2_->Action = [this](CheckBox& checkBox) { CheckBox2_Action(checkBox); };
    canvas1_->MouseDownHandler = [this](Canvas& canvas, int64_t x, int64_t y) {
        return Canvas1_MouseDown(canvas, x, y);
    };
    canvas1_->MouseUpHandler = [this](Canvas& canvas, int64_t x, int64_t y) {
        Canvas1_MouseUp(canvas, x, y);
    };
}

}  // namespace dunvey
