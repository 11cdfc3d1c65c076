#include "platform/loop/desktop.h"

#include <utility>

#include "platform/controls/window.h"

namespace dunvey {
namespace {

Desktop::Loader loadDesktop = nullptr;
// A plain pointer, not destroyed at exit: open windows still use it when Qt ends the process
// because the display is lost.
Desktop* installed = nullptr;

}  // namespace

void Desktop::SetLoader(Loader loader) {
    loadDesktop = loader;
}

void Desktop::Install(std::unique_ptr<Desktop> desktop) {
    Window::HideAll();
    delete std::exchange(installed, desktop.release());
}

Desktop& Desktop::Current() {
    if (installed == nullptr) {
        if (loadDesktop == nullptr) throw DesktopUnavailableException("There is no desktop.");
        installed = loadDesktop().release();
    }
    return *installed;
}

bool Desktop::IsLoaded() {
    return installed != nullptr;
}

}  // namespace dunvey
