#include "app/process_start.h"
#include "platform/desktop.h"
#include "platform/desktop_plugin.h"
#include "platform/event_loop.h"
#include "platform/launch_documents.h"

using namespace dunvey;

namespace {

std::unique_ptr<Desktop> LoadQtDesktop() {
    return LoadDesktopPlugin("libDunveyQt.so");
}

}  // namespace

int main(int argc, char** argv) {
    EventLoop loop;
    Desktop::SetLoader(&LoadQtDesktop);
    PostLaunchDocuments(loop, {argv + (argc > 0 ? 1 : 0), argv + argc});
    return _Main();
}
