#pragma once

#include <string>

namespace dunvey {

/// Raises Refusal if the version contradicts the name ("Adobe InDesign CS4" is version 6), or if
/// another application of the applications folder has the same version.
void CheckVersionFits(const std::string& name, const std::string& version);

/// Whether `left` is the lower version; numbers are compared field by field.
bool IsLowerVersion(const std::string& left, const std::string& right);

}  // namespace dunvey
