#pragma once

#include <string>

namespace dunvey {

/// Raises Refusal if the version contradicts the name ("Adobe InDesign CS4" is version 6), or if
/// another application of the applications folder has the same version.
void CheckVersionFits(const std::string& name, const std::string& version);

}  // namespace dunvey
