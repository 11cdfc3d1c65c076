#pragma once

#include <string>

#include "platform/files/folder_item.h"

namespace dunvey {

/// The absolute path of the running executable, links resolved. Raises IOException if it can't be
/// determined.
std::string ExecutablePath();

/// The folder "Resources" of the running program's bundle.
inline Ref<FolderItem> OwnResources() {
    return FolderItem(ExecutablePath()).Parent()->Parent()->Child("Resources");
}

}  // namespace dunvey
