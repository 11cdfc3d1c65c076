#pragma once

#include <sys/types.h>

#include <cerrno>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace dunvey {

/// Makes a system call, repeated while it fails with EINTR. Returns its last result.
template <typename Call>
auto Uninterrupted(Call&& call) {
    for (;;) {
        const auto result = call();
        if (result != -1 || errno != EINTR) return result;
    }
}

/// Owns a file descriptor and closes it when destroyed. -1 is none.
class FileDescriptor {
 public:
    explicit FileDescriptor(int number = -1) : number_(number) {}
    ~FileDescriptor() { Close(); }
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    int Get() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }
    /// Closes it now. Returns 0 or the errno of the close, where some file systems report a failed
    /// write. EINTR counts as success.
    int Close();

 private:
    int number_;
};

/// Opens a file with close-on-exec. None on failure, with errno set.
FileDescriptor OpenFile(const std::string& path, int flags, mode_t mode = 0);

/// Opens a regular file, a new one with mode 0666, and never blocks: a FIFO or a device gives
/// EINVAL, a folder EISDIR. None on failure. Sets `error` to 0 or the errno.
FileDescriptor OpenRegularFile(const std::string& path, int& error, int flags = 0);

/// Reads until `count` bytes have arrived or the file ends. Returns the number of bytes, or -1 with
/// errno set.
ssize_t ReadFully(int descriptor, char* buffer, size_t count);

/// Writes all bytes. Returns 0 or the errno.
int WriteFully(int descriptor, std::string_view bytes);

}  // namespace dunvey
