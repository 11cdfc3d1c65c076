#pragma once

#include <array>

#include "menus/localized.h"

namespace dunvey {

/// What only a screen reader says.
namespace Spoken {

inline constexpr LocalizedText kCanOpen{"Spoken.kCanOpen", "can open this document"};
inline constexpr LocalizedText kCannotOpen{"Spoken.kCannotOpen", "can't open this document"};

/// All of them, for whoever checks a translation.
inline constexpr std::array kAll = {kCanOpen, kCannotOpen};

}  // namespace Spoken

}  // namespace dunvey
