// Shows one alert of the program on the screen, in the locale's language, until it is answered.
// Argument: quit, icons or mixed.
#include <string>

#include "menus/general.h"
#include "menus/localized.h"
#include "platform/controls/message_dialog.h"
#include "platform/loop/application.h"
#include "platform/qt/qt_desktop.h"

using namespace dunvey;

namespace {

class Shower : public Application {
 public:
    explicit Shower(std::string alert) : alert_(std::move(alert)) {}

    void Event_OpenDocument(const Ref<FolderItem>&) override {}
    void Event_Open() override {
        if (alert_ == "quit") {
            General::ShowAlertQuit(Localized::kMassage_SystemRequirement(""),
                                   Localized::kMassage_Quit(""), nullptr);
        } else if (alert_ == "icons") {
            General::ShowAlertModalOK(Localized::kMassage_Unable_to_import_icon(""),
                                      Localized::kMassage_put_Dunvey(""), nullptr);
        } else {
            ShowThreeButtons();
        }
        Quit(0);
    }

 private:
    static void ShowThreeButtons() {
        MessageDialog dialog;
        dialog.Icon = MessageDialog::kCaution;
        dialog.Message = Localized::kMultipleAppWillLaunched("");
        dialog.Explanation = Localized::kCapRecommendNotOpenNow("");
        dialog.ActionButton->Caption = Localized::kQuitDunvey("");
        dialog.AlternateActionButton->Caption = Localized::kCapIgnoreWarning("");
        dialog.AlternateActionButton->Visible = true;
        dialog.CancelButton->Caption = Localized::kCancel("");
        dialog.CancelButton->Visible = true;
        dialog.ShowModal();
    }

    std::string alert_;
};

}  // namespace

int main(int argc, char** argv) {
    EventLoop loop;
    Desktop::Install(std::make_unique<QtDesktop>());
    Application::Register(New<Shower>(argc > 1 ? argv[1] : ""));
    const int exitCode = loop.Run(*Application::Current());
    Desktop::Install(nullptr);
    return exitCode;
}
