#include "platform/shown_text.h"

#include <algorithm>
#include <cmath>

#include "platform/text.h"

namespace dunvey {
namespace {

constexpr Color kBlack{0x000000};
constexpr Color kWhite{0xFFFFFF};
constexpr uint32_t kReplacement = 0xFFFD;

/// Whether the three bytes are a line or paragraph separator or a mark that embeds, overrides or
/// isolates a direction.
bool DisturbsLine(std::string_view bytes) {
    if (bytes.size() < 3 || bytes[0] != '\xE2') return false;
    const auto last = static_cast<unsigned char>(bytes[2]);
    if (bytes[1] == '\x80') return last >= 0xA8 && last <= 0xAE;
    return bytes[1] == '\x81' && last >= 0xA6 && last <= 0xA9;
}

uint32_t Part(Color color, int shift) {
    return (color.RedGreenBlue >> shift) & 0xFF;
}

double Luminance(Color color) {
    const auto linear = [color](int shift) {
        const double part = Part(color, shift) / 255.0;
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

Color Mixed(Color color, Color goal, uint32_t step, uint32_t steps) {
    Color mixed;
    for (const int shift : {16, 8, 0}) {
        const uint32_t part = Part(color, shift) * (steps - step) + Part(goal, shift) * step;
        mixed.RedGreenBlue |= (part / steps) << shift;
    }
    return mixed;
}

}  // namespace

std::string OneLine(std::string_view text) {
    // The signs for the control characters, in their order.
    constexpr uint32_t kPictures = 0x2400;
    constexpr uint32_t kPictureOfDelete = 0x2421;
    std::string line;
    for (size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const bool isUpperControl = text[i] == '\xC2' && i + 1 < text.size() &&
                                    static_cast<unsigned char>(text[i + 1]) - 0x80u < 0x20;
        if (byte < 0x20) {
            line += Chr(kPictures + byte);
        } else if (byte == 0x7F) {
            line += Chr(kPictureOfDelete);
        } else if (isUpperControl || DisturbsLine(text.substr(i))) {
            line += Chr(kReplacement);
            i += isUpperControl ? 1 : 2;
        } else {
            line += text[i];
        }
    }
    return line;
}

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
    // Ordinary themes with black text on light grey stay below.
    constexpr double kHighContrast = 20;
    return Contrast(themeBackground, themeText) >= kHighContrast ? 4.5 : 2.5;
}

}  // namespace dunvey
