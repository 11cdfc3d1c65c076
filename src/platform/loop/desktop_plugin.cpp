#include "platform/loop/desktop_plugin.h"

#include <dlfcn.h>

#include "platform/loop/application.h"

namespace dunvey {
namespace {

[[noreturn]] void Refuse() {
    const char* reason = dlerror();
    throw DesktopUnavailableException(std::string("The part that shows windows can't be loaded: ") +
                                      (reason != nullptr ? reason : "unknown reason") +
                                      ". Install Dunvey again; Qt is needed, as its package says.");
}

}  // namespace

std::unique_ptr<Desktop> LoadDesktopPlugin(const std::string& name, void (*loaded)()) {
    const Ref<FolderItem> contents = Application::ExecutableFile()->Parent()->Parent();
    const std::string path = contents->Child("PlugIns")->Child(name)->NativePath();
    void* plugin = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (plugin == nullptr) Refuse();
    void* make = dlsym(plugin, "DunveyMakeDesktop");
    if (make == nullptr) Refuse();
    loaded();
    return std::unique_ptr<Desktop>(reinterpret_cast<MakeDesktop*>(make)());
}

}  // namespace dunvey
