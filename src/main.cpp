#include "app/process_start.h"
#include "platform/loop/desktop.h"
#include "platform/loop/desktop_plugin.h"
#include "platform/loop/early_loading.h"
#include "platform/loop/event_loop.h"
#include "platform/loop/launch_documents.h"
#include "platform/processes/process_setup.h"

using namespace dunvey;

namespace {

std::unique_ptr<Desktop> LoadQtDesktop() {
    EarlyLoading::BeginWithoutLibraries();
    // The toolkit changes the environment, which nobody may read meanwhile.
    return LoadDesktopPlugin("libDunveyQt.so", &EarlyLoading::Await);
}

}  // namespace

int main(int argc, char** argv) {
    SetUpProcess();
    EventLoop loop;
    Desktop::SetLoader(&LoadQtDesktop, &EarlyLoading::Begin);
    KeepLaunchWords({argv + (argc > 0 ? 1 : 0), argv + argc});
    return _Main();
}
