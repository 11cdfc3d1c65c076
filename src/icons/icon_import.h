#pragma once

namespace dunvey::InDesign {

/// Imports the document icons of the newest installed version into the program's own bundle. The
/// import itself isn't there yet: nothing is shown and nothing changes.
void GetIconFile();

}  // namespace dunvey::InDesign
