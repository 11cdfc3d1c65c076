#include "platform/qt/display.h"
#include "platform/qt/qt_desktop.h"

extern "C" __attribute__((visibility("default"))) dunvey::Desktop* DunveyMakeDesktop() {
    // The toolkit aborts the whole process where it finds no display.
    const std::optional<dunvey::DisplayHold> hold = dunvey::ReachDisplay();
    if (!hold) {
        throw dunvey::DesktopUnavailableException(
            "No display can be reached, so nothing can be asked or shown. Start Dunvey in a "
            "desktop "
            "session, or set DISPLAY.");
    }
    return new dunvey::QtDesktop();
}
