#pragma once

#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey::InDesign {

/// The bundle names of the running versions, such as "Adobe InDesign CS6.app", one for each process
/// in the order of the process list. It goes stale at once: whoever reads it refreshes it first.
extern std::vector<std::string> BootingAppNames;

/// Refills BootingAppNames from `ps`. A `ps` that fails leaves it empty, which reads as nothing
/// running.
void GetBootingAppNames();

/// Refreshes BootingAppNames. Whether some version runs and the given application, which must not
/// be nil, isn't among those that do.
bool IsBootedDiffApp(const Ref<FolderItem>& application);

}  // namespace dunvey::InDesign
