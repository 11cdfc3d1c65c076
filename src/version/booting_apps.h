#pragma once

#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey::InDesign {

/// The bundle names of the running versions, such as "Adobe InDesign CS6.app", one for each process
/// in the order of the process list. Refresh it before each use.
extern std::vector<std::string> BootingAppNames;

/// Refills BootingAppNames from `ps`. A `ps` that fails leaves it empty: nothing runs.
void GetBootingAppNames();

/// Refreshes BootingAppNames. True if a version runs and the given application, which must not be
/// nil, doesn't.
bool IsBootedDiffApp(const Ref<FolderItem>& application);

}  // namespace dunvey::InDesign
