#include "platform/linux/dock_window.h"

#include <algorithm>

#include "platform/linux/dock_texts.h"
#include "platform/loop/application.h"
#include "platform/loop/event_loop.h"
#include "platform/loop/launch_documents.h"
#include "platform/pictures/workspace.h"

namespace dunvey {
namespace {

constexpr Size kDesign{340, 292};
constexpr Locks kTopLeft{.Left = true, .Top = true};
/// Visible on light and dark windows.
constexpr Color kFrameColor{0x808080};

std::vector<std::string> DocumentsAmong(const std::vector<std::string>& files) {
    return TakeIn(files, Application::Current()->DocumentExtensions()).documents;
}

}  // namespace

DockWindow::DockWindow() : Window(kDesign) {
    SetTitle(Application::ExecutableFile()->Name());
    SetMenuBar(Application::Current()->MenuBar());
    Placement = kMainScreen;
    frame_ = Make<Canvas>("frame", {20, 20, 300, 200}, kTopLeft, 0);
    frame_->Paint = [this](Canvas&, Graphics& graphics) { PaintFrame(graphics); };
    icon_ = Make<Canvas>("icon", {122, 44, 96, 96}, kTopLeft, 1);
    icon_->Paint = [this](Canvas&, Graphics& graphics) { PaintIcon(graphics); };
    line_ = Make<Label>("line", {30, 162, 280, 28}, kTopLeft, 2);
    line_->SetTextAlign(Label::kAlignCentre);
    // With arguments the dock is shown only if none of them is a document.
    line_->SetText(IsNothingToOpen() ? Dock::kNothingToOpen("") : Dock::kDropDocuments(""));
    choose_ = Make<PushButton>("choose", {80, 240, 180, 28}, kTopLeft, 3);
    choose_->SetCaption(Dock::kChooseDocuments(""));
    choose_->SetDefault(true);
    choose_->Action = [this](PushButton&) {
        if (Choose) Choose();
    };
}

void DockWindow::PaintFrame(Graphics& graphics) const {
    constexpr int64_t kDash = 6;
    const int64_t right = graphics.Width() - 2;
    const int64_t bottom = graphics.Height() - 2;
    graphics.ForeColor = kFrameColor;
    for (int64_t x = 0; x < graphics.Width(); x += 2 * kDash) {
        graphics.FillRect(x, 0, kDash, 2);
        graphics.FillRect(x, bottom, kDash, 2);
    }
    for (int64_t y = 0; y < graphics.Height(); y += 2 * kDash) {
        graphics.FillRect(0, y, 2, kDash);
        graphics.FillRect(right, y, 2, kDash);
    }
}

void DockWindow::PaintIcon(Graphics& graphics) const {
    const Ref<FolderItem> bundle = Application::ExecutableFile()->Parent()->Parent()->Parent();
    const Ref<NSImage> image = NSWorkspace::sharedWorkspace().iconForFile(bundle->NativePath());
    const int64_t size = std::min(graphics.Width(), graphics.Height());
    graphics.DrawPicture(*InTwoResolutions(*image, size), 0, 0);
}

bool DockWindow::Drag(UserAction, const std::vector<std::string>& files) {
    const bool has = !DocumentsAmong(files).empty();
    line_->SetText(has ? Dock::kDropDocuments("") : Dock::kNothingToOpen(""));
    return has;
}

void DockWindow::Take(UserAction key, const std::vector<std::string>& files) {
    if (IsClosed() || !Drag(key, files)) return;
    for (const std::string& path : DocumentsAmong(files))
        EventLoop::Current().PostOpenDocument(New<FolderItem>(path));
    Withdraw();
}

void DockWindow::Withdraw() {
    endsProgram_ = false;
    Close();
}

void DockWindow::Event_Close() {
    if (endsProgram_) NSApplication::terminate();
}

}  // namespace dunvey
