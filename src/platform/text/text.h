#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/number_text.h"

/// Operations on text. Text is UTF-8 bytes; a "character" is a code point, and a byte that belongs
/// to no valid sequence counts as a character of its own. Nothing here depends on the locale, and
/// every comparison is exact.
namespace dunvey {

/// The 1-based character position of `find` in `text` at or after the character position `start`
/// (0 and 1 both mean the beginning); 0 if there is none or `find` is empty.
int64_t InStr(int64_t start, std::string_view text, std::string_view find);

/// The first `count` characters, fewer if the text is shorter.
std::string Left(std::string_view text, int64_t count);
/// The first and the last `count` bytes, fewer if the text is shorter.
std::string LeftB(std::string_view text, int64_t count);
std::string RightB(std::string_view text, int64_t count);
/// The length in bytes.
int64_t LenB(std::string_view text);
/// The length in characters.
int64_t Len(std::string_view text);

/// The text with the ASCII letters in lower case; other characters are unchanged.
std::string Lowercase(std::string_view text);

/// The piece at the 1-based position `number` between separators; empty beyond the last piece.
std::string NthField(std::string_view text, std::string_view separator, int64_t number);

/// The text with the first occurrence of `find` replaced; unchanged if there is none.
std::string Replace(std::string_view text, std::string_view find, std::string_view replacement);

/// The text with every occurrence of `find` replaced, from the left; unchanged if there is none.
std::string ReplaceAll(std::string text, std::string_view find, std::string_view replacement);

/// The pieces between separators; an empty text or one without separators is one piece.
std::vector<std::string> SplitB(std::string_view text, std::string_view separator);

/// The last dot-separated piece of a file name; the whole name where it has no dot.
std::string FileExtension(std::string_view name);

/// Whether the extension, in any ASCII letter case, is in the list, which is in lower case.
bool IsExtensionIn(const std::vector<std::string>& extensions, std::string_view extension);

/// The UTF-8 form of a code point; of U+FFFD for a lone surrogate or a value beyond U+10FFFF.
std::string Chr(uint32_t codePoint);

/// Two upper-case hexadecimal digits for each byte, with a blank between bytes if `blanks`.
std::string EncodeHex(std::string_view bytes, bool blanks = false);

/// The bytes of each pair of hexadecimal digits, in either letter case. Other characters and a
/// single digit at the end are skipped.
std::string DecodeHex(std::string_view digits);

/// The text without the white space (blank, tab, line ends, form feed) at both ends.
std::string_view Trim(std::string_view text);

/// Whether the byte is the first one of a character in UTF-8.
constexpr bool BeginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}
/// The length in bytes of the text's first `characters` characters.
int64_t BytesOfCharacters(std::string_view text, int64_t characters);

namespace EndOfLine {
inline constexpr std::string_view UNIX = "\n";
/// The line ending of this platform.
inline constexpr std::string_view Platform = UNIX;
}  // namespace EndOfLine

}  // namespace dunvey
