#pragma once

#include <string>

#include "platform/values/reference.h"

namespace dunvey {

class FolderItem;
class Window;

/// Quitting, coming to the front, copying, and two alerts. An alert is a sheet of `parent`, or a
/// window of its own where that is nullptr, and blocks until its one button is pressed. Without a
/// screen it raises DesktopUnavailableException.
namespace General {

/// Asks the application object to terminate.
void AppQuit();

/// Brings the program to the front.
void BringFrontmostMe();

/// Shows why the program can't continue, and ends it when the button is pressed.
void ShowAlertQuit(const std::string& message, const std::string& explanation, Window* parent);

/// Brings the program to the front and shows a message.
void ShowAlertModalOK(const std::string& message, const std::string& explanation, Window* parent);

/// Copies a file to `destination`, which is a new file or an existing folder; or a folder with its
/// contents into `destination`, an existing folder. False if something couldn't be copied; copies
/// made until then stay. Neither may be nil.
bool CopyFileOrFolder(const Ref<FolderItem>& source, const Ref<FolderItem>& destination);

}  // namespace General
}  // namespace dunvey
