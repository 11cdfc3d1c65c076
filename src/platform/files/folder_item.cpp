#include "platform/files/folder_item.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include "platform/files/file_copy.h"
#include "platform/files/file_descriptor.h"
#include "platform/files/path.h"

namespace dunvey {
namespace {

/// The path without doubled slashes, "." components and a slash at the end. ".." is kept: after a
/// link it names another folder.
std::string Normalized(const std::string& path) {
    std::string normal;
    for (size_t begin = 0; begin < path.size();) {
        const size_t end = std::min(path.find('/', begin), path.size());
        const bool nothing = end == begin || (end == begin + 1 && path[begin] == '.');
        if (!nothing) normal.append("/").append(path, begin, end - begin);
        begin = end + 1;
    }
    return normal.empty() ? "/" : normal;
}

/// The names in the folder as far as it can be read, in byte order.
std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(folder.c_str()), &closedir);
    if (!directory) return names;
    while (const dirent* entry = readdir(directory.get())) {
        std::string name = entry->d_name;
        if (name != "." && name != "..") names.push_back(std::move(name));
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// Returns 0 or the errno.
int ReadStatus(const std::string& path, bool followsLinks, struct stat& status) {
    const auto read = followsLinks ? &stat : &lstat;
    return Uninterrupted([&] { return read(path.c_str(), &status); }) == 0 ? 0 : errno;
}

}  // namespace

FolderItem::FolderItem(std::string path) : path_(AbsolutePath(path)) {
    // The current folder was removed. Nothing can exist below something that is not a folder.
    if (path_.empty()) path_ = "/dev/null/" + path;
    path_ = Normalized(path_);
}

std::string FolderItem::Name() const {
    return path_ == "/" ? path_ : path_.substr(path_.rfind('/') + 1);
}

bool FolderItem::Exists() const {
    constexpr std::array kMissing = {ENOENT, ENOTDIR, ELOOP, ENAMETOOLONG};
    struct stat status;
    const int error = ReadStatus(path_, followsLinks_, status);
    return std::find(kMissing.begin(), kMissing.end(), error) == kMissing.end();
}

bool FolderItem::Directory() const {
    struct stat status;
    return ReadStatus(path_, followsLinks_, status) == 0 && S_ISDIR(status.st_mode);
}

int64_t FolderItem::Count() const {
    if (walked_ == 0 || walked_ >= names_.size()) {
        names_ = Directory() ? NamesIn(path_) : std::vector<std::string>();
        walked_ = 0;
    }
    return static_cast<int64_t>(names_.size());
}

Ref<FolderItem> FolderItem::Parent() const {
    if (path_ == "/") return nullptr;
    return New<FolderItem>(path_.substr(0, path_.rfind('/')) + "/");
}

Ref<FolderItem> FolderItem::Child(const std::string& name) const {
    return New<FolderItem>(path_ + "/" + name);
}

Ref<FolderItem> FolderItem::TrueItem(int64_t position) const {
    if (names_.empty()) Count();
    if (position < 1 || position > static_cast<int64_t>(names_.size())) return nullptr;
    walked_ = static_cast<size_t>(position);
    Ref<FolderItem> item = Child(names_[walked_ - 1]);
    item->followsLinks_ = false;
    return item;
}

void FolderItem::CopyFileTo(const FolderItem& destination) const {
    const std::string target =
        destination.Directory() ? destination.Child(Name())->path_ : destination.path_;
    lastErrorCode_ = followsLinks_ ? CopyFile(path_, target) : CopyFileOrLink(path_, target);
}

void FolderItem::CreateAsFolder() const {
    const int result = Uninterrupted([this] { return mkdir(path_.c_str(), 0777); });
    lastErrorCode_ = result == 0 ? 0 : errno;
}

void FolderItem::Delete() const {
    int result = Uninterrupted([this] { return unlink(path_.c_str()); });
    // EISDIR on Linux and EPERM on macOS: it is a folder.
    if (result != 0 && (errno == EISDIR || errno == EPERM)) {
        result = Uninterrupted([this] { return rmdir(path_.c_str()); });
    }
    lastErrorCode_ = result == 0 ? 0 : errno;
}

std::string FolderItem::ShellPath() const {
    return ShellWord(path_);
}

std::string UnixpathMBS(const FolderItem& item) {
    return item.NativePath();
}

std::string ShellWord(const std::string& text) {
    if (text.empty()) return "''";
    constexpr std::string_view kPlain =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789/._-+:,@%";
    std::string word;
    word.reserve(text.size() + text.size() / 4);
    for (const char c : text) {
        if (c == '\n') {
            word += "'\n'";  // the shell drops a backslash and a line feed after it
        } else {
            const bool plain = static_cast<signed char>(c) < 0 || kPlain.find(c) != kPlain.npos;
            if (!plain) word += '\\';
            word += c;
        }
    }
    return word;
}

std::string QuotedShellWord(const std::string& text) {
    std::string word = "'";
    for (const char c : text)
        word += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return word + "'";
}

}  // namespace dunvey
