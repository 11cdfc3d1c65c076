#pragma once

#include <string>

#include "platform/pictures/native_image.h"
#include "platform/values/reference.h"

namespace dunvey {

/// The image that stands for the file or folder at an absolute path, which exists.
Ref<NSImage> QtIconForFile(const std::string& path);

/// The image of a file type: an extension, or a four-letter code in single quotes.
Ref<NSImage> QtIconForFileType(const std::string& type);

}  // namespace dunvey
