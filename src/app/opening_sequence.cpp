#include "app/opening_sequence.h"

#include "persistence/preferences.h"
#include "platform/loop/application.h"
#include "platform/text/text.h"
#include "version/application_version.h"
#include "version/installed_apps.h"

namespace dunvey {

bool IsSystemRefused(int64_t major, int64_t minor) {
    const std::string joined =
        Format(static_cast<double>(major), "00") + Format(static_cast<double>(minor), "00");
    return Truncate(Val(joined)) >= 1015;
}

bool IsIconImportDue() {
    if (Application::NonReleaseVersion() != Preferences::pNonReleaseVersion) return true;
    if (InDesign::InstalledApps.empty()) return false;
    const Ref<FolderItem>& newest = InDesign::InstalledApps.back();
    return newest && InDesign::AppVersion(newest) != Preferences::pIconVersion;
}

}  // namespace dunvey
