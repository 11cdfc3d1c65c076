#include "platform/text/shown_text.h"

#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr uint32_t kReplacement = 0xFFFD;

/// The length in bytes of a mark at the beginning of the text that is invisible but changes a line:
/// one that separates lines or paragraphs, sets, embeds, overrides or isolates a direction, or has
/// no width. 0 for none.
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

}  // namespace

std::string OneLine(std::string_view text) {
    // U+2400 and following are visible signs for the control characters, in the same order.
    constexpr uint32_t kControlSigns = 0x2400;
    constexpr uint32_t kDeleteSign = 0x2421;
    std::string line;
    for (size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const bool isUpperControl = text[i] == '\xC2' && i + 1 < text.size() &&
                                    static_cast<unsigned char>(text[i + 1]) - 0x80u < 0x20;
        if (byte < 0x20) {
            line += Chr(kControlSigns + byte);
        } else if (byte == 0x7F) {
            line += Chr(kDeleteSign);
        } else if (const size_t length = isUpperControl ? 2 : DisturbingMark(text.substr(i))) {
            line += Chr(kReplacement);
            i += length - 1;
        } else {
            line += text[i];
        }
    }
    return line;
}

}  // namespace dunvey
