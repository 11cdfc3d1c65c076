#pragma once

// System calls on files, without the C++ library: a program that is started in every run has no
// time to load or start it. file_descriptor.h has the same for texts of the C++ library.
#include <errno.h>
#include <stddef.h>
#include <sys/types.h>

namespace dunvey {

/// Makes a system call, again for as long as it is interrupted by a signal.
template <typename Call>
auto Uninterrupted(Call&& call) {
    for (;;) {
        const auto result = call();
        if (result != -1 || errno != EINTR) return result;
    }
}

/// Owns a file descriptor and closes it in the end. -1 is none.
class FileDescriptor {
 public:
    explicit FileDescriptor(int number = -1) : number_(number) {}
    ~FileDescriptor() { Close(); }
    FileDescriptor(FileDescriptor&& other) noexcept : number_(other.number_) { other.number_ = -1; }
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        const int own = number_;
        number_ = other.number_;
        other.number_ = own;
        return *this;
    }

    int Get() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }
    /// Closes it now. Returns 0 or the errno of the close, where some file systems report a failed
    /// write. To be interrupted is no failure of it.
    int Close();

 private:
    int number_;
};

/// Opens a file as the system does. None on failure, with errno set.
FileDescriptor OpenFile(const char* path, int flags, mode_t mode = 0);

/// Opens a regular file for reading without ever waiting for it: a FIFO or a device is refused with
/// EINVAL, a folder with EISDIR. On failure the descriptor is none and `error` the errno.
FileDescriptor OpenRegularFile(const char* path, int& error);

/// Reads until `count` bytes have come or the file ends; interrupted reads go on. Returns the
/// number of bytes, or -1 with errno set.
ssize_t ReadFully(int descriptor, char* buffer, size_t count);

/// Writes all bytes; interrupted and short writes go on. Returns 0 or the errno.
int WriteFully(int descriptor, const char* bytes, size_t count);

}  // namespace dunvey
