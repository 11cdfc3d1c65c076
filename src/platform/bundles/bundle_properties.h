#pragma once

#include <string>

#include "platform/files/folder_item.h"

namespace dunvey {

/// Texts from a bundle's property list; empty where there is no text under the key.
struct BundleProperties {
    std::string shortVersion;
    std::string iconFile;
    std::string executable;
};

/// The properties in "Info.plist" of the bundle's folder `contents`; all empty if the list can't be
/// read or parsed. The file is read at each call.
BundleProperties ReadBundleProperties(const FolderItem& contents);

}  // namespace dunvey
