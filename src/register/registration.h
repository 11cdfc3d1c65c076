#pragma once

#include <string>
#include <vector>

#include "register/request.h"

namespace dunvey {

/// Makes the application of a request, or renews the one that was made before by its name. Returns
/// the bundle's path. Nothing is left behind where it fails. Raises Refusal.
std::string Register(const Request& request);

/// An application that was registered.
struct Registered {
    std::string name;
    std::string version;
    /// For a reader.
    std::string command;
};

/// All that are in the applications folder, in the order of their names.
std::vector<Registered> RegisteredApplications();

/// Removes a registered application. Returns the path of the folder that stays since it holds
/// something else, or nothing. Raises Refusal, also if there is none by the name.
std::string Remove(const std::string& name);

}  // namespace dunvey
