// Shows a window with the chooser's places and settings until it is closed. Word: the number of
// rows.
#include <cstdlib>

#include "design_window.h"
#include "platform/application.h"
#include "platform/qt/qt_desktop.h"

using namespace dunvey;

namespace {

class Shower final : public Application {
 public:
    explicit Shower(int rows) : rows_(rows) {}
    void Event_OpenDocument(const Ref<FolderItem>&) override {}
    void Event_Open() override {
        const Ref<test::DesignWindow> window = New<test::DesignWindow>(rows_);
        window->open->SetDefault(true);
        window->open->SetCaption("Open with R&D 2020");
        window->list->SetListIndex(2);
        window->list->Change = [](Listbox& list) {
            printf("selected %d\n", static_cast<int>(list.ListIndex()));
            fflush(stdout);
        };
        window->open->Action = [](PushButton&) { Quit(3); };
        window->ShowModal();
        Quit(0);
    }

 private:
    int rows_;
};

}  // namespace

int main(int argc, char** argv) {
    EventLoop loop;
    Desktop::Install(std::make_unique<QtDesktop>());
    Application::Register(New<Shower>(argc > 1 ? std::atoi(argv[1]) : 5));
    const int exitCode = loop.Run(*Application::Current());
    Desktop::Install(nullptr);
    return exitCode;
}
