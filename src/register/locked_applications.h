#pragma once

#include <csignal>

#include "register/folder.h"

namespace dunvey {

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
