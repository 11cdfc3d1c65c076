#include "version/installed_apps.h"

#include "platform/files/special_folder.h"
#include "platform/text/text.h"
#include "version/application_version.h"
#include "version/stable_sort_by.h"

namespace dunvey::InDesign {
namespace {

constexpr std::string_view kNameBegin = "Adobe InDesign";

}  // namespace

std::vector<Ref<FolderItem>> InstalledApps;

void GetInstalledApps() {
    InstalledApps.clear();
    const Ref<FolderItem> applications = SpecialFolder::Applications();
    for (int64_t i = 1; i <= applications->Count(); ++i) {
        const Ref<FolderItem> folder = applications->TrueItem(i);
        if (!folder || !folder->Directory()) continue;
        const std::string name = folder->Name();
        if (Left(name, Len(kNameBegin)) != kNameBegin) continue;
        const Ref<FolderItem> bundle = folder->Child(name + ".app");
        if (bundle->Exists()) InstalledApps.push_back(bundle);
    }
    if (!InstalledApps.empty()) SortAppsByVer();
}

void SortAppsByVer() {
    if (InstalledApps.empty()) return;
    StableSortBy(InstalledApps, [](const Ref<FolderItem>& application) {
        return static_cast<double>(Truncate(Val(NthField(AppVersion(application), ".", 1))));
    });
}

}  // namespace dunvey::InDesign
