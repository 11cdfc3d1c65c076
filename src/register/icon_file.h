#pragma once

#include <string>

namespace dunvey {

/// The bytes of an .icns file with the icon of a file: an .icns file as it is, a PNG as its one
/// part. Raises Refusal if the file can't be read or is neither.
std::string ReadIcon(const std::string& path);

}  // namespace dunvey
