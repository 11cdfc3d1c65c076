#pragma once

#include <string>
#include <vector>

#include "register/application_text.h"
#include "register/request.h"

namespace dunvey {

/// A registered application.
struct Registered {
    ApplicationRecord record;
    /// The path of a file without which it can't start and that is missing; empty if all are there.
    std::string missing;
};

/// Creates the application of a request, or renews the one of its name that was registered before.
/// Raises Refusal; then everything is as it was before.
Registered Register(const Request& request);

/// The registered applications by ascending version. Adds a message to `problems` for each folder
/// that can't be read.
std::vector<Registered> RegisteredApplications(std::vector<std::string>& problems);

/// Removes a registered application, but no file that the user put there or changed. Returns the
/// path of the folder that stays because of such files, else nothing. Raises Refusal, also if no
/// application of the name is registered.
std::string Remove(const std::string& name);

}  // namespace dunvey
