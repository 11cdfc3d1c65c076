#include "app/process_start.h"
#include "platform/desktop.h"
#include "platform/desktop_plugin.h"
#include "platform/event_loop.h"
#include "platform/launch_documents.h"
#include "platform/process_setup.h"

using namespace dunvey;

namespace {

std::unique_ptr<Desktop> LoadQtDesktop() {
    return LoadDesktopPlugin("libDunveyQt.so");
}

}  // namespace

int main(int argc, char** argv) {
    SetUpProcess();
    EventLoop loop;
    Desktop::SetLoader(&LoadQtDesktop);
    KeepLaunchWords({argv + (argc > 0 ? 1 : 0), argv + argc});
    return _Main();
}
