#include "platform/qt/display.h"
#include "platform/qt/qt_desktop.h"

extern "C" __attribute__((visibility("default"))) dunvey::Desktop* DunveyMakeDesktop() {
    const std::optional<dunvey::Display> display = dunvey::ReachDisplay();
    if (!display) {
        throw dunvey::DesktopUnavailableException(
            "No display can be reached, so nothing can be asked or shown. Start Dunvey in a "
            "desktop "
            "session, or set DISPLAY. If QT_QPA_PLATFORM is set, it must name a platform with "
            "windows, such as xcb.");
    }
    return new dunvey::QtDesktop(display->platform);
}
