#pragma once

#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey::InDesign {

/// The bundles of the installed versions, ascending by major version, then by name. The last one
/// counts as the newest. Empty until GetInstalledApps.
extern std::vector<Ref<FolderItem>> InstalledApps;

/// Refills InstalledApps from the top level of the applications folder: each folder whose name
/// begins with "Adobe InDesign" and that holds a bundle of the same name.
void GetInstalledApps();

/// Sorts InstalledApps in place by the number before the first "." of AppVersion.
void SortAppsByVer();

}  // namespace dunvey::InDesign
