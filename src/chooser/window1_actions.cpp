#include "app/app.h"
#include "chooser/window1.h"
#include "menus/general.h"
#include "menus/localized.h"
#include "platform/controls/message_dialog.h"
#include "platform/loop/event_loop.h"
#include "platform/loop/keyboard.h"
#include "platform/processes/shell.h"
#include "platform/text/text.h"
#include "platform/values/array.h"
#include "version/booting_apps.h"

namespace dunvey {
namespace {

/// The quit request; the application's path is its argument.
const char kQuitScript[] =
    "on run {AppPath}\n"
    "quit application AppPath\n"
    "delay 1\n"
    "end run";

/// "8.1" of "8.1.0"; a version without a second field is returned unchanged.
std::string MajorAndMinor(const std::string& version) {
    const std::vector<std::string> fields = SplitB(version, ".");
    return fields.size() < 2 ? version : fields[0] + "." + fields[1];
}

/// Shows a note over the list and the busy pointer until destroyed.
class WaitingNote {
 public:
    WaitingNote(Window1& window, const std::string& note)
        : window_(window), noteBefore_(window.AppList()->Note()), busyBefore_(window.Busy()) {
        window_.AppList()->SetNote(note);
        window_.SetBusy(true);
    }
    ~WaitingNote() {
        window_.AppList()->SetNote(noteBefore_);
        window_.SetBusy(busyBefore_);
    }
    WaitingNote(const WaitingNote&) = delete;
    WaitingNote& operator=(const WaitingNote&) = delete;

 private:
    Window1& window_;
    std::string noteBefore_;
    bool busyBefore_;
};

}  // namespace

Ref<FolderItem> Window1::ApplicationAt(int64_t row) const {
    return Ref<Object>(AppList()->CellTag(row, 0).ObjectValue()).As<FolderItem>();
}

Ref<FolderItem> Window1::SelectedApplication() const {
    const int64_t row = AppList()->ListIndex();
    if (row == -1) return nullptr;
    const Ref<FolderItem> application = ApplicationAt(row);
    return application && application->Exists() ? application : nullptr;
}

void Window1::OpenWithSelectApp() {
    const Ref<FolderItem> application = SelectedApplication();
    if (!application) return;
    const std::string version = AppList()->Cell(AppList()->ListIndex(), 1);
    if (InDesign::IsBootedDiffApp(application) && ShowAlertIMixed()) return;
    const Ref<FileClass> record = Document();
    record->WillUseApp = application;
    record->WillUseVer = MajorAndMinor(version);
    Close();
}

bool Window1::ShowAlertIMixed() {
    MessageDialog dialog;
    dialog.Icon = MessageDialog::kCaution;
    dialog.ActionButton->Caption = Localized::kCancel("");
    dialog.DismissButton = dialog.ActionButton;
    dialog.CancelButton->Visible = true;
    dialog.CancelButton->Caption = Localized::kQuitDunvey("");
    dialog.AlternateActionButton->Visible = true;
    dialog.AlternateActionButton->Caption = Localized::kCapIgnoreWarning("");
    dialog.Message = Localized::kMultipleAppWillLaunched("");
    dialog.Explanation = Localized::kCapRecommendNotOpenNow("");
    General::BringFrontmostMe();
    const Ref<MessageDialogButton> pressed = dialog.ShowModalWithin(this);
    if (pressed == dialog.CancelButton) Quit(0);
    return pressed != dialog.AlternateActionButton;
}

void Window1::QuitTheApp(const Ref<FolderItem>& application) {
    const std::string command = "osascript -e " + QuotedShellWord(kQuitScript) + " " +
                                QuotedShellWord(UnixpathMBS(*application));
    const WaitingNote waiting(
        *this, LocalizedNote::WithName(LocalizedNote::kWaiting, ShortName(application->Name())));
    do {
        Shell shell;
        shell.Execute(command, RuntimeBackgroundTask);
        InDesign::GetBootingAppNames();
        RuntimeBackgroundTask();
        // An event may have closed the window.
    } while (!IsClosed() && IndexOf(InDesign::BootingAppNames, application->Name()) != -1);
}

void Window1::PushButton1_Action(PushButton&) {
    OpenWithSelectApp();
}

void Window1::PushButton2_Action(PushButton&) {
    Document()->WillOpen = false;
    Close();
}

void Window1::PushButton3_Action(PushButton&) {
    const Ref<FolderItem> application = SelectedApplication();
    if (!application) return;
    PushButton3()->SetEnabled(false);
    QuitTheApp(application);
    if (!IsClosed()) ReView();
}

void Window1::AppList_DoubleClick(Listbox&) {
    const bool commandKey = Keyboard::AsyncCommandKey();
    if (commandKey || PushButton1()->Enabled()) OpenWithSelectApp();
}

}  // namespace dunvey
