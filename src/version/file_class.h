#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey {

/// The record of one document that was handed to the program. The application's list of documents
/// owns the records; the chooser changes the same instances.
class FileClass {
 public:
    /// The version out of the header: major and minor number, each 0 to 255. Two elements once the
    /// record is made.
    std::vector<int64_t> Vers;
    /// The last dot-separated piece of the file's name, letter case unchanged.
    std::string FileExt;
    Ref<FolderItem> File;
    /// The version text that is matched: "7.5", or the major number in decimal.
    std::string Ver;
    /// The name of the bundle that belongs to the version, such as "Adobe InDesign CS6.app", also
    /// where none is installed; empty where no application is installed at all.
    std::string AppName;
    /// The installed application that matches the version; nil if there is none.
    Ref<FolderItem> App;
    /// Whether the document is still to be opened.
    bool WillOpen = false;
    /// The application that will open the document.
    Ref<FolderItem> WillUseApp;
    /// The version that will open it: what runs are sorted and grouped by.
    std::string WillUseVer;
};

namespace InDesign {

/// The extensions of the four kinds, in small letters.
std::vector<std::string> DocumentExtensions();

/// The record of a document, its version read and its application found; nil for an item that is
/// nil, doesn't exist, or isn't of one of the four kinds. Nothing is shown.
Ref<FileClass> MakeNewFileClass(const Ref<FolderItem>& item);

}  // namespace InDesign
}  // namespace dunvey
