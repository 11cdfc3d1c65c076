#pragma once

#include "version/file_class.h"

namespace dunvey::InDesign {

/// Finds the installed application of a record by its Ver; sets App, WillUseApp and AppName. Of
/// several that match, the last one wins. AppName is set for each installed application, to its own
/// or the composed name, and the last one wins: it can be composed although App was found.
void MatchApplication(FileClass& record);

}  // namespace dunvey::InDesign
