#pragma once

#include <string>
#include <string_view>

#include "platform/values/variant_types.h"

/// What makes any text readable on a screen, whatever it holds.
namespace dunvey {

/// The text as one line that can't change how other text is read: control characters, line breaks
/// and marks that reorder text are replaced by signs that are seen.
std::string OneLine(std::string_view text);

/// How well two colours can be told apart: 1 not at all, 21 black and white.
double Contrast(Color color1, Color color2);

/// The colour, moved towards black or white until its contrast with the background is at least
/// that, or black or white itself.
Color Readable(Color color, Color background, double leastContrast);

/// The least contrast of text in a theme with these two colours: 4.5, but 2.5 in ordinary light
/// themes, whose grey and red are part of the design.
double LeastContrast(Color themeBackground, Color themeText);

}  // namespace dunvey
