#pragma once

#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey {

/// Runs a script file with the arguments, waits for its end and returns its result, without line
/// feeds at the end. The file is compiled AppleScript, on Linux a POSIX shell script. If it can't
/// be run or fails, the result says so: an empty result always means success.
std::string ExecuteAppleScript(const Ref<FolderItem>& script,
                               const std::vector<std::string>& arguments);

/// The absolute path of the program that runs such files.
std::string ScriptRunner();

}  // namespace dunvey
