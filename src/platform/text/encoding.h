#pragma once

#include <cstdint>
#include <string>

namespace dunvey {

/// How the bytes of a text are read. None: not known.
enum class TextEncoding : uint8_t { None, UTF8, ASCII, UTF16 };

/// The encodings by name. UTF16 is little-endian; when a text is read, a byte-order mark at its
/// beginning decides.
namespace Encodings {
inline constexpr TextEncoding UTF8 = TextEncoding::UTF8;
inline constexpr TextEncoding ASCII = TextEncoding::ASCII;
inline constexpr TextEncoding UTF16 = TextEncoding::UTF16;
}  // namespace Encodings

/// Bytes and their encoding.
struct EncodedText {
    std::string Bytes;
    TextEncoding Encoding = TextEncoding::None;

    friend bool operator==(const EncodedText&, const EncodedText&) = default;
};

/// The same bytes, declared to be in the encoding.
EncodedText DefineEncoding(EncodedText text, TextEncoding encoding);

/// The same characters in another encoding. A character that the new encoding lacks becomes "?",
/// invalid bytes become U+FFFD. Text that has no encoding keeps its bytes.
EncodedText ConvertEncoding(EncodedText text, TextEncoding encoding);

}  // namespace dunvey
