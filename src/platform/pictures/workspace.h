#pragma once

#include <string>

#include "platform/loop/desktop.h"
#include "platform/pictures/native_image.h"
#include "platform/values/reference.h"

namespace dunvey {

/// The icons of files and file types. Each operation loads the desktop and raises
/// DesktopUnavailableException without a display.
class NSWorkspace {
 public:
    static NSWorkspace sharedWorkspace() { return {}; }

    /// The icon of the file or folder at an absolute path; never nil. A path to nothing gives the
    /// icon of a plain file.
    Ref<NSImage> iconForFile(const std::string& path) const {
        return Desktop::Current().IconForFile(path);
    }
    /// The icon of an extension, or of a four-letter code in single quotes; never nil. An unknown
    /// type gives the icon of a plain file.
    Ref<NSImage> iconForFileType(const std::string& type) const {
        return Desktop::Current().IconForFileType(type);
    }
};

}  // namespace dunvey
