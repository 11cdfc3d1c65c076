#include "platform/text/text.h"

#include <gtest/gtest.h>

#include "platform/text/encoding.h"
#include "platform/text/shown_text.h"

namespace dunvey {
namespace {

using namespace std::string_literals;

TEST(Text, PositionsCountCharactersFromOne) {
    const std::tuple<int64_t, const char*, const char*, int64_t> cases[] = {
        {0, "Adobe", "b", 4},      {1, "abab", "ab", 1}, {2, "abab", "ab", 3},
        {0, "abc", "B", 0},        {0, "日本x", "x", 3}, {3, "日本x日", "日", 4},
        {0, "abc", "", 0},         {9, "abc", "c", 0},   {INT64_MIN, "abc", "c", 3},
        {INT64_MAX, "abc", "c", 0}};
    for (const auto& [start, text, part, position] : cases)
        EXPECT_EQ(InStr(start, text, part), position) << text << " " << part;
}

TEST(Text, CutsByCharactersAndByBytes) {
    EXPECT_EQ(Left("日本語", 2), "日本");
    EXPECT_EQ(Left("\xE6\x97", 1), "\xE6") << "a byte of no valid sequence is a character";
    EXPECT_EQ(Left("abc", 9), "abc");
    EXPECT_EQ(Left("abc", -1), "");
    EXPECT_EQ(LeftB("日x", 3), "日");
    EXPECT_EQ(RightB("0d.01", 2), "01");
    EXPECT_EQ(RightB("a", 2), "a");
    EXPECT_EQ(Len("a\xFF日😀"), 4);
    EXPECT_EQ(LenB("日"), 3);
    EXPECT_EQ(BytesOfCharacters("été", 1), 2);
    EXPECT_EQ(Trim(" \t\r\n\v\fa b\n"), "a b");
    EXPECT_EQ(Trim(" \n"), "");
}

TEST(Text, SplitsAndReplaces) {
    using Pieces = std::vector<std::string>;
    EXPECT_EQ(SplitB("a.b..c.", "."), (Pieces{"a", "b", "", "c", ""}));
    EXPECT_EQ(SplitB("", "."), Pieces{""});
    const char* const fields[] = {"", "8", "1", "0", ""};
    for (int64_t i = 0; i < 5; ++i)
        EXPECT_EQ(NthField("8.1.0", ".", i), fields[i]) << i;
    EXPECT_EQ(Replace("CS 3 CS 3 1", "CS 3 ", ""), "CS 3 1") << "the first occurrence only";
    EXPECT_EQ(Replace("a", "", "b"), "a");
    EXPECT_EQ(ReplaceAll("aXXbX", "X", "XX"), "aXXXXbXX");
    EXPECT_EQ(ReplaceAll("a", "", "b"), "a");
}

TEST(Text, CodePointsBecomeUtf8) {
    const std::pair<uint32_t, std::string> cases[] = {
        {0, {'\0'}},    {0x41, "A"},        {0xE9, "é"},         {0x65E5, "日"},
        {0x1F600, "😀"}, {0xD83D, "\uFFFD"}, {0x110000, "\uFFFD"}};
    for (const auto& [code, text] : cases)
        EXPECT_EQ(Chr(code), text);
}

TEST(Text, HexadecimalDigitsBecomeBytes) {
    EXPECT_EQ(EncodeHex("\x06\xED", true), "06 ED");
    EXPECT_EQ(DecodeHex("4x-A4b5"), "JK") << "other characters are skipped";
    for (int byte = 0; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        EXPECT_EQ(DecodeHex(EncodeHex(text)), text);
    }
}

TEST(Encoding, ConvertsCharacterByCharacter) {
    using enum TextEncoding;
    const std::pair<EncodedText, EncodedText> cases[] = {
        {{"a\xE9", ASCII}, {"a\uFFFD", UTF8}},
        {{"\xE5\x65\x3D\xD8\x00\xDE"s, UTF16}, {"日😀", UTF8}},
        {{"\xFE\xFF\x65\xE5", UTF16}, {"日", UTF8}},
        {{"\xFF\xFE\xE5\x65", UTF16}, {"日", UTF8}},
        {{"\x3D\xD8\x41\x00\x00\xDE\x42"s, UTF16}, {"\uFFFDA\uFFFD\uFFFD", UTF8}},
        {{"\x3D\xD8", UTF16}, {"\uFFFD", UTF8}},
        {{"é日😀", UTF8}, {"\xE9\x00\xE5\x65\x3D\xD8\x00\xDE"s, UTF16}},
        {{"aé日", UTF8}, {"a??", ASCII}},
        // An overlong form, a surrogate, a code point beyond the last one.
        {{"\xE0\x80\xAF|\xED\xA0\x80|\xF4\x90\x80\x80", UTF8}, {"?|?|?", ASCII}},
        {{"\xFF", UTF8}, {"\xFF", UTF8}},
        {{"\xFF", None}, {"\xFF", UTF8}}};
    for (const auto& [from, to] : cases)
        EXPECT_EQ(ConvertEncoding(from, to.Encoding), to) << to.Bytes;
}

TEST(ShownText, OneLineReplacesControlCharactersAndInvisibleMarks) {
    const std::pair<const char*, const char*> cases[] = {
        {"a\nb\tc\x7F", "a\u240Ab\u2409c\u2421"},
        {"\u202Egnp.exe\u2066x\u2069", "\uFFFDgnp.exe\uFFFDx\uFFFD"},
        {"\u200Fa\u061C (1)\u200B\uFEFF", "\uFFFDa\uFFFD (1)\uFFFD\uFFFD"},
        {"a\u2028b\u2029", "a\uFFFDb\uFFFD"},
        {"\xC2\x85\xC2\x9F\xC2\xA0", "\uFFFD\uFFFD\u00A0"}};
    for (const auto& [text, line] : cases)
        EXPECT_EQ(OneLine(text), line);
    for (const char* kept : {"\u2027\u202F\u2065", "\xE2\x80", "\xC2", "日本語 שלום"})
        EXPECT_EQ(OneLine(kept), kept);
}

}  // namespace
}  // namespace dunvey
