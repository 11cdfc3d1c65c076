#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "persistence/json_item.h"
#include "persistence/raised.h"

namespace dunvey {
namespace {

using tests::Raised;

/// The document as it was understood, written back; the fault if it was refused.
std::string Understood(const std::string& text) {
    std::string result;
    const std::string raised = Raised([&] {
        JSONItem item(text);
        item.EscapeSlashes = false;
        result = item.ToString();
    });
    return raised == "nothing" ? result : raised;
}

std::string Nested(int levels, const std::string& open, const std::string& close) {
    std::string text;
    for (int i = 0; i < levels; ++i)
        text += open;
    for (int i = 0; i < levels; ++i)
        text += close;
    return text;
}

struct ParseCase {
    std::string text;
    std::string result;
};

void ExpectUnderstood(const std::vector<ParseCase>& cases) {
    for (const auto& [text, result] : cases) {
        EXPECT_EQ(Understood(text), result) << text.substr(0, 100);
    }
}

TEST(JSONParse, AcceptsWhatItMust) {
    ExpectUnderstood({
        {"{}", "{}"},
        {"[]", "[]"},
        {" \t\r\n{ \t\r\n} ", "{}"},
        {"[ ]", "[]"},
        {"{} trailing", "{}"},
        {"[1]]", "[1]"},
        {"{\"a\":1,\"b\":[true,null,false]}", "{\"a\":1,\"b\":[true,null,false]}"},
        {"{ \"a\" : 1 , \"b\" : { } }", "{\"a\":1,\"b\":{}}"},
        {"{\"\":[[],{}]}", "{\"\":[[],{}]}"},
        // A later value replaces the earlier one, in its place.
        {"{\"a\":1,\"b\":2,\"a\":3}", "{\"a\":3,\"b\":2}"},
        {"{\"a\":1,\"A\":2}", "{\"a\":1,\"A\":2}"},
        // A name is a string like any other.
        {"{\"\\u0041\\t\":1}", "{\"A\\t\":1}"},
        {"[\"\\\"\\\\\\/\\b\\f\\n\\r\\t\"]", "[\"\\\"\\\\/\\b\\f\\n\\r\\t\"]"},
        {"[\"\\u00e9\\u00E9\\u65e5\"]", "[\"éé日\"]"},
        // The halves of a pair stand for themselves, and alone they are no character.
        {"[\"\\uD83D\\uDE00\"]", "[\"\\uFFFD\\uFFFD\"]"},
        {"[\"\\uD800x\"]", "[\"\\uFFFDx\"]"},
        // What isn't hexadecimal counts as far as it is; four bytes go in any case.
        {"[\"\\u12G4\\uxyz!\\u 123\"]", "[\"\\u0012\\u0000\\u0000\"]"},
        {"[\"\\u41\"]\"]", "[\"A\"]"},
        {"[\"a\tb\nc\"]", "[\"a\\tb\\nc\"]"},
        {"[\"\xFF\xC3(\"]", "[\"\xFF\xC3(\"]"},
        {std::string("[\"a\0b\",\"\\u0000\"]", 16), "[\"a\\u0000b\",\"\\u0000\"]"},
        {"[\"日本語 and more than fourteen bytes\"]", "[\"日本語 and more than fourteen bytes\"]"},
        {Nested(1000, "[", "]"), Nested(1000, "[", "]")},
    });
}

TEST(JSONParse, FindsTheEndOfStringsOfAnyLength) {
    for (size_t length = 0; length < 40; ++length) {
        const std::string plain = "[\"" + std::string(length, 'x') + "\"]";
        EXPECT_EQ(Understood(plain), plain);
        // The text may end anywhere behind it.
        EXPECT_EQ(Understood(plain.substr(0, length + 2)),
                  "2 A parsing error occurred at position " + std::to_string(length + 2));
        // Bytes that differ in one bit from a quote or a backslash.
        for (const char* escape : {"\\\"", "\\\\", "#", "]", "\xA2", "\xDC"}) {
            std::string text = plain;
            text.insert(2 + length / 2, escape);
            EXPECT_EQ(Understood(text), text);
        }
    }
}

TEST(JSONParse, RefusesWithNumberTextAndPosition) {
    ExpectUnderstood({
        {"42", "1 Parse Error: Expecting '{' or '['"},
        {"  42", "1 Parse Error: Expecting '{' or '[' at position 2"},
        {"\xEF\xBB\xBF{}", "1 Parse Error: Expecting '{' or '['"},
        {"\"text\"", "1 Parse Error: Expecting '{' or '['"},
        {std::string("\0", 1), "1 Parse Error: Expecting '{' or '['"},
        {"[1,2", "2 A parsing error occurred at position 4"},
        {"[1 2]", "2 A parsing error occurred at position 4"},
        {"[012]", "2 A parsing error occurred at position 3"},
        {"[", "2 A parsing error occurred at position 1"},
        {"[1,", "2 A parsing error occurred at position 3"},
        {"[truex]", "2 A parsing error occurred at position 6"},
        {"[-]", "3 Illegal Number Format at position 3"},
        {"[-", "3 Illegal Number Format at position 2"},
        {"[1.]", "3 Illegal Number Format at position 4"},
        {"[1.e5]", "3 Illegal Number Format at position 4"},
        {"[-.5]", "3 Illegal Number Format at position 3"},
        {"{\"a\" 1}", "5 Missing : at position 6"},
        {"{\"a", "5 Missing : at position 3"},
        {"{\"a\":1 \"b\":2}", "6 Missing , or } at position 8"},
        {"{\"a\":\"x", "6 Missing , or } at position 7"},
        {"{\"a\":", "6 Missing , or } at position 5"},
        {"{\"a\":01}", "6 Missing , or } at position 7"},
        {"{\"a\":0E1}", "6 Missing , or } at position 7"},
        {"{\"a\":1]", "6 Missing , or } at position 7"},
        {"{", "7 Missing \" at position 1"},
        {"{a:1}", "7 Missing \" at position 2"},
        {"{\"a\":1,}", "7 Missing \" at position 8"},
        {"[\"\\u12", "8 Illegal Unicode Character Format at position 6"},
        {"[\"\\u", "8 Illegal Unicode Character Format at position 4"},
        {"[\"\\x\"]", "9 Illegal Character at position 4"},
        {"[\"\\U0041\"]", "9 Illegal Character at position 4"},
        {"[\"\\", "9 Illegal Character at position 3"},
        {"[1,]", "10 Illegal Value at position 3"},
        {"[,1]", "10 Illegal Value at position 1"},
        {"{\"a\":tru}", "10 Illegal Value at position 5"},
        {"{\"a\":TRUE}", "10 Illegal Value at position 5"},
        {"{\"a\":Null}", "10 Illegal Value at position 5"},
        // The word is gone through as far as "fals" and one byte more.
        {"{\"a\":falsy}", "10 Illegal Value at position 10"},
        {"{\"a\":fals", "10 Illegal Value at position 9"},
        {"[+1]", "10 Illegal Value at position 1"},
        {"[.5]", "10 Illegal Value at position 1"},
        {"[NaN]", "10 Illegal Value at position 1"},
        {"['a']", "10 Illegal Value at position 1"},
        {Nested(1001, "[", "]"), "2 A parsing error occurred at position 1001"},
        {Nested(1001, "{\"a\":", "}"), "2 A parsing error occurred at position 5001"},
        {std::string(100000, '['), "2 A parsing error occurred at position 1001"},
    });
}

TEST(Parse, KeepsTheOldValuesOfAnItemWhenTheTextIsRefused) {
    JSONItem item("{\"a\":1}");
    EXPECT_EQ(Raised([&] { item.Load("{\"b\":2"); }), "6 Missing , or } at position 6");
    EXPECT_EQ(item.ToString(), "{\"a\":1}");
    item.Load(" \t\n");
    EXPECT_EQ(item.ToString(), "{\"a\":1}");
    item.Load("{\"b\":2}");
    EXPECT_EQ(item.ToString(), "{\"b\":2}");
}

TEST(Parse, TellsTheShapeOfTheTopFromItsFirstBracketForGood) {
    JSONItem item;
    EXPECT_EQ(Raised([&] { item.Load("[1,2"); }), "2 A parsing error occurred at position 4");
    EXPECT_TRUE(item.IsArray());
    item.Load("{\"a\":1,\"b\":[]}");
    EXPECT_TRUE(item.IsArray());
    EXPECT_EQ(item.ToString(), "[1,[]]");
    EXPECT_EQ(item.Names(), (std::vector<std::string>{"a", "b"}));
}

/// Opens the hidden fields.
class OpenItem : public JSONItem {
 public:
    using JSONItem::_ParseBuffer;
};

TEST(Parse, KeepsTheTextParsedLast) {
    OpenItem item;
    EXPECT_FALSE(item._ParseBuffer);
    item.Load("{\"a\":1} tail");
    EXPECT_EQ(item._ParseBuffer->Used(), "{\"a\":1} tail");
    EXPECT_EQ(Raised([&] { item.Load("[x"); }), "10 Illegal Value at position 1");
    EXPECT_EQ(item._ParseBuffer->Used(), "[x");
}

TEST(Parse, PartsOutliveTheirDocument) {
    constexpr int kParts = 700;
    std::string text = "[";
    for (int i = 0; i < kParts; ++i)
        text += (i > 0 ? ",{\"a\":[" : "{\"a\":[") + std::to_string(i) + "]}";
    JSONItem item(text + "]");
    std::vector<Ref<JSONItem>> kept;
    for (int i = 0; i < kParts; i += 50)
        kept.push_back(item.Child(i)->Child("a"));
    item.Load("[1]");
    for (size_t i = 0; i < kept.size(); ++i) {
        kept[i]->Append("more");
        EXPECT_EQ(kept[i]->ToString(), "[" + std::to_string(i * 50) + ",\"more\"]");
    }
}

}  // namespace
}  // namespace dunvey
