#pragma once

#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey {

/// Runs a script file with the arguments, waits for its end and returns its result, without line
/// feeds at the end. The file is in the system's own script language: compiled AppleScript, on
/// Linux a POSIX shell script. One that can't be run or that fails gives text that says so, so
/// empty text always means that it ended well.
std::string ExecuteAppleScript(const Ref<FolderItem>& script,
                               const std::vector<std::string>& arguments);

/// The absolute path of the program that runs the system's script files.
std::string ScriptRunner();

}  // namespace dunvey
