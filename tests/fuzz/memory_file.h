#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/files/file_descriptor.h"

namespace dunvey::fuzz {

/// A file that lies in memory and has a path: quicker than one on a disk, and nothing stays behind.
class MemoryFile {
 public:
    MemoryFile() : file_(memfd_create("dunvey-fuzz", MFD_CLOEXEC)) {}

    std::string Path() const { return "/proc/self/fd/" + std::to_string(file_.Get()); }
    /// Replaces the contents.
    void Write(std::string_view bytes) {
        const bool written = ftruncate(file_.Get(), 0) == 0 &&
                             lseek(file_.Get(), 0, SEEK_SET) == 0 &&
                             WriteFully(file_.Get(), bytes) == 0;
        if (!written) throw std::runtime_error("no file in memory");
    }

 private:
    FileDescriptor file_;
};

}  // namespace dunvey::fuzz
