#pragma once

#include <string>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey::InDesign {

/// Hands documents to an application in one shell command and returns when that has ended. `files`
/// holds the ShellPath of each document, joined by blanks, and goes out unchanged. Nothing happens
/// for an application that is nil or doesn't exist, or for an empty text. No failure is reported
/// but on standard error.
void OpenWith(const Ref<FolderItem>& application, const std::string& files);

}  // namespace dunvey::InDesign
