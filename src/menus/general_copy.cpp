#include "menus/general.h"
#include "platform/files/folder_item.h"

namespace dunvey::General {
namespace {

bool CopyFolder(const FolderItem& source, const FolderItem& destination) {
    const Ref<FolderItem> folder = destination.Child(source.Name());
    folder->CreateAsFolder();
    if (!folder->Exists() || !folder->Directory()) return false;
    // The count is asked anew at each step: the folder may change meanwhile.
    for (int64_t position = 1; position <= source.Count(); ++position) {
        const Ref<FolderItem> item = source.TrueItem(position);
        if (!item || !CopyFileOrFolder(item, folder)) return false;
    }
    return true;
}

}  // namespace

bool CopyFileOrFolder(const Ref<FolderItem>& source, const Ref<FolderItem>& destination) {
    if (source->Directory()) return CopyFolder(*source, *destination);
    source->CopyFileTo(*destination);
    return source->LastErrorCode() == 0;
}

}  // namespace dunvey::General
