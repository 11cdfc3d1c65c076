#pragma once

#include <memory>
#include <optional>

namespace dunvey {

/// Keeps a screen's server from starting afresh: some do as soon as nobody is connected.
using DisplayHold = std::shared_ptr<void>;

/// A hold on a screen that the toolkit can show windows on, to be kept until the toolkit has
/// reached it itself; nothing where there is none.
std::optional<DisplayHold> ReachDisplay();

}  // namespace dunvey
