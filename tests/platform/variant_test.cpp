#include "platform/variant.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "platform/exceptions.h"

namespace dunvey {
namespace {

class Thing : public Object {
 public:
    explicit Thing(int* alive) : alive_(alive) { ++*alive_; }
    ~Thing() override { --*alive_; }

    Variant next;

 private:
    int* alive_;
};

struct ConversionCase {
    Variant value;
    int type;
    bool boolean;
    int32_t small;
    int64_t large;
    double number;
    std::string text;
};

TEST(Variant, ConvertsBetweenTheTypes) {
    constexpr int32_t kMax = INT32_MAX;
    constexpr int32_t kMin = INT32_MIN;
    const std::string utf16("1\0\x35\0", 4);
    for (const ConversionCase& each : std::vector<ConversionCase>{
             {Variant(), 0, false, 0, 0, 0, ""},
             {true, 11, true, 1, 1, 1, "True"},
             {false, 11, false, 0, 0, 0, "False"},
             {-7, 2, true, -7, -7, -7, "-7"},
             {int64_t{5000000000}, 3, true, kMax, 5000000000, 5e9, "5000000000"},
             {int64_t{-5000000000}, 3, true, kMin, -5000000000, -5e9, "-5000000000"},
             {0.5f, 4, true, 0, 0, 0.5, "0.5"},
             {-2.75, 5, true, -2, -2, -2.75, "-2.75"},
             {100.0, 5, true, 100, 100, 100, "100"},
             {-0.0, 5, false, 0, 0, 0, "0"},
             {1e30, 5, true, kMax, INT64_MAX, 1e30, "1e+30"},
             {-HUGE_VAL, 5, true, kMin, INT64_MIN, -HUGE_VAL, "-Infinity"},
             {"", 8, false, 0, 0, 0, ""},
             {"TrUe", 8, true, 0, 0, 0, "TrUe"},
             {"truely", 8, false, 0, 0, 0, "truely"},
             {" 12.5 mm", 8, true, 12, 12, 12.5, " 12.5 mm"},
             {"0.0", 8, false, 0, 0, 0, "0.0"},
             {"&h1F", 8, true, 31, 31, 31, "&h1F"},
             {"9007199254740993", 8, true, kMax, 9007199254740993, 9007199254740992.0,
              "9007199254740993"},
             {"99999999999999999999", 8, true, kMax, INT64_MAX, 1e20, "99999999999999999999"},
             {Variant(utf16, Encodings::UTF16), 8, true, 15, 15, 15, "15"},
         }) {
        EXPECT_EQ(each.value.VarType(), each.type) << each.text;
        EXPECT_EQ(each.value.BooleanValue(), each.boolean) << each.text;
        EXPECT_EQ(each.value.Int32Value(), each.small) << each.text;
        EXPECT_EQ(each.value.Int64Value(), each.large) << each.text;
        EXPECT_EQ(each.value.DoubleValue(), each.number) << each.text;
        EXPECT_EQ(each.value.SingleValue(), static_cast<float>(each.number)) << each.text;
        EXPECT_EQ(each.value.StringValue(), each.text);
    }
    EXPECT_EQ(Variant(NAN).Int64Value(), 0);
}

TEST(Variant, RefusesWhatMakesNoSense) {
    int alive = 0;
    const Variant object(New<Thing>(&alive));
    const Variant array(std::vector<int32_t>{1});
    for (const Variant& value : {object, array, Variant(Date{}), Variant(Color{})}) {
        EXPECT_THROW(value.BooleanValue(), TypeMismatchException);
        EXPECT_THROW(value.Int64Value(), TypeMismatchException);
        EXPECT_THROW(value.DoubleValue(), TypeMismatchException);
    }
    EXPECT_THROW(object.StringValue(), TypeMismatchException);
    EXPECT_THROW(array.StringValue(), TypeMismatchException);
    EXPECT_THROW(array.ObjectValue(), TypeMismatchException);
    EXPECT_THROW(Variant(1).ObjectValue(), TypeMismatchException);
    EXPECT_THROW(Variant(1).ArrayElements(), TypeMismatchException);
    EXPECT_FALSE(Variant().ObjectValue());
    EXPECT_EQ(Variant(Date{951782400}).StringValue(), "2000-02-29 00:00:00");
    EXPECT_EQ(Variant(Date{INT64_MAX}).StringValue(), "9223372036854775807");
    EXPECT_EQ(Variant(Color{0x00FF}).StringValue(), "&h0000FF");
}

TEST(Variant, TextsOfAnyLengthKeepBytesAndEncoding) {
    for (const size_t length : {0, 1, 13, 14, 15, 16, 1000, 70000}) {
        std::string bytes(length, 'x');
        if (length > 1) bytes[length / 2] = '\0';
        for (const TextEncoding encoding :
             {TextEncoding::None, Encodings::UTF8, Encodings::UTF16}) {
            const Variant text(bytes, encoding);
            Variant copy = text;
            Variant moved = std::move(copy);
            copy = moved;
            copy = *&copy;
            EXPECT_EQ(copy.EncodedValue(), (EncodedText{bytes, encoding})) << length;
            EXPECT_TRUE(moved == text);
            EXPECT_TRUE(moved == Variant(bytes)) << "the encoding doesn't count";
            EXPECT_FALSE(moved == Variant(bytes + "x"));
            EXPECT_FALSE(length > 0 && moved == Variant("y" + bytes.substr(1)));
        }
    }
}

TEST(Variant, ArraysTellTheTypeOfTheirElements) {
    EXPECT_EQ(Variant(std::vector<bool>{true}).VarType(), 4096 + 11);
    EXPECT_EQ(Variant(std::vector<int32_t>{}).VarType(), 4096 + 2);
    EXPECT_EQ(Variant(std::vector<int64_t>{1}).VarType(), 4096 + 3);
    EXPECT_EQ(Variant(std::vector<float>{1}).VarType(), 4096 + 4);
    EXPECT_EQ(Variant(std::vector<double>{1}).VarType(), 4096 + 5);
    EXPECT_EQ(Variant(std::vector<std::string>{"a"}).VarType(), 4096 + 8);
    EXPECT_EQ(Variant(std::vector<Ref<Thing>>{nullptr}).VarType(), 4096 + 9);
    EXPECT_EQ(Variant(std::vector<Date>{}).VarType(), 4096 + 7);
    EXPECT_EQ(Variant(std::vector<Variant>{1, "a"}).VarType(), 4096);
    const Variant texts(std::vector<std::string>{"a", "b"});
    const Variant copy = texts;
    EXPECT_TRUE(copy == texts);
    EXPECT_FALSE(copy == Variant(std::vector<std::string>{"a", "c"}));
    EXPECT_FALSE(Variant(std::vector<int32_t>{1}) == Variant(std::vector<int64_t>{1}));
}

TEST(Variant, NumbersAreEqualByWorth) {
    EXPECT_TRUE(Variant(1) == Variant(1.0));
    EXPECT_TRUE(Variant(int64_t{1}) == Variant(1.0f));
    EXPECT_FALSE(Variant(int64_t{9007199254740993}) == Variant(9007199254740992.0));
    EXPECT_FALSE(Variant(int64_t{9007199254740993}) == Variant(int64_t{9007199254740992}));
    EXPECT_FALSE(Variant(NAN) == Variant(NAN));
    EXPECT_FALSE(Variant(1) == Variant(true));
    EXPECT_FALSE(Variant(1) == Variant("1"));
    EXPECT_FALSE(Variant(0) == Variant());
    EXPECT_TRUE(Variant() == Variant(Ref<Thing>()));
}

TEST(Variant, HoldsAnObjectAsLongAsAValueOrAReferenceDoes) {
    int alive = 0;
    {
        Variant first(New<Thing>(&alive));
        Variant second = first;
        Ref<Object> reference = second.ObjectValue();
        EXPECT_TRUE(first == second);
        first = 1;
        second = Variant();
        EXPECT_EQ(alive, 1);
        second = reference;
        reference = nullptr;
        EXPECT_EQ(alive, 1);
        second = second.ObjectValue();
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(Variant, LongChainsOfObjectsDieWithoutADeepStack) {
    int alive = 0;
    {
        Variant chain;
        for (int i = 0; i < 1000000; ++i) {
            const Ref<Thing> thing = New<Thing>(&alive);
            thing->next = std::move(chain);
            chain = thing;
        }
        EXPECT_EQ(alive, 1000000);
    }
    EXPECT_EQ(alive, 0);
}

}  // namespace
}  // namespace dunvey
