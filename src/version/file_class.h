#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey {

/// The record of one document. The application's list of documents owns it; the chooser changes the
/// same object.
class FileClass {
 public:
    /// The version in the header: major and minor number, each 0 to 255. Always two elements in a
    /// record from MakeNewFileClass.
    std::vector<int64_t> Vers;
    /// The last dot-separated piece of the file's name, letter case unchanged.
    std::string FileExt;
    Ref<FolderItem> File;
    /// The version text for matching: "7.5", or the major number in decimal.
    std::string Ver;
    /// The bundle name of the version's application, such as "Adobe InDesign CS6.app", also where
    /// that one isn't installed; empty where no application is installed at all.
    std::string AppName;
    /// The installed application that matches the version; nil if there is none.
    Ref<FolderItem> App;
    /// Whether the document is still to be opened.
    bool WillOpen = false;
    /// The application that will open the document.
    Ref<FolderItem> WillUseApp;
    /// The version that will open it, by which documents are sorted and grouped.
    std::string WillUseVer;
};

namespace InDesign {

/// The extensions of the four kinds, in lower case.
const std::vector<std::string>& DocumentExtensions();

/// The version text of a header's version: "7.5" for 7 and 5, else the major number in decimal.
std::string VersionText(const std::vector<int64_t>& version);

/// Makes the record of a document: reads its version and finds its application. Nil, without a
/// message, for an item that is nil, doesn't exist, or isn't of one of the four kinds.
Ref<FileClass> MakeNewFileClass(const Ref<FolderItem>& item);

}  // namespace InDesign
}  // namespace dunvey
