#pragma once

#include <string>

#include "platform/files/folder_item.h"

namespace dunvey {

/// Whether the item is an application's folder: by its name, or by the property list in it.
bool IsBundle(const FolderItem& item);

/// The path of the bundle's icon file: the one its property list names, with or without extension,
/// else the first .icns file in its resource folder. Empty if there is none.
std::string BundleIconPath(const FolderItem& bundle);

}  // namespace dunvey
