#pragma once

namespace dunvey::InDesign {

/// Informs the user, copies the two document icons of the newest installed version into the
/// program's bundle, and records that version in the preferences. Does nothing if one of them is
/// missing or there is no display. If the copy fails an alert says so, and the old icons are lost.
void GetIconFile();

/// Announces the import and returns when the user has pressed the button. Raises
/// DesktopUnavailableException without a display.
void ShowAlertWillIconCopy();

}  // namespace dunvey::InDesign
