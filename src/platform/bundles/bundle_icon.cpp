#include "platform/bundles/bundle_icon.h"

#include "platform/bundles/bundle_properties.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

bool IsFile(const Ref<FolderItem>& item) {
    return item->Exists() && !item->Directory();
}

}  // namespace

bool IsBundle(const FolderItem& item) {
    if (!item.Directory()) return false;
    return Lowercase(item.Name()).ends_with(".app") ||
           item.Child("Contents")->Child("Info.plist")->Exists();
}

std::string BundleIconPath(const FolderItem& bundle) {
    const Ref<FolderItem> contents = bundle.Child("Contents");
    const Ref<FolderItem> resources = contents->Child("Resources");
    const std::string name = ReadBundleProperties(*contents).iconFile;
    // A name with a slash could name any file.
    if (!name.empty() && name.find('/') == name.npos) {
        for (const std::string& file : {name + ".icns", name}) {
            const Ref<FolderItem> icon = resources->Child(file);
            if (IsFile(icon)) return icon->NativePath();
        }
    }
    for (int64_t position = 1; position <= resources->Count(); ++position) {
        const Ref<FolderItem> entry = resources->TrueItem(position);
        if (!entry || !Lowercase(entry->Name()).ends_with(".icns")) continue;
        // Child follows a link, TrueItem doesn't.
        const Ref<FolderItem> icon = resources->Child(entry->Name());
        if (IsFile(icon)) return icon->NativePath();
    }
    return {};
}

}  // namespace dunvey
