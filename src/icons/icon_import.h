#pragma once

namespace dunvey::InDesign {

/// Imports the two document icons of the newest installed version into the program's own bundle,
/// after a notice, and notes the version they came from. Without both of them nothing happens, nor
/// without a screen for the notice. A failure is told in an alert; the old icons are gone then.
void GetIconFile();

/// Tells the user that the import is about to happen; returns after the click. Raises
/// DesktopUnavailableException without a screen.
void ShowAlertWillIconCopy();

}  // namespace dunvey::InDesign
