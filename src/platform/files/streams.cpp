#include "platform/files/streams.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "platform/files/path.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

[[noreturn]] void Raise(const char* action, const std::string& path, int error) {
    throw IOException(std::string("The file \"") + path + "\" can't be " + action + ": " +
                          std::strerror(error) + ".",
                      error);
}

/// Whether the process's limit for files is below the size.
bool ExceedsFileLimit(size_t size) {
    rlimit limit{};
    return getrlimit(RLIMIT_FSIZE, &limit) == 0 && size > limit.rlim_cur;
}

/// Locks with flock() until the descriptor is closed. Returns 0, also on a file system without
/// locks, or EWOULDBLOCK if the lock isn't free within half a second.
int LockFile(int descriptor, int operation) {
    constexpr int kTries = 50;
    constexpr int kWait = 10;  // milliseconds
    for (int i = 0; i < kTries; ++i) {
        if (flock(descriptor, operation | LOCK_NB) == 0 || (errno != EWOULDBLOCK && errno != EINTR))
            return 0;
        poll(nullptr, 0, kWait);
    }
    return EWOULDBLOCK;
}

}  // namespace

Ref<BinaryStream> BinaryStream::Open(const Ref<FolderItem>& item, bool readWrite) {
    const std::string& path = item->NativePath();
    int error = 0;
    FileDescriptor file = OpenRegularFile(path, error, readWrite ? O_RDWR : O_RDONLY);
    if (!file) Raise("opened", path, error);
    return New<BinaryStream>(std::move(file), path);
}

int64_t BinaryStream::Length() const {
    struct stat status;
    if (fstat(file_.Get(), &status) != 0) Raise("read", path_, errno);
    return status.st_size;
}

std::string BinaryStream::Read(int64_t count) {
    std::string bytes(count > 0 ? static_cast<size_t>(count) : 0, '\0');
    const ssize_t got = ReadFully(file_.Get(), bytes.data(), bytes.size());
    if (got < 0) Raise("read", path_, errno);
    bytes.resize(static_cast<size_t>(got));
    return bytes;
}

void BinaryStream::LockForReading() const {
    const int error = LockFile(file_.Get(), LOCK_SH);
    if (error != 0) Raise("read", path_, error);
}

Ref<TextInputStream> TextInputStream::Open(const Ref<FolderItem>& file) {
    return New<TextInputStream>(BinaryStream::Open(file));
}

std::string TextInputStream::ReadAll() {
    constexpr int64_t kBlock = 1 << 16;
    stream_->LockForReading();
    std::string text;
    for (;;) {
        const std::string block = stream_->Read(kBlock);
        if (block.empty()) return text;
        text += block;
        if (text.size() > kTextFileLimit) Raise("read", stream_->Path(), EFBIG);
    }
}

Ref<TextOutputStream> TextOutputStream::Create(const Ref<FolderItem>& item) {
    const std::string& path = item->NativePath();
    int error = 0;
    FileDescriptor file = OpenRegularFile(path, error, O_WRONLY | O_CREAT | O_EXCL);
    const bool created = static_cast<bool>(file);
    if (error == EEXIST) file = OpenRegularFile(path, error, O_WRONLY);
    if (file) return New<TextOutputStream>(std::move(file), path, created);
    if (error != ENOENT) Raise("written", path, error);
    // A broken link: create its target.
    file = OpenRegularFile(path, error, O_WRONLY | O_CREAT);
    if (!file) Raise("written", path, error);
    return New<TextOutputStream>(std::move(file), RealPath(path), true);
}

int TextOutputStream::WriteAt(off_t place, std::string_view text) {
    if (lseek(file_.Get(), place, SEEK_SET) < 0) return errno;
    return WriteFully(file_.Get(), text);
}

int TextOutputStream::Cut(off_t size) {
    return Uninterrupted([&] { return ftruncate(file_.Get(), size); }) == 0 ? 0 : errno;
}

int TextOutputStream::WriteInPlace() {
    const std::string_view text = text_;
    const int locking = LockFile(file_.Get(), LOCK_EX);
    if (locking != 0) return locking;
    const off_t end = lseek(file_.Get(), 0, SEEK_END);
    if (end < 0) return errno;
    const auto oldSize = static_cast<size_t>(end);
    if (text.size() > oldSize) {
        const int error = WriteAt(end, text.substr(oldSize));
        // The first error is the one to report.
        if (error != 0) return Cut(end), error;
    } else if (ExceedsFileLimit(text.size())) {
        return EFBIG;
    }
    // A mixture of the new and the old text is worse than either.
    int error = WriteAt(0, text.substr(0, oldSize));
    if (error != 0) error = WriteAt(0, text.substr(0, oldSize));
    if (error != 0) return Cut(end), error;
    return text.size() < oldSize ? Cut(static_cast<off_t>(text.size())) : 0;
}

int TextOutputStream::Finish() {
    if (!file_) return 0;
    const int placing = WriteInPlace();
    const int closing = file_.Close();
    const int error = placing != 0 ? placing : closing;
    if (error != 0 && created_) Uninterrupted([this] { return unlink(path_.c_str()); });
    return error;
}

void TextOutputStream::Close() {
    const int error = Finish();
    if (error != 0) Raise("written", path_, error);
}

TextOutputStream::~TextOutputStream() {
    Finish();
}

}  // namespace dunvey
