#include "platform/pictures/contrast.h"

#include <algorithm>
#include <cmath>

namespace dunvey {
namespace {

constexpr Color kBlack{0x000000};
constexpr Color kWhite{0xFFFFFF};

uint32_t Channel(Color color, int shift) {
    return (color.RedGreenBlue >> shift) & 0xFF;
}

double Luminance(Color color) {
    const auto linear = [color](int shift) {
        const double value = Channel(color, shift) / 255.0;
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

Color Mixed(Color color, Color goal, uint32_t step, uint32_t steps) {
    Color mixed;
    for (const int shift : {16, 8, 0}) {
        const uint32_t value = Channel(color, shift) * (steps - step) + Channel(goal, shift) * step;
        mixed.RedGreenBlue |= (value / steps) << shift;
    }
    return mixed;
}

}  // namespace

double Contrast(Color color1, Color color2) {
    const auto [dark, light] = std::minmax({Luminance(color1), Luminance(color2)});
    return (light + 0.05) / (dark + 0.05);
}

Color Readable(Color color, Color background, double leastContrast) {
    const bool lighten = Contrast(kWhite, background) > Contrast(kBlack, background);
    constexpr uint32_t kSteps = 32;
    uint32_t step = 0;
    Color mixed = color;
    while (step < kSteps && Contrast(mixed, background) < leastContrast)
        mixed = Mixed(color, lighten ? kWhite : kBlack, ++step, kSteps);
    return mixed;
}

double LeastContrast(Color themeBackground, Color themeText) {
    const bool isOrdinaryLight = Luminance(themeBackground) > Luminance(themeText) &&
                                 Contrast(themeBackground, themeText) < kHighContrast;
    return isOrdinaryLight ? 2.5 : 4.5;
}

}  // namespace dunvey
