#include "platform/bundles/bundle_icon.h"

#include "platform/bundles/bundle_properties.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr std::string_view kExtension = ".icns";

bool IsIconName(const std::string& name) {
    return Lowercase(name).ends_with(kExtension);
}

bool IsFile(const FolderItem& item) {
    return item.Exists() && !item.Directory();
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
    // A name with a slash, or with a byte that ends paths, could lead anywhere.
    if (!name.empty() && name.find('/') == name.npos && name.find('\0') == name.npos) {
        for (const std::string& file : {name + ".icns", name}) {
            const Ref<FolderItem> icon = resources->Child(file);
            if (IsFile(*icon)) return icon->NativePath();
        }
    }
    const int64_t count = resources->Count();
    for (int64_t position = 1; position <= count; ++position) {
        const Ref<FolderItem> entry = resources->Child(resources->TrueItem(position)->Name());
        if (IsIconName(entry->Name()) && IsFile(*entry)) return entry->NativePath();
    }
    return {};
}

}  // namespace dunvey
