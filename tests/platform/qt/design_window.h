#pragma once

#include <string>
#include <vector>

#include "platform/canvas.h"
#include "platform/check_box.h"
#include "platform/label.h"
#include "platform/listbox.h"
#include "platform/push_button.h"
#include "platform/separator.h"
#include "platform/window.h"

namespace dunvey::test {

/// A list with stripes, hair lines and grey rows.
class StripedList final : public Listbox {
 public:
    bool Event_CellBackgroundPaint(Graphics& graphics, int64_t row, int64_t column) override {
        if (Selected(row)) return true;
        graphics.ForeColor = {0xF1F2F2};
        if (row % 2 == 1) graphics.FillRect(0, 0, graphics.Width(), graphics.Height());
        graphics.ForeColor = {0xD5D5D5};
        const int64_t right = graphics.Width() - 1;
        const int64_t bottom = graphics.Height() - 1;
        graphics.DrawLine(0, bottom, right + 1, bottom);
        if (column < ColumnCount() - 1) graphics.DrawLine(right, 0, right, bottom);
        return false;
    }
    bool Event_CellTextPaint(Graphics& graphics, int64_t row, int64_t, int64_t, int64_t) override {
        if (row != ListIndex() && !CellTag(row, 1).BooleanValue()) graphics.ForeColor = {0x999999};
        return false;
    }
};

/// A picture in one colour, in resolutions of one and two pixels to the point.
inline Ref<Picture> PlainPicture(int64_t size, uint32_t color) {
    std::vector<Ref<Picture>> images;
    for (const int64_t scale : {1, 2}) {
        images.push_back(New<Picture>(size * scale, size * scale));
        for (uint32_t& pixel : images.back()->Pixels().Pixels)
            pixel = color;
    }
    return New<Picture>(size, size, images);
}

/// A window with the places, sizes and settings of the chooser, and no logic.
class DesignWindow final : public Window {
 public:
    explicit DesignWindow(int rows) : Window({450, 700}) {
        constexpr Locks kTopLine{true, true, true, false};
        constexpr Locks kTopLeft{true, true, false, false};
        constexpr Locks kBottomLeft{true, false, false, true};
        constexpr Locks kBottomRight{false, false, true, true};
        constexpr Locks kBottomLine{true, false, true, true};
        Place(list, "list", {20, 109, 410, 449}, {true, true, true, true}, 0);
        Place(open, "open", {285, 570, 145, 20}, kBottomRight, 1);
        Place(cancel, "cancel", {186, 570, 90, 20}, kBottomRight, 2);
        Place(quit, "quit", {20, 570, 135, 20}, kBottomLeft, 3);
        Place(lowLine, "lowLine", {20, 612, 410, 4}, kBottomLine, 5);
        Place(higher, "higher", {20, 628, 409, 20}, kBottomLeft, 6);
        Place(quitting, "quitting", {20, 660, 410, 20}, kBottomLeft, 7);
        Place(name, "name", {72, 13, 358, 20}, kTopLine, 8);
        Place(version, "version", {72, 40, 358, 24}, kTopLine, 9);
        Place(icon, "icon", {18, 13, 46, 46}, kTopLeft, 10);
        Place(headLine, "headLine", {20, 66, 410, 7}, kTopLine, 11);
        Place(message, "message", {0, 78, 450, 24}, kTopLine, 12);
        Place(nameLine, "nameLine", {68, 33, 362, 6}, kTopLine, 13);
        Place(badge, "badge", {15, 36, 32, 32}, kTopLeft, 15);
        Prepare(rows);
    }

    const Ref<StripedList> list = New<StripedList>();
    const Ref<PushButton> open = New<PushButton>();
    const Ref<PushButton> cancel = New<PushButton>();
    const Ref<PushButton> quit = New<PushButton>();
    const Ref<Separator> lowLine = New<Separator>();
    const Ref<CheckBox> higher = New<CheckBox>();
    const Ref<CheckBox> quitting = New<CheckBox>();
    const Ref<Label> name = New<Label>();
    const Ref<Label> version = New<Label>();
    const Ref<Canvas> icon = New<Canvas>();
    const Ref<Separator> headLine = New<Separator>();
    const Ref<Label> message = New<Label>();
    const Ref<Separator> nameLine = New<Separator>();
    const Ref<Canvas> badge = New<Canvas>();

 private:
    void Place(const Ref<RectControl>& control, const char* as, const Bounds& place,
               const Locks& locks, int64_t tabIndex) {
        control->SetName(as);
        control->SetDesign(place, locks);
        control->SetTabIndex(tabIndex);
        Add(control);
    }
    void Prepare(int rows) {
        SetTitle("Notification");
        Resizeable = true;
        CloseButton = MinimizeButton = false;
        SetMinWidth(450);
        const int64_t height = 356 + (rows > 4 ? 26 * (rows - 3) : 0);
        SetMinHeight(height);
        SetHeight(height);
        list->SetColumnCount(3);
        list->SetColumnWidths("*,90,64");
        list->SetDefaultRowHeight(26);
        for (const int column : {1, 2})
            list->SetColumnAlignment(column, Listbox::kAlignCentre);
        for (int row = 0; row < rows; ++row)
            AddApplication(row);
        open->SetCaption("Open");
        cancel->SetCaption("Cancel");
        cancel->SetCancel(true);
        cancel->Action = [this](PushButton&) { Close(); };
        quit->SetCaption("Quit");
        higher->SetCaption("Allow a file to be opened by a higher version");
        quitting->SetCaption("Activate the Quit button");
        name->SetText("Layout.indd");
        version->SetText("InDesign CS6 (v8)");
        version->SetTextSize(17);
        message->SetText("The same version of InDesign.app is not installed.");
        message->SetTextAlign(Label::kAlignCentre);
        message->SetTextColor({0xFB0C43});
        message->SetTextSize(15);
        icon->SetBackdrop(PlainPicture(46, 0xFFC0D0F0));
        badge->SetBackdrop(PlainPicture(32, 0xFFF0B000));
    }
    void AddApplication(int row) {
        const std::string suffix =
            row < 3 ? "CS" + std::to_string(4 + row) : "CC " + std::to_string(2014 + row - 3);
        list->AddRow({"Adobe InDesign " + suffix, std::to_string(6 + row) + ".0.3",
                      row == 1 ? "Booting" : ""});
        list->SetRowPicture(row, PlainPicture(16, 0xFFD05090));
        list->SetCellTag(row, 1, row >= 2);
        list->SetRowDescription(row, suffix + " described");
    }
};

}  // namespace dunvey::test
