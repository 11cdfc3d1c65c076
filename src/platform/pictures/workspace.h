#pragma once

#include <string>

#include "platform/pictures/native_image.h"
#include "platform/values/reference.h"

namespace dunvey {

/// What the operating system knows of files and file types. It loads the desktop, so each operation
/// raises DesktopUnavailableException where there is no screen.
class NSWorkspace {
 public:
    static const NSWorkspace& sharedWorkspace();

    /// The image that stands for the file or folder at an absolute path; never nil. For a path that
    /// leads nowhere it is that of a plain file.
    Ref<NSImage> iconForFile(const std::string& path) const;
    /// The image of an extension, or of a four-letter code in single quotes; never nil. What isn't
    /// known gives that of a plain file.
    Ref<NSImage> iconForFileType(const std::string& type) const;
};

}  // namespace dunvey
