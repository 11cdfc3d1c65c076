#include "register/locked_applications.h"

#include <fcntl.h>
#include <ftw.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include "platform/files/special_folder.h"
#include "register/refusal.h"

namespace dunvey {
namespace {

constexpr const char* kTemporaryName = ".dunvey-register-";

int RemoveEntry(const char* path, const struct stat* /*status*/, int /*type*/, FTW* /*place*/) {
    return std::remove(path);
}

/// Links are removed and not followed.
void RemoveTree(const std::string& path) {
    constexpr int kOpenFolders = 8;
    nftw(path.c_str(), &RemoveEntry, kOpenFolders, FTW_DEPTH | FTW_PHYS | FTW_MOUNT);
}

}  // namespace

LockedApplications::LockedApplications() {
    const Ref<FolderItem> item = SpecialFolder::Applications();
    item->CreateAsFolder();
    const std::string& path = item->NativePath();
    applications_ = Folder::At(path);
    lock_ = OpenFile(path, O_RDONLY | O_DIRECTORY);
    // Some network file systems can't lock a folder. Then temporary folders stay, since others may
    // be using them.
    const bool isLocked = Uninterrupted([this] { return flock(lock_.Get(), LOCK_EX); }) == 0;
    for (int64_t i = isLocked ? item->Count() : 0; i >= 1; --i) {
        const Ref<FolderItem> entry = item->TrueItem(i);
        if (entry && entry->Name().starts_with(kTemporaryName)) RemoveTree(entry->NativePath());
    }
    std::string temporary = applications_.PathOf(kTemporaryName) + "XXXXXX";
    if (mkdtemp(temporary.data()) == nullptr) {
        throw Refusal{Quoted(path) + " can't be changed: " + std::strerror(errno) +
                      ". Have it done by a user who may write there."};
    }
    temporary_ = Folder::At(temporary);
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGHUP, SIGINT, SIGTERM})
        sigaddset(&signals, signal);
    sigprocmask(SIG_BLOCK, &signals, &signalsBefore_);
}

LockedApplications::~LockedApplications() {
    RemoveTree(temporary_.Path());
    sigprocmask(SIG_SETMASK, &signalsBefore_, nullptr);
}

}  // namespace dunvey
