#pragma once

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey::SpecialFolder {

/// The applications folder. On Linux `/Applications` if that is a folder, else `Applications` in
/// the user's home.
Ref<FolderItem> Applications();

/// The user's application-data folder. On Linux `$XDG_CONFIG_HOME` if that is an absolute path,
/// else `.config` in the user's home; created if it is missing.
Ref<FolderItem> ApplicationData();

}  // namespace dunvey::SpecialFolder
