#include "platform/text/shown_text.h"

#include <algorithm>
#include <cmath>

#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr Color kBlack{0x000000};
constexpr Color kWhite{0xFFFFFF};
constexpr uint32_t kReplacement = 0xFFFD;

/// The length in bytes of the mark at the beginning of the text that takes no place of its own but
/// disturbs a line: one that separates lines or paragraphs, sets, embeds, overrides or isolates a
/// direction, or has no width; 0 for none.
size_t DisturbingMark(std::string_view text) {
    constexpr std::string_view kArabicLetterMark = "\xD8\x9C";
    constexpr std::string_view kNoBreakWithoutWidth = "\xEF\xBB\xBF";
    if (text.starts_with(kArabicLetterMark)) return kArabicLetterMark.size();
    if (text.starts_with(kNoBreakWithoutWidth)) return kNoBreakWithoutWidth.size();
    if (text.size() < 3 || text[0] != '\xE2') return 0;
    const auto last = static_cast<unsigned char>(text[2]);
    const bool general = text[1] == '\x80' && ((last >= 0xA8 && last <= 0xAE) || last == 0x8B ||
                                               last == 0x8E || last == 0x8F);
    const bool isolates = text[1] == '\x81' && last >= 0xA6 && last <= 0xA9;
    return general || isolates ? 3 : 0;
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
        } else if (const size_t length = isUpperControl ? 2 : DisturbingMark(text.substr(i))) {
            line += Chr(kReplacement);
            i += length - 1;
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
    // Ordinary themes with black text on light grey stay below this.
    constexpr double kHighContrast = 20;
    const bool isOrdinaryLight = Luminance(themeBackground) > Luminance(themeText) &&
                                 Contrast(themeBackground, themeText) < kHighContrast;
    return isOrdinaryLight ? 2.5 : 4.5;
}

}  // namespace dunvey
