#include "platform/desktop.h"

namespace dunvey {
namespace {

Desktop::Loader loadDesktop = nullptr;
std::unique_ptr<Desktop> installed;

}  // namespace

void Desktop::SetLoader(Loader loader) {
    loadDesktop = loader;
}

void Desktop::Install(std::unique_ptr<Desktop> desktop) {
    installed = std::move(desktop);
}

Desktop& Desktop::Current() {
    if (!installed) {
        if (loadDesktop == nullptr) throw DesktopUnavailableException("There is no desktop.");
        installed = loadDesktop();
    }
    return *installed;
}

bool Desktop::IsLoaded() {
    return installed != nullptr;
}

}  // namespace dunvey
