#pragma once

#include <string>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey::InDesign {

/// The version text of an application, such as "8.1.0", from its property list. "0.0.0" if it isn't
/// known, "2.0.?" if the name contains "2.0". Reads the disk at every call.
std::string AppVersion(const Ref<FolderItem>& application);

}  // namespace dunvey::InDesign
