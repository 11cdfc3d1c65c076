#pragma once

#include <string>

namespace dunvey::InDesign {

/// The suffix of a version's bundle name, such as "CS6" for "8" or "CC 2019" for "14", by the
/// version text of a document. An unknown version, "0", gives "2005".
std::string GetAppName(const std::string& version);

}  // namespace dunvey::InDesign
