#pragma once

#include <string>

#include "platform/files/folder_item.h"

namespace dunvey {

/// Whether the item is the folder of an application: by its name, or by what it holds.
bool IsBundle(const FolderItem& item);

/// The path of the bundle's icon file: the one that its property list names, with or without the
/// extension, else the first one in its resource folder. Empty if there is none; whether it can be
/// used isn't looked at.
std::string BundleIconPath(const FolderItem& bundle);

}  // namespace dunvey
