#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "persistence/json_item.h"
#include "persistence/raised.h"

namespace dunvey {
namespace {

using tests::Raised;
using Limits = std::numeric_limits<double>;
using WholeNumbers = std::vector<std::pair<std::string, int64_t>>;
using Doubles = std::vector<std::pair<std::string, double>>;

/// The document read and written back; the fault if it was refused.
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
        // Each half of a surrogate pair is converted by itself.
        {"[\"\\uD83D\\uDE00\"]", "[\"\\uFFFD\\uFFFD\"]"},
        {"[\"\\uD800x\"]", "[\"\\uFFFDx\"]"},
        // The hexadecimal digits at the beginning count; four bytes are taken in any case.
        {"[\"\\u12G4\\uxyz!\\u 123\"]", "[\"\\u0012\\u0000\\u0000\"]"},
        {"[\"\\u41\"]\"]", "[\"A\"]"},
        {"[\"a\tb\nc\"]", "[\"a\\tb\\nc\"]"},
        {"[\"\xFF\xC3(\"]", "[\"\xFF\xC3(\"]"},
        {std::string("[\"a\0b\",\"\\u0000\"]", 16), "[\"a\\u0000b\",\"\\u0000\"]"},
        {Nested(1000, "[", "]"), Nested(1000, "[", "]")},
    });
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
        // The position is after "fals" and one more byte.
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

TEST(JSONParse, KeepsTheOldValuesOfAnItemWhenTheTextIsRefused) {
    JSONItem item("{\"a\":1}");
    EXPECT_EQ(Raised([&] { item.Load("{\"b\":2"); }), "6 Missing , or } at position 6");
    EXPECT_EQ(item.ToString(), "{\"a\":1}");
    item.Load(" \t\n");
    EXPECT_EQ(item.ToString(), "{\"a\":1}");
    item.Load("{\"b\":2}");
    EXPECT_EQ(item.ToString(), "{\"b\":2}");
}

TEST(JSONParse, TheFirstBracketSetsTheShapeForGood) {
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

TEST(JSONParse, KeepsTheTextParsedLast) {
    OpenItem item;
    EXPECT_FALSE(item._ParseBuffer);
    item.Load("{\"a\":1} tail");
    EXPECT_EQ(item._ParseBuffer->Bytes(), "{\"a\":1} tail");
    EXPECT_EQ(Raised([&] { item.Load("[x"); }), "10 Illegal Value at position 1");
    EXPECT_EQ(item._ParseBuffer->Bytes(), "[x");
}

Variant ValueOf(const std::string& number) {
    return JSONItem("[" + number + "]").Value(0);
}

void ExpectWhole(int type, const WholeNumbers& cases) {
    for (const auto& [text, number] : cases) {
        const Variant value = ValueOf(text);
        EXPECT_EQ(value.VarType(), type) << text;
        EXPECT_EQ(value.Int64Value(), number) << text;
    }
}

TEST(JSONParse, WholeNumbersGoThroughADouble) {
    const WholeNumbers small = {
        {"0", 0}, {"-0", 0}, {"7", 7}, {"2147483647", INT32_MAX}, {"-2147483648", INT32_MIN}};
    const WholeNumbers large = {{"2147483648", 2147483648},
                                {"-2147483649", -2147483649LL},
                                {"9007199254740993", 9007199254740992},
                                {"999999999999999999", 1000000000000000000},
                                {"9223372036854774784", 9223372036854774784},
                                {"9223372036854775807", INT64_MAX},
                                {"-9223372036854775808", INT64_MIN},
                                {"18446744073709551616", INT64_MAX},
                                {"-100000000000000000000", INT64_MIN},
                                {std::string(400, '9'), INT64_MAX}};
    ExpectWhole(VariantType::Integer32, small);
    ExpectWhole(VariantType::Integer64, large);
}

void ExpectDoubles(const Doubles& cases) {
    for (const auto& [text, number] : cases) {
        const Variant value = ValueOf(text);
        EXPECT_EQ(value.VarType(), VariantType::Double) << text;
        EXPECT_EQ(value.DoubleValue(), number) << text;
        EXPECT_EQ(std::signbit(value.DoubleValue()), std::signbit(number)) << text;
    }
}

TEST(JSONParse, APointOrAnExponentMakesADouble) {
    ExpectDoubles({{"1.0", 1},
                   {"1e0", 1},
                   {"1E+2", 100},
                   {"0e5", 0},
                   {"-0.0", -0.0},
                   {"0.5E1", 5},
                   {"1e", 1},
                   {"1e+", 1},
                   {"-1e-400", -0.0},
                   {"123456.789", 123456.789},
                   {"1.7976931348623157e308", Limits::max()},
                   {"-1e400", -Limits::infinity()},
                   {"5e-324", Limits::denorm_min()}});
}

}  // namespace
}  // namespace dunvey
