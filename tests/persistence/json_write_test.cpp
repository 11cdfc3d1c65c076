#include <gtest/gtest.h>

#include <cmath>
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
    item.DecimalFormat = "0.00";
    const std::string line = "\n" + std::string(12, ' ');
    EXPECT_EQ(item.Serialize(inner.Get()), "[" + line + "\"x/y\"," + line + "2.50\n]");
    EXPECT_EQ(item.Serialize(nullptr), "");
}

struct OpenItem : JSONItem {
    using JSONItem::_RenderAsJavascript;
};

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
