#pragma once

#include <string>

namespace dunvey {

/// The bytes of an .icns file made of a picture: of an .icns file as they are, of a PNG as its one
/// part. Raises Refusal if the file can't be read or is neither.
std::string ReadIcon(const std::string& path);

}  // namespace dunvey
