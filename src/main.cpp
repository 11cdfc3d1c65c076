#include "app/process_start.h"
#include "platform/desktop.h"
#include "platform/desktop_plugin.h"
#include "platform/event_loop.h"
#include "platform/font_settings.h"
#include "platform/launch_documents.h"
#include "platform/process_setup.h"

using namespace dunvey;

namespace {

void PrepareQtDesktop() {
    FontSettings::ReadAhead();
}

std::unique_ptr<Desktop> LoadQtDesktop() {
    FontSettings::ReadAhead();
    // The toolkit changes the environment, which nobody may read meanwhile.
    return LoadDesktopPlugin("libDunveyQt.so", &FontSettings::Await);
}

}  // namespace

int main(int argc, char** argv) {
    SetUpProcess();
    EventLoop loop;
    Desktop::SetLoader(&LoadQtDesktop, &PrepareQtDesktop);
    KeepLaunchWords({argv + (argc > 0 ? 1 : 0), argv + argc});
    return _Main();
}
