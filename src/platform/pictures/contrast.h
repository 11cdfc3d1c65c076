#pragma once

#include "platform/values/variant_types.h"

namespace dunvey {

/// The contrast ratio of two colours as WCAG 2 defines it: 1 for equal ones, 21 for black and
/// white.
double Contrast(Color color1, Color color2);

/// The least contrast of text and background in a high-contrast theme. Ordinary themes with black
/// text on light grey stay below it.
inline constexpr double kHighContrast = 20;

/// The colour, moved towards black or white until its contrast with the background is at least
/// `leastContrast`; black or white if none reaches it.
Color Readable(Color color, Color background, double leastContrast);

/// The least contrast of text in a theme with these two colours: 4.5, but 2.5 in ordinary light
/// themes, whose grey and red are part of the design.
double LeastContrast(Color themeBackground, Color themeText);

}  // namespace dunvey
