#include "chooser/window1.h"

#include "app/app.h"
#include "app/open_decision.h"
#include "menus/localized.h"
#include "menus/main_menu_bar.h"
#include "platform/values/array.h"
#include "version/booting_apps.h"

namespace dunvey {
namespace {

constexpr Size kDesign{450, 700};

}  // namespace

Window1::Window1() : Window(kDesign) {
    Window1::Layout();
    Window1::CreateControls();
}

void Window1::Layout() {
    SetTitle(Localized::kNotificationWindowTitle(""));
    SetMenuBar(MainMenuBar::Instance());
    Frame = kMovableModal;
    SetMinWidth(kDesign.Width);
    SetMinHeight(kMinHeight);
    SetMaxWidth(32000);
    SetMaxHeight(32000);
    Resizeable = true;
    CloseButton = false;
    MaximizeButton = false;
    MinimizeButton = false;
    FullScreenButton = false;
    Placement = kDefaultPlacement;
}

void Window1::Event_Open() {
    for (const int kind :
         {NSWindow::kCloseButton, NSWindow::kMiniaturizeButton, NSWindow::kZoomButton}) {
        Handle()->standardWindowButton(kind)->setHidden(true);
    }
}

Ref<FileClass> Window1::Document() const {
    return At(App::Instance()->Files, idx);
}

void Window1::ReView() {
    JudgeFile();
    SetAppList();
    SetFileInfo();
    SetEaseUse();
}

void Window1::JudgeFile() {
    const Ref<FileClass> record = Document();
    InDesign::GetBootingAppNames();
    const RunningFlags running = JudgeRunning(InDesign::BootingAppNames, record->AppName);
    IsBootingApp = running.IsBootingApp;
    IsBootingOtherApp = running.IsBootingOtherApp;
    NeedJudgment = NeedsJudgment(running, IsInstalled);
}

bool Window1::Canvas1_MouseDown(Canvas&, int64_t, int64_t) {
    return true;
}

void Window1::Canvas1_MouseUp(Canvas&, int64_t, int64_t) {}

}  // namespace dunvey
