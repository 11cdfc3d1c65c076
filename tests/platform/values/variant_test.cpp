#include "platform/values/variant.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

TEST(Variant, ConvertsBetweenTheTypes) {
    const std::tuple<Variant, int, bool, int64_t, double, std::string> cases[] = {
        {Variant(), 0, false, 0, 0, ""},
        {true, 11, true, 1, 1, "True"},
        {false, 11, false, 0, 0, "False"},
        {-7, 2, true, -7, -7, "-7"},
        {0.5f, 4, true, 0, 0.5, "0.5"},
        {-2.75, 5, true, -2, -2.75, "-2.75"},
        {100.0, 5, true, 100, 100, "100"},
        {-0.0, 5, false, 0, 0, "0"},
        {"", 8, false, 0, 0, ""},
        {"TrUe", 8, true, 0, 0, "TrUe"},
        {"truely", 8, false, 0, 0, "truely"},
        {"&h1F", 8, true, 31, 31, "&h1F"},
        {"0.0", 8, false, 0, 0, "0.0"},
        {" 12.5 mm", 8, true, 12, 12.5, " 12.5 mm"},
        {int64_t{5000000000}, 3, true, 5000000000, 5e9, "5000000000"},
        {int64_t{-5000000000}, 3, true, -5000000000, -5e9, "-5000000000"},
        {1e30, 5, true, INT64_MAX, 1e30, "1e+30"},
        {-HUGE_VAL, 5, true, INT64_MIN, -HUGE_VAL, "-Infinity"},
        {"99999999999999999999", 8, true, INT64_MAX, 1e20, "99999999999999999999"},
        {Variant(std::string("1\0\x35\0", 4), Encodings::UTF16), 8, true, 15, 15, "15"},
    };
    for (const auto& [value, type, boolean, whole, number, text] : cases) {
        EXPECT_EQ(value.VarType(), type) << text;
        EXPECT_EQ(value.BooleanValue(), boolean) << text;
        EXPECT_EQ(value.Int32Value(), std::clamp<int64_t>(whole, INT32_MIN, INT32_MAX)) << text;
        EXPECT_EQ(value.Int64Value(), whole) << text;
        EXPECT_EQ(value.DoubleValue(), number) << text;
        EXPECT_EQ(value.SingleValue(), static_cast<float>(number)) << text;
        EXPECT_EQ(value.StringValue(), text);
    }
    EXPECT_EQ(Variant(NAN).Int64Value(), 0);
}

TEST(Variant, RefusesWhatItCanNotConvert) {
    const Variant object(New<Object>());
    const Variant array(std::vector<int32_t>{1});
    for (const Variant& value : {object, array, Variant(Date{}), Variant(Color{})}) {
        EXPECT_THROW(value.BooleanValue(), TypeMismatchException);
        EXPECT_THROW(value.Int64Value(), TypeMismatchException);
    }
    for (const Variant& value : {object, array})
        EXPECT_THROW(value.StringValue(), TypeMismatchException);
    for (const Variant& value : {array, Variant(1)})
        EXPECT_THROW(value.ObjectValue(), TypeMismatchException);
    EXPECT_THROW(Variant(1).ArrayElements(), TypeMismatchException);
    EXPECT_FALSE(Variant().ObjectValue());
    EXPECT_EQ(Variant(Date{951782400}).StringValue(), "2000-02-29 00:00:00");
    EXPECT_EQ(Variant(Date{INT64_MAX}).StringValue(), "9223372036854775807");
    EXPECT_EQ(Variant(Color{0x00FF}).StringValue(), "&h0000FF");
}

TEST(Variant, NumbersAreEqualByValue) {
    constexpr int64_t kOdd = 9007199254740993;
    const std::pair<Variant, Variant> same[] = {
        {1, 1.0}, {int64_t{1}, 1.0f}, {Variant(), Ref<Object>()}};
    const std::pair<Variant, Variant> others[] = {
        {kOdd, kOdd - 1}, {NAN, NAN}, {1, true}, {1, "1"}, {0, Variant()}};
    for (const auto& [left, right] : same)
        EXPECT_TRUE(left == right) << left.StringValue();
    for (const auto& [left, right] : others)
        EXPECT_FALSE(left == right) << left.StringValue();
}

}  // namespace
}  // namespace dunvey
