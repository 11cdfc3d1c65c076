#pragma once

#include <string>

namespace dunvey::InDesign {

/// The suffix that the bundle of a version carries, such as "CS6" for "8" or "CC 2019" for "14", so
/// that the name of a version that isn't installed can be told. Takes the version text of a
/// document. An unknown version, "0", gives "2005".
std::string GetAppName(const std::string& version);

}  // namespace dunvey::InDesign
