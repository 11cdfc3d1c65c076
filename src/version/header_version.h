#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey::InDesign {

/// The version in a document's header: major and minor number, each 0 to 255; 0 and 0 if none is
/// found or the file can't be read. Reads the first 48 bytes and tries only the patterns of the
/// given extension, whose letter case doesn't count.
std::vector<int64_t> GetVerHexToDec(const Ref<FolderItem>& item, const std::string& extension);

}  // namespace dunvey::InDesign
