#include "chooser/about_window.h"

#include <algorithm>

#include "icons/icon.h"
#include "platform/loop/application.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr Size kDesign{306, 183};
constexpr Locks kTopLeft{.Left = true, .Top = true};

}  // namespace

AboutWindow::AboutWindow() : Window(kDesign) {
    SetMinWidth(64);
    SetMinHeight(64);
    SetMaxWidth(32000);
    SetMaxHeight(32000);
    Frame = kDocument;
    CloseButton = true;
    Resizeable = false;
    MaximizeButton = false;
    MinimizeButton = false;
    FullScreenButton = false;
    Placement = kMainScreen;
    canvasAppIcon_ = Make<Canvas>("CanvasAppIcon", {121, 9, 64, 64}, kTopLeft, 0);
    canvasAppIcon_->Paint = [this](Canvas& canvas, Graphics& graphics) {
        CanvasAppIcon_Paint(canvas, graphics);
    };
    labelName_ = MakeLine("LabelName", 84, 1, 14);
    labelName_->SetBold(true);
    labelVersion_ = MakeLine("LabelVersion", 126, 2, 10);
    labelCopyright_ = MakeLine("LabelCopyright", 147, 3, 10);
}

Ref<Label> AboutWindow::MakeLine(const char* name, int64_t top, int64_t tabIndex,
                                 int64_t textSize) {
    const Ref<Label> label = Make<Label>(name, {0, top, kDesign.Width, 20}, kTopLeft, tabIndex);
    label->SetTextAlign(Label::kAlignCentre);
    label->SetTextSize(textSize);
    return label;
}

Ref<AboutWindow> AboutWindow::Instance() {
    static std::weak_ptr<AboutWindow> last;
    Ref<AboutWindow> window(last.lock());
    if (!window || window->IsClosed()) window = New<AboutWindow>();
    last = window.Shared();
    return window;
}

void AboutWindow::Event_Open() {
    LabelName()->SetText(Application::ExecutableFile()->Name());
    LabelVersion()->SetText(
        "Version " + Str(Application::MajorVersion()) + "." + Str(Application::MinorVersion()) +
        "." + Str(Application::BugVersion()) + " (" + Str(Application::NonReleaseVersion()) + ")");
    LabelCopyright()->SetText(Application::LongVersion());
}

void AboutWindow::CanvasAppIcon_Paint(Canvas&, Graphics& graphics) {
    const Ref<FolderItem> bundle = Application::ExecutableFile()->Parent()->Parent()->Parent();
    const int64_t size = std::min(graphics.Width(), graphics.Height());
    if (const Ref<Picture> icon = Icon::Get(bundle, size)) graphics.DrawPicture(*icon, 0, 0);
}

}  // namespace dunvey
