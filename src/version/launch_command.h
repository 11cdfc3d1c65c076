#pragma once

#include <string>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey::InDesign {

/// Opens documents in an application with one shell command and returns when that has ended.
/// `files` holds the ShellPath of each document, joined by blanks, and is used unchanged. An empty
/// text does nothing; an application that is nil or doesn't exist gives one line on standard error.
/// The command's exit code is ignored.
void OpenWith(const Ref<FolderItem>& application, const std::string& files);

}  // namespace dunvey::InDesign
