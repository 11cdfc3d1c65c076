#include "platform/loop/desktop.h"

#include <utility>

#include "platform/controls/window.h"

namespace dunvey {
namespace {

Desktop::Loader loadDesktop = nullptr;
void (*prepareDesktop)() = nullptr;
// Never destroyed with the process: where the toolkit ends that from below, windows still stand on
// it. An orderly end takes it away.
Desktop* installed = nullptr;

}  // namespace

void Desktop::SetLoader(Loader loader, void (*prepare)()) {
    loadDesktop = loader;
    prepareDesktop = prepare;
}

void Desktop::Prepare() {
    if (installed == nullptr && prepareDesktop != nullptr) prepareDesktop();
}

void Desktop::Install(std::unique_ptr<Desktop> desktop) {
    Window::LetAllGo();
    delete std::exchange(installed, desktop.release());
}

Desktop& Desktop::Current() {
    if (installed == nullptr) {
        if (loadDesktop == nullptr) throw DesktopUnavailableException("There is no desktop.");
        installed = loadDesktop().release();
    }
    return *installed;
}

void Desktop::Abandon() {
    installed = nullptr;
}

bool Desktop::IsLoaded() {
    return installed != nullptr;
}

}  // namespace dunvey
