#include "platform/text/shown_text.h"

#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr uint32_t kReplacement = 0xFFFD;

/// The length in bytes of the control character at the start of the text, 0 if there is none:
/// U+0000 to U+001F, U+007F, and U+0080 to U+009F in UTF-8.
size_t ControlLength(std::string_view text) {
    const auto byte = static_cast<unsigned char>(text[0]);
    if (byte < 0x20 || byte == 0x7F) return 1;
    if (byte != 0xC2 || text.size() < 2) return 0;
    return static_cast<unsigned char>(text[1]) - 0x80u < 0x20 ? 2 : 0;
}

/// The length in bytes of an invisible mark at the beginning of the text: a line or paragraph
/// separator, a bidirectional mark or a zero-width character. 0 for none.
size_t InvisibleMarkLength(std::string_view text) {
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
    // U+2400 and following are visible symbols for the control characters, in the same order.
    constexpr uint32_t kControlSigns = 0x2400;
    constexpr uint32_t kDeleteSign = 0x2421;
    std::string line;
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text[0]);
        const size_t control = ControlLength(text);
        const size_t length = control != 0 ? control : InvisibleMarkLength(text);
        if (control == 1) {
            line += byte == 0x7F ? Chr(kDeleteSign) : Chr(kControlSigns + byte);
        } else {
            line += length != 0 ? Chr(kReplacement) : std::string(1, text[0]);
        }
        text.remove_prefix(length != 0 ? length : 1);
    }
    return line;
}

std::string Printable(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const size_t control = ControlLength(text);
        line += control == 0 ? text[0] : '?';
        text.remove_prefix(control == 0 ? 1 : control);
    }
    return line;
}

}  // namespace dunvey
