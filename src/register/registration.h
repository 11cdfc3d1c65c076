#pragma once

#include <string>
#include <vector>

#include "register/application_text.h"
#include "register/request.h"

namespace dunvey {

/// A registered application.
struct Registered {
    ApplicationRecord record;
    /// The path of a missing file that it needs to start; empty if there is none.
    std::string missing;
};

/// Creates the application of a request, or updates the registered one of that name. Raises
/// Refusal; then nothing is changed.
Registered Register(const Request& request);

/// The registered applications by ascending version. Adds a message to `problems` for each folder
/// that can't be read.
std::vector<Registered> RegisteredApplications(std::vector<std::string>& problems);

/// Removes a registered application, but no file that the user put there or changed. Returns the
/// path of the folder that stays because of such files, else an empty text. Raises Refusal, also if
/// no application of the name is registered.
std::string Remove(const std::string& name);

}  // namespace dunvey
