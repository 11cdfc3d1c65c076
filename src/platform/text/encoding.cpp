#include "platform/text/encoding.h"

#include <string_view>
#include <utility>

#include "platform/text/text.h"

namespace dunvey {
namespace {

constexpr char32_t kUnreadable = 0xFFFD;

uint8_t ByteAt(std::string_view bytes, size_t position) {
    return static_cast<uint8_t>(bytes[position]);
}

/// The code point of the character that takes exactly these bytes.
char32_t CodePoint(std::string_view character) {
    const uint8_t lead = ByteAt(character, 0);
    if (character.size() == 1) return lead < 0x80 ? lead : kUnreadable;
    auto value = static_cast<char32_t>(lead & (0xFF >> (character.size() + 1)));
    for (size_t i = 1; i < character.size(); ++i) {
        value = (value << 6) | (ByteAt(character, i) & 0x3Fu);
    }
    // A longer form than needed, a surrogate or a value above U+10FFFF is no character.
    return Chr(value) == character ? value : kUnreadable;
}

std::u32string FromUTF8(std::string_view bytes) {
    std::u32string characters;
    while (!bytes.empty()) {
        const auto length = static_cast<size_t>(BytesOfCharacters(bytes, 1));
        characters += CodePoint(bytes.substr(0, length));
        bytes.remove_prefix(length);
    }
    return characters;
}

std::u32string FromASCII(std::string_view bytes) {
    std::u32string characters;
    for (size_t i = 0; i < bytes.size(); ++i)
        characters += ByteAt(bytes, i) < 0x80 ? char32_t{ByteAt(bytes, i)} : kUnreadable;
    return characters;
}

std::u32string FromUTF16(std::string_view bytes) {
    const bool highFirst = bytes.substr(0, 2) == "\xFE\xFF";
    if (highFirst || bytes.substr(0, 2) == "\xFF\xFE") bytes.remove_prefix(2);
    const auto unit = [&](size_t at) {
        const size_t low = highFirst ? 1 : 0;
        return static_cast<char32_t>(ByteAt(bytes, at + low) | ByteAt(bytes, at + 1 - low) << 8);
    };
    std::u32string characters;
    size_t at = 0;
    for (; at + 2 <= bytes.size(); at += 2) {
        char32_t value = unit(at);
        if (value >= 0xD800 && value < 0xDC00 && at + 4 <= bytes.size() &&
            (unit(at + 2) & 0xFC00) == 0xDC00) {
            at += 2;
            value = 0x10000 + ((value & 0x3FF) << 10) + (unit(at) & 0x3FF);
        }
        characters += (value & 0xFFFFF800) == 0xD800 ? kUnreadable : value;
    }
    if (at < bytes.size()) characters += kUnreadable;
    return characters;
}

std::u32string Characters(const EncodedText& text) {
    switch (text.Encoding) {
        case TextEncoding::ASCII:
            return FromASCII(text.Bytes);
        case TextEncoding::UTF16:
            return FromUTF16(text.Bytes);
        default:
            return FromUTF8(text.Bytes);
    }
}

void AppendUTF16(std::string& bytes, char32_t unit) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
}

void AppendCharacter(std::string& bytes, char32_t character, TextEncoding encoding) {
    if (encoding == TextEncoding::UTF16 && character >= 0x10000) {
        AppendUTF16(bytes, 0xD800 + ((character - 0x10000) >> 10));
        AppendUTF16(bytes, 0xDC00 + ((character - 0x10000) & 0x3FF));
    } else if (encoding == TextEncoding::UTF16) {
        AppendUTF16(bytes, character);
    } else if (encoding == TextEncoding::UTF8) {
        bytes += Chr(character);
    } else {
        bytes += character < 0x80 ? static_cast<char>(character) : '?';
    }
}

}  // namespace

EncodedText DefineEncoding(EncodedText text, TextEncoding encoding) {
    text.Encoding = encoding;
    return text;
}

EncodedText ConvertEncoding(EncodedText text, TextEncoding encoding) {
    if (text.Encoding == encoding || text.Encoding == TextEncoding::None ||
        encoding == TextEncoding::None) {
        return DefineEncoding(std::move(text), encoding);
    }
    EncodedText converted{{}, encoding};
    for (const char32_t character : Characters(text)) {
        AppendCharacter(converted.Bytes, character, encoding);
    }
    return converted;
}

}  // namespace dunvey
