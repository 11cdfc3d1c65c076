#pragma once

#include "version/file_class.h"

namespace dunvey::InDesign {

/// Finds the installed application of a record by its Ver; sets App, WillUseApp and AppName. Of
/// several that match, the last one wins. Each application sets AppName, to its own name or to the
/// composed one, so the last one decides: AppName can be the composed name although App was found.
void MatchApplication(FileClass& record);

}  // namespace dunvey::InDesign
