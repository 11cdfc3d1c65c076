#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace dunvey {

/// One step of a script.
struct QuitStep {
    enum class Kind { Quit, Delay };

    Kind kind;
    /// For Delay; at most a day.
    double seconds;
};

/// Reads a script of the form
///
///     on run {NAME}
///     quit application NAME
///     delay SECONDS
///     end run
///
/// with any number of the two steps, in any order, between the first line and the last. NAME is a
/// word of letters, digits and underscores, SECONDS a decimal number. Returns the steps, or nullopt
/// for any other text.
std::optional<std::vector<QuitStep>> ReadQuitScript(std::string_view script);

}  // namespace dunvey
