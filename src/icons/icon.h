#pragma once

#include <cstdint>
#include <string>

#include "platform/files/folder_item.h"
#include "platform/pictures/picture.h"
#include "platform/values/reference.h"

/// The operating system's icons as pictures that a control can draw. Each has `size` by `size`
/// points and two resolutions: 1 and 2 pixels for each point. Nothing is cached. All raise
/// DesktopUnavailableException without a display.
namespace dunvey::Icon {

/// The icon of a file or folder; nil if the item is nil or doesn't exist.
Ref<Picture> Get(const Ref<FolderItem>& item, int64_t size);

/// The icon of a file type: an extension, or a four-letter code in single quotes.
Ref<Picture> GetForFileType(const std::string& type, int64_t size);

/// The caution sign.
Ref<Picture> GetAlertCaution(int64_t size);

}  // namespace dunvey::Icon
