#pragma once

#include <cerrno>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "platform/processes/system_call.h"

namespace dunvey {

// The calls of system_call.h with texts of the C++ library.

inline FileDescriptor OpenFile(const std::string& path, int flags, mode_t mode = 0) {
    return OpenFile(path.c_str(), flags, mode);
}

inline FileDescriptor OpenRegularFile(const std::string& path, int& error) {
    return OpenRegularFile(path.c_str(), error);
}

inline int WriteFully(int descriptor, std::string_view bytes) {
    return WriteFully(descriptor, bytes.data(), bytes.size());
}

}  // namespace dunvey
