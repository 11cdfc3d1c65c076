#include "icons/icon.h"

#include "platform/pictures/workspace.h"

namespace dunvey::Icon {

Ref<Picture> Get(const Ref<FolderItem>& item, int64_t size) {
    if (!item || !item->Exists()) return nullptr;
    return InTwoResolutions(*NSWorkspace::sharedWorkspace().iconForFile(item->NativePath()), size);
}

Ref<Picture> GetForFileType(const std::string& type, int64_t size) {
    return InTwoResolutions(*NSWorkspace::sharedWorkspace().iconForFileType(type), size);
}

Ref<Picture> GetAlertCaution(int64_t size) {
    return GetForFileType("'caut'", size);
}

}  // namespace dunvey::Icon
