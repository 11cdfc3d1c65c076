#pragma once

#include <string>

#include "platform/linux/helpers/bundle.h"

namespace dunvey {

/// The program that starts an application.
struct BundleExecutable {
    /// The absolute path; empty if there is a problem.
    std::string path;
    /// What is wrong and what to do about it, for the user.
    std::string problem;
};

/// Finds the program of a bundle: the one that CFBundleExecutable of its Info.plist names, else, or
/// where that can't be read, the one with the bundle's name without ".app". Reports a problem
/// unless it is an executable regular file.
BundleExecutable ExecutableOf(const Bundle& bundle);

}  // namespace dunvey
