#include "persistence/json_escape.h"

#include <array>
#include <cstdint>

namespace dunvey {
namespace {

struct CodeRange {
    uint32_t first;
    uint32_t last;
};

/// The characters that are written as "\u" escapes.
constexpr std::array<CodeRange, 11> kEscaped = {{{0x0000, 0x001F},
                                                 {0x007F, 0x007F},
                                                 {0x00AD, 0x00AD},
                                                 {0x0600, 0x0604},
                                                 {0x070F, 0x070F},
                                                 {0x17B4, 0x17B5},
                                                 {0x200C, 0x200F},
                                                 {0x2028, 0x202F},
                                                 {0x2060, 0x206F},
                                                 {0xFEFF, 0xFEFF},
                                                 {0xFFF0, 0xFFFF}}};

constexpr bool IsEscaped(uint32_t code) {
    for (const CodeRange& range : kEscaped) {
        if (code >= range.first && code <= range.last) return true;
    }
    return false;
}

enum class ByteKind : uint8_t { Plain, Slash, Special, Lead };

/// The first byte of a character above 7 bits; those of one range have it in common.
constexpr uint32_t LeadOf(uint32_t code) {
    return code < 0x800 ? 0xC0 | code >> 6 : 0xE0 | code >> 12;
}

constexpr std::array<ByteKind, 256> MakeKinds() {
    std::array<ByteKind, 256> kinds = {};
    for (uint32_t code = 0; code < 0x80; ++code) {
        if (IsEscaped(code)) kinds[code] = ByteKind::Special;
    }
    for (const CodeRange& range : kEscaped) {
        if (range.first >= 0x80) kinds[LeadOf(range.first)] = ByteKind::Lead;
    }
    kinds['"'] = kinds['\\'] = ByteKind::Special;
    kinds['/'] = ByteKind::Slash;
    return kinds;
}

constexpr std::array<ByteKind, 256> kKinds = MakeKinds();

uint8_t ByteAt(std::string_view text, size_t position) {
    return static_cast<uint8_t>(text[position]);
}

bool IsContinuation(std::string_view text, size_t position) {
    return position < text.size() && (ByteAt(text, position) & 0xC0) == 0x80;
}

/// The character of two or three bytes at the beginning; 0x10000 if there is no whole one.
uint32_t CodeAt(std::string_view text, size_t& length) {
    constexpr uint32_t kNone = 0x10000;
    const uint32_t lead = ByteAt(text, 0);
    length = lead < 0xE0 ? 2 : 3;
    if (!IsContinuation(text, 1) || (length == 3 && !IsContinuation(text, 2))) return kNone;
    const uint32_t second = ByteAt(text, 1) & 0x3Fu;
    if (length == 2) return (lead & 0x1F) << 6 | second;
    return (lead & 0x0F) << 12 | second << 6 | (ByteAt(text, 2) & 0x3Fu);
}

void AppendCode(std::string& json, uint32_t code) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    json += "\\u";
    for (int shift = 12; shift >= 0; shift -= 4)
        json += kDigits[(code >> shift) & 0xF];
}

void AppendSpecial(std::string& json, char c) {
    switch (c) {
        case '"':
        case '\\':
            json.append("\\") += c;
            break;
        case '\b':
            json += "\\b";
            break;
        case '\f':
            json += "\\f";
            break;
        case '\n':
            json += "\\n";
            break;
        case '\r':
            json += "\\r";
            break;
        case '\t':
            json += "\\t";
            break;
        default:
            AppendCode(json, static_cast<uint8_t>(c));
    }
}

/// Appends what the character at the beginning becomes; returns the bytes it takes, 0 if it stays.
size_t AppendEscape(std::string& json, std::string_view text, bool escapeSlashes) {
    switch (kKinds[ByteAt(text, 0)]) {
        case ByteKind::Plain:
            return 0;
        case ByteKind::Slash:
            if (escapeSlashes) json += "\\/";
            return escapeSlashes ? 1 : 0;
        case ByteKind::Special:
            AppendSpecial(json, text[0]);
            return 1;
        case ByteKind::Lead:
            break;
    }
    size_t length = 0;
    const uint32_t code = CodeAt(text, length);
    if (!IsEscaped(code)) return 0;
    AppendCode(json, code);
    return length;
}

}  // namespace

void AppendEscaped(std::string& json, std::string_view text, bool escapeSlashes) {
    size_t copied = 0;
    for (size_t at = 0; at < text.size();) {
        if (kKinds[ByteAt(text, at)] == ByteKind::Plain) {
            ++at;
            continue;
        }
        json.append(text, copied, at - copied);
        const size_t taken = AppendEscape(json, text.substr(at), escapeSlashes);
        copied = at + taken;
        at += taken > 0 ? taken : 1;
    }
    json.append(text, copied);
}

}  // namespace dunvey
