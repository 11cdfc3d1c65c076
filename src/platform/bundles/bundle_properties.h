#pragma once

#include <string>

#include "platform/files/folder_item.h"

namespace dunvey {

/// What a bundle's property list says of it; empty where it says nothing, or nothing that is text.
struct BundleProperties {
    std::string shortVersion;
    std::string iconFile;
};

/// The properties in the file "Info.plist" of a bundle's contents. All are empty if it can't be
/// read or parsed, or is larger than a property list may be. The file is read at each call.
BundleProperties ReadBundleProperties(const FolderItem& contents);

}  // namespace dunvey
