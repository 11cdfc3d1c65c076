#pragma once

#include <cstdint>
#include <string>

#include "platform/files/folder_listing.h"
#include "platform/values/object.h"
#include "platform/values/reference.h"

namespace dunvey {

/// A file or folder by its absolute path. It may name something that doesn't exist.
class FolderItem : public Object {
 public:
    /// A relative path is taken from the current directory. Dots in the path aren't resolved.
    explicit FolderItem(std::string path);

    /// The last path component with its extension; "/" for the root.
    std::string Name() const;
    /// Whether the path leads to something; a link that leads nowhere doesn't. Where the system
    /// can't tell, it is taken to be there: whoever uses it meets the failure, and nothing is
    /// passed over in silence.
    bool Exists() const;
    /// Whether it is a folder. An item from TrueItem that is a link is none.
    bool Directory() const;
    /// The number of entries of a folder, 0 if it can't be read. Each call looks at the disk; the
    /// entries are read again only if the folder has changed.
    int64_t Count() const;
    /// The folder that holds the item; nil for the root.
    Ref<FolderItem> Parent() const;
    /// The absolute path.
    const std::string& NativePath() const { return path_; }
    /// The absolute path as one word of a POSIX shell.
    std::string ShellPath() const;
    /// The item of that name in this folder, whether it exists or not.
    Ref<FolderItem> Child(const std::string& name) const;
    /// The entry at a 1-based position, in byte order of the names, links not followed; nil
    /// outside.
    Ref<FolderItem> TrueItem(int64_t position) const;

    /// Copies a file to `destination`: a new file, or a folder in which the copy is to stand. An
    /// existing file is not replaced. A failure is told by LastErrorCode.
    void CopyFileTo(const FolderItem& destination) const;
    /// Makes the folder itself, not those above it. A failure is told by LastErrorCode.
    void CreateAsFolder() const;
    /// Removes a file, a link or an empty folder. A failure is told by LastErrorCode.
    void Delete() const;
    /// The system's errno of the last CopyFileTo, CreateAsFolder or Delete; 0 after success.
    int LastErrorCode() const { return lastErrorCode_; }

 private:
    std::string path_;
    bool followsLinks_ = true;
    mutable int lastErrorCode_ = 0;
    mutable FolderListing listing_;
};

/// The item's POSIX path, plain, with no escaping.
std::string UnixpathMBS(const FolderItem& item);

/// Any text as one word of a POSIX shell. Shell words are made here and
/// nowhere else.
std::string ShellWord(const std::string& text);

/// The same between single quotes, for where a command line puts a path that way.
std::string QuotedShellWord(const std::string& text);

}  // namespace dunvey
