#include "platform/files/special_folder.h"

#include "platform/files/path.h"

namespace dunvey::SpecialFolder {

Ref<FolderItem> Applications() {
    return New<FolderItem>("/Applications");
}

Ref<FolderItem> ApplicationData() {
    return New<FolderItem>(HomePath() + "/Library/Application Support");
}

}  // namespace dunvey::SpecialFolder
