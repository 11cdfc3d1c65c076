#pragma once

#include <csignal>
#include <string>
#include <string_view>

#include "platform/files/file_descriptor.h"

namespace dunvey {

/// An open folder. Names are single path components and links aren't followed, so nothing outside
/// the folder changes even if another process replaces it. Failures raise Refusal.
class Folder {
 public:
    /// No folder.
    Folder() = default;
    /// The folder at a path; links in the path are followed.
    static Folder At(const std::string& path);
    void CheckReadable() const;
    explicit operator bool() const { return static_cast<bool>(descriptor_); }

    const std::string& Path() const { return path_; }
    std::string PathOf(const std::string& name) const { return path_ + "/" + name; }
    /// Whether there is an entry of the name, even a broken link.
    bool Has(const std::string& name) const;
    /// The folder of that name; no folder if it is missing, a link or a file, or if this is none.
    Folder Child(const std::string& name) const;
    /// The folder of the name, created if it is missing.
    Folder Make(const std::string& name) const;

    /// The first `limit` bytes of a regular file; empty if there is none.
    std::string Read(const std::string& name, size_t limit) const;
    /// Creates a new file. The umask applies to `mode`.
    void Write(const std::string& name, std::string_view bytes, mode_t mode) const;
    /// Moves an entry, replacing a file of the new name. Returns false if there is no such entry.
    bool Move(const std::string& name, const Folder& target, const std::string& newName) const;
    /// Removes a file or a link, if it is there.
    void RemoveFile(const std::string& name) const;
    /// Removes an empty folder. Returns whether no entry of the name is left.
    bool RemoveFolder(const std::string& name) const;

 private:
    Folder(FileDescriptor descriptor, std::string path)
        : descriptor_(std::move(descriptor)), path_(std::move(path)) {}

    FileDescriptor descriptor_;
    std::string path_;
};

/// The applications folder, created if it is missing and locked against other dunvey-register
/// processes, with a temporary folder in it whose files can be renamed into place. SIGHUP, SIGINT
/// and SIGTERM are blocked. Temporary folders that killed processes left are removed.
class LockedApplications {
 public:
    LockedApplications();
    ~LockedApplications();
    LockedApplications(const LockedApplications&) = delete;
    LockedApplications& operator=(const LockedApplications&) = delete;

    const Folder& Applications() const { return applications_; }
    const Folder& Temporary() const { return temporary_; }

 private:
    Folder applications_;
    Folder temporary_;
    FileDescriptor lock_;
    sigset_t signalsBefore_;
};

}  // namespace dunvey
