// Shows one alert of the program on the screen, in the locale's language, until it is answered.
// Argument: quit or icons.
#include <string>
#include <utility>

#include "menus/general.h"
#include "menus/localized.h"
#include "platform/loop/application.h"
#include "platform/loop/event_loop.h"
#include "platform/qt/qt_desktop.h"

using namespace dunvey;

namespace {

void Show(const std::string& alert) {
    using namespace Localized;
    if (alert == "quit") {
        General::ShowAlertQuit(kMassage_SystemRequirement(""), kMassage_Quit(""), nullptr);
    } else {
        General::ShowAlertModalOK(kMassage_Unable_to_import_icon(""), kMassage_put_Dunvey(""),
                                  nullptr);
    }
}

class AlertApplication final : public Application {
 public:
    explicit AlertApplication(std::string alert) : alert_(std::move(alert)) {}
    void Event_Open() override {
        Show(alert_);
        Quit(0);
    }
    void Event_OpenDocument(const Ref<FolderItem>&) override {}

 private:
    const std::string alert_;
};

}  // namespace

int main(int argc, char** argv) {
    EventLoop loop;
    Desktop::Install(std::make_unique<QtDesktop>());
    const Ref<AlertApplication> application = New<AlertApplication>(argc > 1 ? argv[1] : "");
    Application::Register(application);
    const int exitCode = loop.Run(*application);
    Desktop::Install(nullptr);
    return exitCode;
}
