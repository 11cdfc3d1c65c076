#pragma once

#include <string>

#include "platform/values/reference.h"

namespace dunvey {

class FolderItem;
class Window;

/// What stands beside the program's own subjects: its end, its place on the screen, copying, and
/// the two standing alerts. The alerts are shown as a sheet of `parent`, or in a window of their
/// own where that is nullptr, and block until the one button is pressed. Without a screen they
/// raise DesktopUnavailableException.
namespace General {

/// Asks the operating system's application object to terminate.
void AppQuit();

/// Makes the program the one in front.
void BringFrontmostMe();

/// Tells why the program can't go on, and ends it after the click.
void ShowAlertQuit(const std::string& message, const std::string& explanation, Window* parent);

/// Comes to the front and tells something; returns after the click.
void ShowAlertModalOK(const std::string& message, const std::string& explanation, Window* parent);

/// Copies a file to the destination, a new file or a folder in which the copy is to stand; or a
/// folder with all that it holds into the destination, a folder. False if something couldn't be
/// copied; what was copied until then stays. Neither may be nil.
bool CopyFileOrFolder(const Ref<FolderItem>& source, const Ref<FolderItem>& destination);

}  // namespace General
}  // namespace dunvey
