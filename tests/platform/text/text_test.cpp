#include "platform/text/text.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/text/encoding.h"
#include "platform/text/shown_text.h"
#include "support/hostile_names.h"

namespace dunvey {
namespace {

TEST(Text, PositionsCountCharactersFromOne) {
    struct Case {
        int64_t start;
        const char* text;
        const char* part;
        int64_t position;
    };
    const Case cases[] = {{0, "Adobe", "b", 4},       {1, "abab", "ab", 1},
                          {2, "abab", "ab", 3},       {0, "abc", "B", 0},
                          {0, "日本x", "x", 3},       {3, "日本x日", "日", 4},
                          {0, "abc", "", 0},          {9, "abc", "c", 0},
                          {INT64_MIN, "abc", "c", 3}, {INT64_MAX, "abc", "c", 0}};
    for (const auto& [start, text, part, position] : cases)
        EXPECT_EQ(InStr(start, text, part), position) << text << " " << part;
}

TEST(Text, CutsByCharactersAndByBytes) {
    EXPECT_EQ(Left("\u65e5\u672c\u8a9e", 2), "\u65e5\u672c");
    EXPECT_EQ(Left("\xE6\x97", 1), "\xE6") << "a torn character counts byte by byte";
    EXPECT_EQ(Left("abc", 9), "abc");
    EXPECT_EQ(Left("abc", -1), "");
    EXPECT_EQ(LeftB("\u65e5x", 3), "\u65e5");
    EXPECT_EQ(RightB("0d.01", 2), "01");
    EXPECT_EQ(RightB("a", 2), "a");
    EXPECT_EQ(Len("a\xFF\u65e5\U0001F600"), 4);
    EXPECT_EQ(LenB("\u65e5"), 3);
    EXPECT_EQ(BytesOfCharacters("\u00e9t\u00e9", 1), 2);
}

TEST(Text, SplitsIntoPieces) {
    EXPECT_EQ(SplitB("a.b..c", "."), (std::vector<std::string>{"a", "b", "", "c"}));
    EXPECT_EQ(SplitB("indd", "."), std::vector<std::string>{"indd"});
    EXPECT_EQ(SplitB("", "."), std::vector<std::string>{""});
    EXPECT_EQ(SplitB("end\n", "\n"), (std::vector<std::string>{"end", ""}));
    EXPECT_EQ(NthField("8.1.0", ".", 1), "8");
    EXPECT_EQ(NthField("8.1.0", ".", 3), "0");
    EXPECT_EQ(NthField("8.1.0", ".", 4), "");
    EXPECT_EQ(NthField("8", ".", 0), "");
    EXPECT_EQ(Replace("CS 3 CS 3 1", "CS 3 ", ""), "CS 3 1") << "the first occurrence only";
    EXPECT_EQ(Replace("a", "", "b"), "a");
    EXPECT_EQ(ReplaceAll("aXXbX", "X", "XX"), "aXXXXbXX");
    EXPECT_EQ(ReplaceAll("a", "", "b"), "a");
}

TEST(Text, CodePointsBecomeUtf8) {
    const std::pair<uint32_t, const char*> cases[] = {{0x41, "A"},        {0xE9, "é"},
                                                      {0x65E5, "日"},     {0x1F600, "😀"},
                                                      {0xD83D, "\uFFFD"}, {0x110000, "\uFFFD"}};
    for (const auto& [code, text] : cases)
        EXPECT_EQ(Chr(code), text);
    EXPECT_EQ(Chr(0), std::string(1, '\0'));
}

TEST(Text, HexadecimalDigitsBecomeBytes) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(EncodeHex("\x06\xED"), "06ED");
    EXPECT_EQ(EncodeHex("\x06\xED", true), "06 ED");
    EXPECT_EQ(DecodeHex(EncodeHex(all)), all);
    EXPECT_EQ(DecodeHex(EncodeHex(all, true)), all);
    EXPECT_EQ(DecodeHex("4a4B5"), "JK");
    EXPECT_EQ(DecodeHex("4x-A4B"), "JK") << "other characters are skipped";
}

TEST(Text, TrimKeepsWhatIsInside) {
    EXPECT_EQ(Trim(" \t\r\n\v\fa b\n"), "a b");
    EXPECT_EQ(Trim("a"), "a");
    for (const char* blank : {" \n", ""})
        EXPECT_EQ(Trim(blank), "");
}

std::string Bytes(const char* bytes, size_t size) {
    return {bytes, size};
}

TEST(Encoding, ConvertsCharacterByCharacter) {
    const auto utf8 = Encodings::UTF8;
    const auto utf16 = Encodings::UTF16;
    const auto ascii = Encodings::ASCII;
    const std::string unreadable = "\xEF\xBF\xBD";
    const std::pair<EncodedText, EncodedText> cases[] = {
        {{"a\xE9", ascii}, {"a" + unreadable, utf8}},
        {{Bytes("\xE5\x65\x3D\xD8\x00\xDE", 6), utf16}, {"日😀", utf8}},
        {{Bytes("\xFE\xFF\x65\xE5", 4), utf16}, {"日", utf8}},
        {{Bytes("\xFF\xFE\xE5\x65", 4), utf16}, {"日", utf8}},
        {{Bytes("\x3D\xD8\x41\x00\x00\xDE\x42", 7), utf16},
         {unreadable + "A" + unreadable + unreadable, utf8}},
        {{Bytes("\x3D\xD8", 2), utf16}, {unreadable, utf8}},
        {{"é日😀", utf8}, {Bytes("\xE9\x00\xE5\x65\x3D\xD8\x00\xDE", 8), utf16}},
        {{"aé日", utf8}, {"a??", ascii}},
        // Not the shortest form, a surrogate, beyond the last: no characters.
        {{"\xE0\x80\xAF|\xED\xA0\x80|\xF4\x90\x80\x80", utf8}, {"?|?|?", ascii}},
        {{"\xFF", utf8}, {"\xFF", utf8}},
        {{"\xFF", TextEncoding::None}, {"\xFF", utf8}},
    };
    for (const auto& [from, to] : cases)
        EXPECT_EQ(ConvertEncoding(from, to.Encoding), to) << to.Bytes;
}

TEST(ShownText, OneLineReplacesWhatDisturbsALine) {
    for (const std::string& name : test::HostileNames()) {
        const std::string line = OneLine(name);
        EXPECT_TRUE(std::none_of(line.begin(), line.end(), [](char byte) {
            return (byte >= 0 && byte < 0x20) || byte == 0x7F;
        })) << name;
        EXPECT_EQ(line.find("\xE2\x80\xAE"), std::string::npos);
    }
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
