#include "platform/text/encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace dunvey {
namespace {

std::string Bytes(const char* bytes, size_t size) {
    return {bytes, size};
}

TEST(Encoding, ConvertsCharacterByCharacter) {
    const auto utf8 = Encodings::UTF8;
    const auto utf16 = Encodings::UTF16;
    const auto latin = Encodings::ISOLatin1;
    const auto ascii = Encodings::ASCII;
    const std::string unreadable = "\xEF\xBF\xBD";
    const std::pair<EncodedText, EncodedText> cases[] = {
        {{"\xE9\x80\xFF", latin}, {"\xC3\xA9\xC2\x80\xC3\xBF", utf8}},
        {{"a\xE9", ascii}, {"a" + unreadable, utf8}},
        {{Bytes("\xE5\x65\x3D\xD8\x00\xDE", 6), utf16}, {"日😀", utf8}},
        {{Bytes("\xFE\xFF\x65\xE5", 4), utf16}, {"日", utf8}},
        {{Bytes("\xFF\xFE\xE5\x65", 4), utf16}, {"日", utf8}},
        {{Bytes("\x3D\xD8\x41\x00\x00\xDE\x42", 7), utf16},
         {unreadable + "A" + unreadable + unreadable, utf8}},
        {{Bytes("\x3D\xD8", 2), utf16}, {unreadable, utf8}},
        {{"é日😀", utf8}, {Bytes("\xE9\x00\xE5\x65\x3D\xD8\x00\xDE", 8), utf16}},
        {{"aé日", utf8}, {"a\xE9?", latin}},
        {{"aé日", utf8}, {"a??", ascii}},
        // Not the shortest form, a surrogate, beyond the last: no characters.
        {{"\xE0\x80\xAF|\xED\xA0\x80|\xF4\x90\x80\x80", utf8}, {"?|?|?", latin}},
        {{"\xFF", utf8}, {"\xFF", utf8}},
        {{"\xFF", TextEncoding::None}, {"\xFF", utf8}},
    };
    for (const auto& [from, to] : cases)
        EXPECT_EQ(ConvertEncoding(from, to.Encoding), to) << to.Bytes;
}

}  // namespace
}  // namespace dunvey
