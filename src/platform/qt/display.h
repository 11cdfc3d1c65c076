#pragma once

#include <memory>
#include <optional>
#include <string>

namespace dunvey {

struct Display {
    /// The Qt platform that can start, such as "xcb"; empty for Qt's own choice.
    std::string platform;
    /// Kept open until Qt has its own: some X servers reset when the last client disconnects.
    std::shared_ptr<void> connection;
};

/// The first usable one of the platforms in QT_QPA_PLATFORM, else X11, else Wayland; nullopt if
/// none is. Qt ends the process when it is started on a platform that isn't usable.
std::optional<Display> ReachDisplay();

}  // namespace dunvey
