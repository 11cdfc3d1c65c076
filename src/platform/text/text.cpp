#include "platform/text/text.h"

#include <algorithm>

namespace dunvey {
namespace {

bool IsASCII(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// The length in bytes of the character at the position; 1 for a byte in no valid sequence.
size_t CharacterLength(std::string_view text, size_t position) {
    const auto lead = static_cast<unsigned char>(text[position]);
    const size_t length = lead >= 0xF0 && lead <= 0xF4   ? 4
                          : lead >= 0xE0 && lead <= 0xEF ? 3
                          : lead >= 0xC2 && lead <= 0xDF ? 2
                                                         : 1;
    if (position + length > text.size()) return 1;
    for (size_t i = 1; i < length; ++i) {
        if (BeginsCharacter(text[position + i])) return 1;
    }
    return length;
}

size_t Clamp(std::string_view text, int64_t count) {
    return count <= 0 ? 0 : std::min(text.size(), static_cast<size_t>(count));
}

}  // namespace

int64_t BytesOfCharacters(std::string_view text, int64_t characters) {
    size_t position = 0;
    for (; characters > 0 && position < text.size(); --characters) {
        position += CharacterLength(text, position);
    }
    return static_cast<int64_t>(position);
}

int64_t InStr(int64_t start, std::string_view text, std::string_view find) {
    if (find.empty()) return 0;
    const int64_t skipped = start > 0 ? start - 1 : 0;
    const auto from = static_cast<size_t>(BytesOfCharacters(text, skipped));
    const size_t found = text.find(find, from);
    return found == std::string_view::npos ? 0 : Len(text.substr(0, found)) + 1;
}

std::string Left(std::string_view text, int64_t count) {
    return std::string(text.substr(0, static_cast<size_t>(BytesOfCharacters(text, count))));
}

std::string LeftB(std::string_view text, int64_t count) {
    return std::string(text.substr(0, Clamp(text, count)));
}

std::string RightB(std::string_view text, int64_t count) {
    return std::string(text.substr(text.size() - Clamp(text, count)));
}

int64_t LenB(std::string_view text) {
    return static_cast<int64_t>(text.size());
}

int64_t Len(std::string_view text) {
    int64_t count = 0;
    for (size_t position = 0; position < text.size(); ++count)
        position += IsASCII(text[position]) ? 1 : CharacterLength(text, position);
    return count;
}

std::string Lowercase(std::string_view text) {
    std::string lowered(text);
    for (char& c : lowered) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lowered;
}

std::string NthField(std::string_view text, std::string_view separator, int64_t number) {
    if (number < 1) return {};
    if (separator.empty()) return number == 1 ? std::string(text) : std::string();
    size_t begin = 0;
    for (; number > 1; --number) {
        const size_t found = text.find(separator, begin);
        if (found == std::string_view::npos) return {};
        begin = found + separator.size();
    }
    return std::string(text.substr(begin, text.find(separator, begin) - begin));
}

std::string Replace(std::string_view text, std::string_view find, std::string_view replacement) {
    std::string result(text);
    const size_t found = find.empty() ? std::string::npos : result.find(find);
    if (found != std::string::npos) result.replace(found, find.size(), replacement);
    return result;
}

std::string ReplaceAll(std::string text, std::string_view find, std::string_view replacement) {
    size_t found = find.empty() ? std::string::npos : text.find(find);
    if (found == std::string::npos) return text;
    std::string result;
    result.reserve(text.size() * 2);
    size_t begin = 0;
    for (; found != std::string::npos; found = text.find(find, begin)) {
        result.append(text, begin, found - begin).append(replacement);
        begin = found + find.size();
    }
    return result.append(text, begin);
}

std::vector<std::string> SplitB(std::string_view text, std::string_view separator) {
    std::vector<std::string> pieces;
    size_t begin = 0;
    while (!separator.empty()) {
        const size_t found = text.find(separator, begin);
        if (found == std::string_view::npos) break;
        pieces.emplace_back(text.substr(begin, found - begin));
        begin = found + separator.size();
    }
    pieces.emplace_back(text.substr(begin));
    return pieces;
}

std::string FileExtension(std::string_view name) {
    return SplitB(name, ".").back();
}

bool IsExtensionIn(const std::vector<std::string>& extensions, std::string_view extension) {
    return std::find(extensions.begin(), extensions.end(), Lowercase(extension)) !=
           extensions.end();
}

std::string Chr(uint32_t codePoint) {
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    if (surrogate || codePoint > 0x10FFFF) codePoint = 0xFFFD;
    const auto tail = [codePoint](int shift) {
        return static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F));
    };
    if (codePoint < 0x80) return {static_cast<char>(codePoint)};
    if (codePoint < 0x800) return {static_cast<char>(0xC0 | (codePoint >> 6)), tail(0)};
    if (codePoint < 0x10000) {
        return {static_cast<char>(0xE0 | (codePoint >> 12)), tail(6), tail(0)};
    }
    return {static_cast<char>(0xF0 | (codePoint >> 18)), tail(12), tail(6), tail(0)};
}

std::string EncodeHex(std::string_view bytes, bool blanks) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * (blanks ? 3 : 2));
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (blanks && !text.empty()) text += ' ';
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0xF];
    }
    return text;
}

std::string DecodeHex(std::string_view digits) {
    std::string bytes;
    bytes.reserve(digits.size() / 2);
    int high = -1;
    for (const char c : digits) {
        const int digit = HexDigit(c);
        if (digit >= 0 && high >= 0) {
            bytes += static_cast<char>(high << 4 | digit);
            high = -1;
        } else if (digit >= 0) {
            high = digit;
        }
    }
    return bytes;
}

std::string_view Trim(std::string_view text) {
    constexpr std::string_view kWhite = " \t\n\v\f\r";
    const size_t begin = text.find_first_not_of(kWhite);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kWhite) - begin + 1);
}

}  // namespace dunvey
