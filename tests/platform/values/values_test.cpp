#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/values/array.h"
#include "platform/values/collection.h"
#include "platform/values/dictionary.h"
#include "platform/values/exceptions.h"
#include "platform/values/memory_block.h"
#include "platform/values/variant.h"

namespace dunvey {
namespace {

TEST(Array, IndexOfStartsAtTheGivenPosition) {
    const std::vector<std::string> names = {"a", "b", "a"};
    EXPECT_EQ(IndexOf(names, "a"), 0);
    EXPECT_EQ(IndexOf(names, "a", 1), 2);
    EXPECT_EQ(IndexOf(names, "A"), -1);
    EXPECT_EQ(IndexOf(names, "a", 3), -1);
    EXPECT_EQ(IndexOf(names, "b", -5), 1);
    EXPECT_EQ(UpperBound(std::vector<int>()), -1);
    EXPECT_EQ(At(names, 2), "a");
    EXPECT_THROW(At(names, 3), OutOfBoundsException);
    EXPECT_THROW(At(names, -1), OutOfBoundsException);
}

template <typename Call>
std::string OriginOf(Call&& call) {
    try {
        call();
    } catch (const RuntimeException& exception) {
        return exception.Origin();
    }
    return "nothing was raised";
}

TEST(Exceptions, OriginIsTheCodeThatUsedTheIndexOrTheKey) {
    const std::vector<int> array;
    Dictionary dictionary;
    Collection collection;
    MemoryBlock block(uint64_t{1});
    // Each call is on the line that its origin names.
    const std::pair<std::string, int> origins[] = {
        {OriginOf([&] { At(array, 0); }), __LINE__},
        {OriginOf([&] { dictionary.Value("key"); }), __LINE__},
        {OriginOf([&] { dictionary.Remove("key"); }), __LINE__},
        {OriginOf([&] { dictionary.Key(0); }), __LINE__},
        {OriginOf([&] { collection.Item(0); }), __LINE__},
        {OriginOf([&] { collection.Item(1); }), __LINE__},
        {OriginOf([&] { block.StringValue(1, 1); }), __LINE__},
        {OriginOf([&] { block.SetStringValue(2, 0, ""); }), __LINE__},
        {OriginOf([&] { block.SetSize(UINT64_MAX); }), __LINE__}};
    for (const auto& [origin, line] : origins)
        EXPECT_TRUE(origin.ends_with("values_test.cpp:" + std::to_string(line))) << origin;
}

TEST(Exceptions, OriginOfNilIsAnAddressInTheCodeThatUsedIt) {
    const auto use = [] { *Ref<int>(); };
    EXPECT_THROW(use(), NilObjectException);
    const std::string origin = OriginOf(use);
    EXPECT_TRUE(origin.starts_with("platform_tests+0x")) << origin;
    EXPECT_EQ(origin, OriginOf(use));
    EXPECT_NE(origin, OriginOf([] { *Ref<int>(); }));
}

TEST(Dictionary, TakesKeysOfAllTypes) {
    Dictionary dictionary;
    std::vector<Variant> keys = {
        Variant(),          true, false, 1, "1", "a", "A", 2.5, "2.5", New<Dictionary>(), Date{1},
        int64_t{5000000000}};
    // From some size on, keys are found by their hashes.
    for (const int more : {0, 30}) {
        for (int i = 0; i < more; ++i)
            keys.push_back(i + 100);
        for (size_t i = 0; i < keys.size(); ++i)
            dictionary.SetValue(keys[i], int(i));
        EXPECT_EQ(dictionary.Count(), int(keys.size()));
        for (size_t i = 0; i < keys.size(); ++i)
            EXPECT_EQ(dictionary.Value(keys[i]).Int32Value(), int(i));
        EXPECT_EQ(dictionary.Value(1.0).Int32Value(), 3) << "numbers are compared by value";
        EXPECT_FALSE(dictionary.HasKey(New<Dictionary>()));
    }
    Dictionary list;
    for (int i = 0; i < 3; ++i)
        list.SetValue(i, i);
    list.Remove(1);
    EXPECT_EQ(list.Lookup(2, Variant()).Int32Value(), 2) << "no longer the whole numbers from 0";
    EXPECT_EQ(dictionary.Lookup("key", "else").StringValue(), "else");
    EXPECT_THROW(dictionary.Value(New<Dictionary>()), KeyNotFoundException);
    try {
        dictionary.Remove("key");
        FAIL();
    } catch (const KeyNotFoundException& exception) {
        EXPECT_EQ(exception.Message, "There is no value under the key \"key\".");
    }
}

TEST(MemoryBlock, ReadsAndWritesWithinItsBounds) {
    MemoryBlock block(uint64_t{4});
    EXPECT_EQ(block.StringValue(0, 4), std::string(4, '\0'));
    for (const auto& [text, bytes] : {std::pair("abcdef", "\0abc"), {"x", "\0x\0\0"}}) {
        block.SetStringValue(1, 3, text);
        EXPECT_EQ(block.StringValue(0, 4), std::string(bytes, 4));
    }
    block.SetSize(6);
    EXPECT_EQ(block.StringValue(4, 2), std::string(2, '\0'));
    EXPECT_EQ(block.StringValue(6, 0), "");
    EXPECT_THROW(block.StringValue(5, 2), OutOfBoundsException);
    EXPECT_THROW(block.StringValue(7, 0), OutOfBoundsException);
    EXPECT_THROW(block.StringValue(1, UINT64_MAX), OutOfBoundsException);
    EXPECT_THROW(block.SetStringValue(3, 4, ""), OutOfBoundsException);
    EXPECT_THROW(block.SetSize((1 << 28) + 1), OutOfMemoryException);
    EXPECT_EQ(block.Size(), 6u);
}

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
