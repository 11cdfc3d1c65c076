#pragma once

#include "version/file_class.h"

namespace dunvey::InDesign {

/// Ties a record to the installed applications by its Ver: fills App, WillUseApp and AppName. Among
/// several that match the last one wins. AppName is what the last application looked at left there,
/// so it can be the composed name although App was found.
void MatchApplication(FileClass& record);

}  // namespace dunvey::InDesign
