#pragma once

#include <string>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey::InDesign {

/// The version text of an application, such as "8.1.0": what its property list says. "0.0.0" where
/// it can't be told, "2.0.?" where the name holds "2.0". Reads the disk on every call.
std::string AppVersion(const Ref<FolderItem>& application);

}  // namespace dunvey::InDesign
