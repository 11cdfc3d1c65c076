#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "persistence/json_item.h"
#include "persistence/raised.h"
#include "platform/text/text.h"
#include "platform/values/collection.h"

namespace dunvey {
namespace {

using tests::Raised;
using Limits = std::numeric_limits<double>;

/// The document read and written back; the message if it was refused.
std::string Loaded(const std::string& text) {
    std::string result;
    const std::string raised = Raised([&] {
        JSONItem item(text);
        item.EscapeSlashes = false;
        result = item.ToString();
    });
    return raised == "nothing" ? result : raised;
}

std::string Nested(size_t levels, const std::string& open, const std::string& close) {
    std::string text;
    for (size_t i = 0; i < 2 * levels; ++i)
        text += i < levels ? open : close;
    return text;
}

TEST(JSONParse, AcceptsWhatItMust) {
    for (const std::string& text :
         {std::string("{}"), std::string("[]"), std::string("{\"\":[[],{}]}"),
          std::string("{\"a\":1,\"A\":2}"), std::string("[\"\xFF\xC3(\"]"), Nested(1000, "[", "]")})
        EXPECT_EQ(Loaded(text), text);
    const std::pair<std::string, std::string> cases[] = {
        {" \t\r\n{ \t\r\n} ", "{}"},
        {"[ ]]", "[]"},
        {"{} trailing", "{}"},
        {"{ \"a\" : 1 , \"b\" : [ true,null, false] }", "{\"a\":1,\"b\":[true,null,false]}"},
        // A later value replaces the earlier one, in its place.
        {"{\"a\":1,\"b\":2,\"a\":3}", "{\"a\":3,\"b\":2}"},
        {"{\"\\u0041\\t\":1}", "{\"A\\t\":1}"},
        {"[\"\\\"\\\\\\/\\b\\f\\n\\r\\t\"]", "[\"\\\"\\\\/\\b\\f\\n\\r\\t\"]"},
        {"[\"\\u00e9\\u00E9\\u65e5\"]", "[\"éé日\"]"},
        // Each half of a surrogate pair is converted by itself.
        {"[\"\\uD83D\\uDE00\\uD800x\"]", "[\"\\uFFFD\\uFFFD\\uFFFDx\"]"},
        // The hexadecimal digits at the beginning count; four bytes are taken in any case.
        {"[\"\\u12G4\\uxyz!\\u 123\"]", "[\"\\u0012\\u0000\\u0000\"]"},
        {"[\"\\u41\"]\"]", "[\"A\"]"},
        {std::string("[\"a\tb\nc\0\"]", 10), "[\"a\\tb\\nc\\u0000\"]"}};
    for (const auto& [text, result] : cases)
        EXPECT_EQ(Loaded(text), result);
}

TEST(JSONParse, RefusesWithNumberTextAndPosition) {
    // Position 0 is not named.
    const std::pair<std::string, std::vector<std::pair<std::string, int>>> cases[] = {
        {"1 Parse Error: Expecting '{' or '['",
         {{"42", 0}, {"  42", 2}, {"\xEF\xBB\xBF{}", 0}, {"\"text\"", 0}, {{"\0", 1}, 0}}},
        {"2 A parsing error occurred",
         {{"[1,2", 4}, {"[1 2]", 4}, {"[012]", 3}, {"[", 1}, {"[1,", 3}, {"[truex]", 6}}},
        {"2 A parsing error occurred",
         {{Nested(1001, "[", "]"), 1001}, {Nested(1001, "{\"a\":", "}"), 5001}}},
        {"3 Illegal Number Format",
         {{"[-]", 3}, {"[-", 2}, {"[1.]", 4}, {"[1.e5]", 4}, {"[-.5]", 3}}},
        {"5 Missing :", {{"{\"a\" 1}", 6}, {"{\"a", 3}}},
        {"6 Missing , or }", {{"{\"a\":1 \"b\":2}", 8}, {"{\"a\":\"x", 7}, {"{\"a\":", 5}}},
        {"6 Missing , or }", {{"{\"a\":01}", 7}, {"{\"a\":0E1}", 7}, {"{\"a\":1]", 7}}},
        {"7 Missing \"", {{"{", 1}, {"{a:1}", 2}, {"{\"a\":1,}", 8}}},
        {"8 Illegal Unicode Character Format", {{"[\"\\u12", 6}, {"[\"\\u", 4}}},
        {"9 Illegal Character", {{"[\"\\x\"]", 4}, {"[\"\\U0041\"]", 4}, {"[\"\\", 3}}},
        {"10 Illegal Value", {{"[1,]", 3}, {"[,1]", 1}, {"[+1]", 1}, {"[.5]", 1}, {"[NaN]", 1}}},
        {"10 Illegal Value", {{"{\"a\":tru}", 5}, {"{\"a\":TRUE}", 5}, {"['a']", 1}}},
        // The position is after "fals" and one more byte.
        {"10 Illegal Value", {{"{\"a\":falsy}", 10}, {"{\"a\":fals", 9}}}};
    for (const auto& [message, texts] : cases) {
        for (const auto& [text, position] : texts) {
            const std::string place = " at position " + std::to_string(position);
            EXPECT_EQ(Loaded(text), message + (position > 0 ? place : "")) << text.substr(0, 100);
        }
    }
}

struct OpenItem : JSONItem {
    using JSONItem::_ParseBuffer;
    using JSONItem::_RenderAsJavascript;
};

TEST(JSONParse, ARefusedTextChangesOnlyTheParseBufferAndTheShape) {
    OpenItem item;
    EXPECT_FALSE(item._ParseBuffer);
    item.Load("{\"a\":1} tail");
    EXPECT_EQ(item._ParseBuffer->Bytes(), "{\"a\":1} tail");
    EXPECT_EQ(Raised([&] { item.Load("{\"b\":2"); }), "6 Missing , or } at position 6");
    EXPECT_EQ(item._ParseBuffer->Bytes(), "{\"b\":2");
    item.Load(" \t\n");
    EXPECT_EQ(item.ToString(), "{\"a\":1}");
    item.Load("{\"b\":2}");
    EXPECT_EQ(item.ToString(), "{\"b\":2}");
    EXPECT_EQ(Raised([&] { item.Load("[1,2"); }), "2 A parsing error occurred at position 4");
    EXPECT_EQ(item.ToString(), "[2]") << "an item once read from an array stays one";
    item.Load("{\"a\":1,\"b\":[]}");
    EXPECT_EQ(item.ToString(), "[1,[]]");
    EXPECT_EQ(item.Names(), (std::vector<std::string>{"a", "b"}));
}

TEST(JSONParse, NumbersGoThroughADouble) {
    const std::pair<std::string, Variant> cases[] = {
        {"-0", 0},
        {"2147483647", INT32_MAX},
        {"-2147483648", INT32_MIN},
        {"2147483648", int64_t{2147483648}},
        {"-2147483649", int64_t{-2147483649}},
        {"9007199254740993", int64_t{9007199254740992}},
        {"9223372036854774784", int64_t{9223372036854774784}},
        {"18446744073709551616", INT64_MAX},
        {"-100000000000000000000", INT64_MIN},
        {std::string(400, '9'), INT64_MAX},
        {"1.0", 1.0},
        {"1E+2", 100.0},
        {"0e5", 0.0},
        {"-0.0", -0.0},
        {"1e", 1.0},
        {"1e+", 1.0},
        {"-1e-400", -0.0},
        {"123456.789", 123456.789},
        {"1.7976931348623157e308", Limits::max()},
        {"-1e400", -Limits::infinity()},
        {"5e-324", Limits::denorm_min()}};
    for (const auto& [text, number] : cases) {
        const Variant value = JSONItem("[" + text + "]").Value(0);
        EXPECT_EQ(value.VarType(), number.VarType()) << text;
        EXPECT_TRUE(value == number) << text;
        EXPECT_EQ(std::signbit(value.DoubleValue()), std::signbit(number.DoubleValue())) << text;
    }
}

std::string Written(const Variant& value) {
    JSONItem item;
    item.Append(value);
    const std::string text = item.ToString();
    return text.substr(1, text.size() - 2);
}

TEST(JSONWrite, GivesEachTypeItsForm) {
    const std::pair<Variant, std::string> cases[] = {
        {Variant(), "null"}, {true, "true"},        {false, "false"},    {-7, "-7"},
        {2.5f, "2.5"},       {100.0, "100.0"},      {-0.25, "-0.25"},    {NAN, "null"},
        {INFINITY, "null"},  {int64_t{100}, "100"}, {-INFINITY, "null"}, {Ref<JSONItem>(), "null"},
        {"a/b", "\"a\\/b\""}};
    for (const auto& [value, text] : cases)
        EXPECT_EQ(Written(value), text);
    EXPECT_EQ(Written(INT64_MIN), "-9223372036854775808");
    EXPECT_EQ(Written(0.1f), "0.100000001490116");
    EXPECT_EQ(Written(Variant(std::string("\xE9\0", 2), Encodings::UTF16)), "\"é\"");
    EXPECT_EQ(Written(Variant("é", TextEncoding::None)), "\"é\"");
}

TEST(JSONWrite, EscapesEachRangeUpToItsEdges) {
    const std::vector<std::pair<uint32_t, uint32_t>> ranges = {
        {0x00, 0x1F},     {0x7F, 0x7F},     {0xAD, 0xAD},     {0x600, 0x604},
        {0x70F, 0x70F},   {0x17B4, 0x17B5}, {0x200C, 0x200F}, {0x2028, 0x202F},
        {0x2060, 0x206F}, {0xFEFF, 0xFEFF}, {0xFFF0, 0xFFFF}};
    const std::string named = "\b\f\n\r\t";
    for (const auto& [first, last] : ranges) {
        for (uint32_t code = first; code <= last; ++code) {
            if (code < 0x20 && named.find(char(code)) != std::string::npos) continue;
            const std::string bytes = {static_cast<char>(code >> 8), static_cast<char>(code)};
            EXPECT_EQ(Written(Chr(code)), "\"\\u" + EncodeHex(bytes) + "\"") << code;
        }
        for (const uint32_t code : {first - 1, last + 1}) {
            if (code > 0xFFFFF) continue;
            EXPECT_EQ(Written(Chr(code)), "\"" + Chr(code) + "\"") << code;
        }
    }
    EXPECT_EQ(Written(named + "\"\\"), "\"\\b\\f\\n\\r\\t\\\"\\\\\"");
    // Bytes that form no character stay as they are.
    for (const std::string bytes :
         {"\xC2", "\xE2\x80", "\xE2\x80(", "\xFF\xFE", "\xEF\xBF", "\xAD"})
        EXPECT_EQ(Written(bytes), "\"" + bytes + "\"");
    EXPECT_EQ(Written("\xE2\xE2\x80\x8C"), "\"\xE2\\u200C\"");
}

TEST(JSONWrite, IndentsByTheOptionsOfTheItemThatIsAsked) {
    const Ref<JSONItem> inner = New<JSONItem>("[\"x/y\",2.5]");
    inner->IndentSpacing = 7;
    JSONItem item("{\"a\":[],\"b\":0,\"c\":{}}");
    item.SetChild("b", inner);
    EXPECT_EQ(item.ToString(), "{\"a\":[],\"b\":[\"x\\/y\",2.5],\"c\":{}}");
    item.Compact = false;
    EXPECT_EQ(item.ToString(),
              "{\n  \"a\":[],\n  \"b\":[\n    \"x\\/y\",\n    2.5\n  ],\n  \"c\":{}\n}");
    item.IndentSpacing = 12;
    item.EscapeSlashes = false;
    item.SetDecimalFormat("0.00");
    const std::string line = "\n" + std::string(12, ' ');
    EXPECT_EQ(item.Serialize(inner.Get()), "[" + line + "\"x/y\"," + line + "2.50\n]");
    EXPECT_EQ(item.Serialize(nullptr), "");
}

TEST(JSONStringBuffer, DoublesItsBlockWhenATextNeedsMore) {
    JSONStringBuffer buffer(uint64_t{4});
    for (const auto& [text, size] : {std::pair("abcd", 4u), {"efgh", 8u}, {"日本", 16u}}) {
        buffer.Append(text);
        EXPECT_EQ(buffer.data->Size(), size) << text;
    }
    EXPECT_EQ(buffer.length, 10u);
    EXPECT_EQ(buffer.Len(), 10u);
    EXPECT_EQ(buffer.StringValue().Bytes, "abcdefgh日本");
}

TEST(JSONWrite, TakesDictionariesCollectionsAndNamesWithoutQuotes) {
    const Ref<Dictionary> dictionary = New<Dictionary>();
    dictionary->SetValue("k/y", 1);
    dictionary->SetValue(7, "seven");
    const Ref<Collection> collection = New<Collection>();
    collection->Add(dictionary);
    collection->Add(New<Collection>());
    collection->Add(New<Dictionary>());
    EXPECT_EQ(Written(collection), "[{\"k\\/y\":1,\"7\":\"seven\"},[],{}]");
    OpenItem item;
    item._RenderAsJavascript = true;
    item.SetValue("a\n", "b");
    EXPECT_EQ(item.ToString(), "{a\\n:\"b\"}");
}

TEST(JSONWrite, RefusesValuesThatJSONLacks) {
    const std::pair<Variant, std::string> cases[] = {{Date{86399}, ": 1970-01-01 23:59:59"},
                                                     {Color{0xFF8000}, ": &hFF8000"},
                                                     {std::vector<int32_t>{1}, ""},
                                                     {New<Object>(), ""}};
    for (const auto& [value, detail] : cases)
        EXPECT_EQ(Raised([&] { Written(value); }), "11 Unrecognized Object" + detail);
}

TEST(JSONWrite, RefusesADocumentThatContainsItselfOrIsTooDeep) {
    constexpr char kCircular[] = "14 Circular Reference Detected";
    const Ref<JSONItem> item = New<JSONItem>();
    const Ref<Collection> collection = New<Collection>();
    collection->Add(item);
    item->SetValue("back", collection);
    EXPECT_EQ(Raised([&] { item->ToString(); }), kCircular);
    item->Clear();
    EXPECT_EQ(item->ToString(), "{}");
    Ref<JSONItem> nested = New<JSONItem>();
    for (int levels = 1; levels < 1000; ++levels) {
        const Ref<JSONItem> child = std::exchange(nested, New<JSONItem>());
        nested->Append(child);
    }
    EXPECT_EQ(nested->ToString().size(), 2000u);
    EXPECT_EQ(Raised([&] { Written(nested); }), kCircular);
}

}  // namespace
}  // namespace dunvey
