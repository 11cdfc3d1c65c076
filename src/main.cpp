#include <dlfcn.h>

#include "app/process_start.h"
#include "platform/loop/application.h"
#include "platform/loop/desktop.h"
#include "platform/loop/event_loop.h"
#include "platform/loop/launch_documents.h"
#include "platform/processes/error_line.h"
#include "platform/processes/process_setup.h"
#include "platform/processes/shell_environment.h"

using namespace dunvey;

namespace {

constexpr const char* kPlugin = "libDunveyQt.so";

[[noreturn]] void RefusePlugin() {
    const char* const reason = dlerror();
    throw DesktopUnavailableException(
        std::string("The Qt plug-in can't be loaded: ") +
        (reason != nullptr ? reason : "unknown reason") +
        ". Install Dunvey again, with the Qt libraries that its package names.");
}

/// Makes the desktop of the plug-in in the bundle's PlugIns folder.
std::unique_ptr<Desktop> LoadDesktop() {
    const Ref<FolderItem> contents = Application::ExecutableFile()->Parent()->Parent();
    const std::string path = contents->Child("PlugIns")->Child(kPlugin)->NativePath();
    void* const plugin = dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL);
    if (plugin == nullptr) RefusePlugin();
    void* const make = dlsym(plugin, "DunveyMakeDesktop");
    if (make == nullptr) RefusePlugin();
    return std::unique_ptr<Desktop>(reinterpret_cast<MakeDesktop*>(make)());
}

}  // namespace

int main(int argc, char** argv) {
    SetUpProcess();
    if (IsOpeningLoop()) {
        WriteErrorLine(
            "Dunvey: nothing is opened. A command registered with dunvey-register starts Dunvey "
            "again and again: give it another command.");
        return 1;
    }
    EventLoop loop;
    Desktop::SetLoader(&LoadDesktop);
    if (argc > 1) launchArguments.assign(argv + 1, argv + argc);
    return _Main();
}
