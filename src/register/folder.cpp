#include "register/folder.h"

#include <fcntl.h>
#include <ftw.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/files/special_folder.h"
#include "platform/processes/error_line.h"
#include "register/request.h"

namespace dunvey {
namespace {

constexpr int kFolderFlags = O_PATH | O_DIRECTORY | O_CLOEXEC;
constexpr const char* kTemporaryName = ".dunvey-register-";

int RemoveEntry(const char* path, const struct stat* /*status*/, int /*type*/, FTW* /*place*/) {
    return std::remove(path);
}

/// Links are removed and not followed.
void RemoveTree(const std::string& path) {
    constexpr int kOpenFolders = 8;
    nftw(path.c_str(), &RemoveEntry, kOpenFolders, FTW_DEPTH | FTW_PHYS | FTW_MOUNT);
}

[[noreturn]] void Refuse(const std::string& path, const std::string& action, int error) {
    throw Refusal{Quoted(path) + " can't be " + action + ": " + std::strerror(error) + "."};
}

}  // namespace

Folder Folder::At(const std::string& path) {
    FileDescriptor descriptor = OpenFile(path, kFolderFlags);
    if (!descriptor) Refuse(path, "opened", errno);
    return {std::move(descriptor), path};
}

void Folder::CheckReadable() const {
    if (!OpenFile(path_, O_RDONLY | O_DIRECTORY)) Refuse(path_, "read", errno);
}

bool Folder::Has(const std::string& name) const {
    return faccessat(descriptor_.Get(), name.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0;
}

Folder Folder::Child(const std::string& name) const {
    if (!*this) return {};
    FileDescriptor child(openat(descriptor_.Get(), name.c_str(), kFolderFlags | O_NOFOLLOW));
    if (!child && errno != ENOENT && errno != ENOTDIR) Refuse(PathOf(name), "opened", errno);
    return {std::move(child), PathOf(name)};
}

Folder Folder::Make(const std::string& name) const {
    if (mkdirat(descriptor_.Get(), name.c_str(), 0777) != 0 && errno != EEXIST)
        Refuse(PathOf(name), "created", errno);
    Folder child = Child(name);
    if (!child) Refuse(PathOf(name), "used, since it is a link or a file", ENOTDIR);
    return child;
}

std::string Folder::Read(const std::string& name, size_t limit) const {
    constexpr int kFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const FileDescriptor file(openat(descriptor_.Get(), name.c_str(), kFlags));
    if (!file && errno == EACCES) Refuse(PathOf(name), "read", errno);
    struct stat status;
    if (!file || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    std::string bytes(limit, '\0');
    const ssize_t count = ReadFully(file.Get(), bytes.data(), bytes.size());
    if (count < 0) Refuse(PathOf(name), "read", errno);
    bytes.resize(static_cast<size_t>(count));
    return bytes;
}

void Folder::Write(const std::string& name, std::string_view bytes, mode_t mode) const {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    FileDescriptor file(openat(descriptor_.Get(), name.c_str(), kFlags, mode));
    int error = file ? WriteFully(file.Get(), bytes) : errno;
    if (error == 0 && fsync(file.Get()) != 0) error = errno;
    if (error == 0) error = file.Close();
    if (error != 0) Refuse(PathOf(name), "written", error);
}

bool Folder::Move(const std::string& name, const Folder& target, const std::string& newName) const {
    const int goal = target.descriptor_.Get();
    if (renameat(descriptor_.Get(), name.c_str(), goal, newName.c_str()) == 0) return true;
    if (errno == ENOENT) return false;
    Refuse(PathOf(name), "moved to " + Quoted(target.PathOf(newName)), errno);
}

void Folder::RemoveFile(const std::string& name) const {
    if (unlinkat(descriptor_.Get(), name.c_str(), 0) != 0 && errno != ENOENT)
        Refuse(PathOf(name), "removed", errno);
}

bool Folder::RemoveFolder(const std::string& name) const {
    if (unlinkat(descriptor_.Get(), name.c_str(), AT_REMOVEDIR) == 0 || errno == ENOENT)
        return true;
    if (errno == ENOTEMPTY || errno == EEXIST || errno == ENOTDIR) return false;
    Refuse(PathOf(name), "removed", errno);
}

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
