#pragma once

#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey::SpecialFolder {

/// The system's applications folder. On Linux `/Applications` where that is a folder, else
/// `Applications` in the user's home.
Ref<FolderItem> Applications();

/// The user's application-data folder. On Linux `$XDG_CONFIG_HOME` if that is an absolute path,
/// else
/// `.config` in the user's home; made if it is missing.
Ref<FolderItem> ApplicationData();

/// The paths under which processes of the applications folder show up: its own, and where it is
/// reached by a link, the one behind that.
std::vector<std::string> ApplicationsPaths();

}  // namespace dunvey::SpecialFolder
