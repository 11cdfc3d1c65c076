#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "persistence/json_item.h"
#include "persistence/raised.h"
#include "platform/collection.h"
#include "platform/text.h"

namespace dunvey {
namespace {

using tests::Raised;

std::string Written(const Variant& value) {
    JSONItem item;
    item.Append(value);
    const std::string text = item.ToString();
    return text.substr(1, text.size() - 2);
}

TEST(Write, GivesEachTypeItsForm) {
    struct Case {
        Variant value;
        std::string text;
    };
    for (const Case& each : std::vector<Case>{
             {Variant(), "null"},
             {true, "true"},
             {false, "false"},
             {-7, "-7"},
             {int64_t{100}, "100"},
             {INT64_MIN, "-9223372036854775808"},
             {100.0, "100.0"},
             {2.5f, "2.5"},
             {0.1f, "0.100000001490116"},
             {-0.25, "-0.25"},
             {NAN, "null"},
             {INFINITY, "null"},
             {-INFINITY, "null"},
             {"a/b", "\"a\\/b\""},
             {Variant("\xE9", Encodings::ISOLatin1), "\"é\""},
             {Variant(std::string_view("\xE9\0", 2), Encodings::UTF16), "\"é\""},
             {Variant("é", TextEncoding::None), "\"é\""},
             {Ref<JSONItem>(), "null"},
         }) {
        EXPECT_EQ(Written(each.value), each.text);
    }
}

TEST(Write, EscapesWhatCanNotBeSeenAtTheEdgesOfEachRange) {
    const std::vector<std::pair<uint32_t, uint32_t>> ranges = {
        {0x00, 0x1F},     {0x7F, 0x7F},     {0xAD, 0xAD},     {0x600, 0x604},
        {0x70F, 0x70F},   {0x17B4, 0x17B5}, {0x200C, 0x200F}, {0x2028, 0x202F},
        {0x2060, 0x206F}, {0xFEFF, 0xFEFF}, {0xFFF0, 0xFFFF}};
    const std::string named = "\b\f\n\r\t";
    const auto escape = [](uint32_t code) {
        const std::string bytes = {static_cast<char>(code >> 8), static_cast<char>(code)};
        return "\"\\u" + EncodeHex(bytes) + "\"";
    };
    for (const auto& [first, last] : ranges) {
        for (uint32_t code = first; code <= last; ++code) {
            const bool hasName = code < 0x20 && named.find(char(code)) != std::string::npos;
            if (hasName) continue;
            EXPECT_EQ(Written(Chr(code)), escape(code)) << code;
        }
        for (const uint32_t code : {first - 1, last + 1}) {
            if (code > 0xFFFFF) continue;
            EXPECT_EQ(Written(Chr(code)), "\"" + Chr(code) + "\"") << code;
        }
    }
    EXPECT_EQ(Written(named), "\"\\b\\f\\n\\r\\t\"");
    EXPECT_EQ(Written("\"\\"), "\"\\\"\\\\\"");
}

TEST(Write, LeavesBytesThatAreNoCharacterAsTheyAre) {
    for (const std::string bytes :
         {"\xC2", "\xE2\x80", "\xE2\x80(", "\xFF\xFE", "\xEF\xBF", "\xAD"}) {
        EXPECT_EQ(Written(bytes), "\"" + bytes + "\"");
    }
    EXPECT_EQ(Written("\xE2\xE2\x80\x8C"), "\"\xE2\\u200C\"");
}

TEST(Write, IndentsByTheOptionsOfTheItemThatIsAsked) {
    const Ref<JSONItem> inner = New<JSONItem>();
    inner->Append("x/y");
    inner->Append(2.5);
    inner->IndentSpacing = 7;
    JSONItem item;
    item.SetValue("a", 1);
    item.SetValue("b", inner);
    item.SetValue("c", New<JSONItem>());
    EXPECT_EQ(item.ToString(), "{\"a\":1,\"b\":[\"x\\/y\",2.5],\"c\":{}}");
    item.Compact = false;
    EXPECT_EQ(item.ToString(),
              "{\n  \"a\":1,\n  \"b\":[\n    \"x\\/y\",\n    2.5\n  ],\n  \"c\":{}\n}");
    item.IndentSpacing = 0;
    item.EscapeSlashes = false;
    EXPECT_EQ(item.ToString(), "{\n\"a\":1,\n\"b\":[\n\"x/y\",\n2.5\n],\n\"c\":{}\n}");
    item.IndentSpacing = 12;
    item.DecimalFormat = "0.00";
    const std::string twelve(12, ' ');
    EXPECT_EQ(item.ToString(), "{\n" + twelve + "\"a\":1,\n" + twelve + "\"b\":[\n" + twelve +
                                   twelve + "\"x/y\",\n" + twelve + twelve + "2.50\n" + twelve +
                                   "],\n" + twelve + "\"c\":{}\n}");
    item.DecimalFormat = "";
    item.Compact = true;
    EXPECT_EQ(item.ToString(), "{\"a\":1,\"b\":[\"x/y\",2.5],\"c\":{}}");
    EXPECT_EQ(item.Serialize(inner.Get()), "[\"x/y\",2.5]");
    EXPECT_EQ(item.Serialize(nullptr), "");
}

TEST(Write, EmptyItemsHaveNothingBetweenTheirBrackets) {
    JSONItem object;
    JSONItem array("[]");
    for (const bool compact : {true, false}) {
        object.Compact = array.Compact = compact;
        EXPECT_EQ(object.ToString(), "{}");
        EXPECT_EQ(array.ToString(), "[]");
    }
}

TEST(Write, TakesDictionariesAndCollections) {
    const Ref<Dictionary> dictionary = New<Dictionary>();
    dictionary->SetValue("k/y", 1);
    dictionary->SetValue(7, "seven");
    const Ref<Collection> collection = New<Collection>();
    collection->Add(dictionary);
    collection->Add(New<Collection>());
    collection->Add(New<Dictionary>());
    EXPECT_EQ(Written(collection), "[{\"k\\/y\":1,\"7\":\"seven\"},[],{}]");
}

class OpenItem : public JSONItem {
 public:
    using JSONItem::_RenderAsJavascript;
};

TEST(Write, WritesNamesWithoutQuotesForJavascript) {
    OpenItem item;
    item._RenderAsJavascript = true;
    item.SetValue("a\n", "b");
    EXPECT_EQ(item.ToString(), "{a\\n:\"b\"}");
}

class Strange : public Object {};

TEST(Write, RefusesWhatJSONHasNoFormFor) {
    struct Case {
        Variant value;
        std::string fault;
    };
    for (const Case& each : std::vector<Case>{
             {Date{86399}, "11 Unrecognized Object: 1970-01-01 23:59:59"},
             {Color{0xFF8000}, "11 Unrecognized Object: &hFF8000"},
             {std::vector<int32_t>{1}, "11 Unrecognized Object"},
             {New<Strange>(), "11 Unrecognized Object"},
         }) {
        EXPECT_EQ(Raised([&] { Written(each.value); }), each.fault);
    }
}

TEST(Write, RefusesADocumentThatHoldsItself) {
    const Ref<JSONItem> item = New<JSONItem>();
    const Ref<JSONItem> inner = New<JSONItem>();
    inner->SetValue("back", item);
    item->SetValue("in", inner);
    EXPECT_EQ(Raised([&] { item->ToString(); }), "14 Circular Reference Detected");
    const Ref<Collection> collection = New<Collection>();
    collection->Add(item);
    EXPECT_EQ(Raised([&] { Written(collection); }), "14 Circular Reference Detected");
    inner->Clear();
    EXPECT_EQ(item->ToString(), "{\"in\":{}}");
}

TEST(Write, TakesThousandLevelsAndDeeperOnesDieQuietly) {
    const auto nested = [](int levels) {
        Ref<JSONItem> item = New<JSONItem>();
        for (int i = 1; i < levels; ++i) {
            const Ref<JSONItem> outer = New<JSONItem>();
            outer->Append(item);
            item = outer;
        }
        return item;
    };
    EXPECT_EQ(nested(1000)->ToString().size(), 2000u);
    EXPECT_EQ(Raised([&] { nested(1001)->ToString(); }), "14 Circular Reference Detected");
    // Letting it go must not take a stack as deep.
    EXPECT_EQ(nested(1000000)->Count(), 1);
}

}  // namespace
}  // namespace dunvey
