#include "persistence/json_item.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "persistence/raised.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

using tests::Raised;

using Call = std::function<void(JSONItem&)>;

TEST(JSONItem, RaisesForTheOtherShapeAndChangesNothing) {
    const std::tuple<const char*, const char*, std::vector<Call>> kRows[] = {
        {"{\"a\":1}",
         "12 JSONItem is not a array",
         {[](auto& item) { item.Append(1); }, [](auto& item) { item.Insert(0, 1); },
          [](auto& item) { item.SetChild(0, nullptr); }, [](auto& item) { item.Remove(0); },
          [](auto& item) { Variant value = item[0]; }, [](auto& item) { item[0] = 1; }}},
        {"{\"a\":1}",
         "12 JSONItem is not an array",
         {[](auto& item) { item.Value(0); }, [](auto& item) { item.SetValue(0, 1); }}},
        {"[]",
         "13 JSONItem is an array",
         {[](auto& item) { item.Value("a"); }, [](auto& item) { item.SetValue("a", 1); },
          [](auto& item) { item.Lookup("a", 1); }}}};
    for (const auto& [text, raised, calls] : kRows) {
        for (const Call& call : calls) {
            JSONItem item(text);
            EXPECT_EQ(Raised([&] { call(item); }), raised);
            EXPECT_EQ(item.ToString(), text);
        }
    }
}

/// The text of the item after the call, and "X" if that raised KeyNotFoundException.
std::string After(const std::string& text, const Call& call) {
    JSONItem item(text);
    try {
        call(item);
    } catch (const KeyNotFoundException&) {
        return item.ToString() + "X";
    }
    return item.ToString();
}

Call Insert(int64_t index) {
    return [index](JSONItem& item) { item.Insert(index, 7); };
}
Call Remove(int64_t index) {
    return [index](JSONItem& item) { item.Remove(index); };
}
TEST(JSONItem, InsertAndRemoveMoveTheLaterValues) {
    const std::tuple<const char*, Call, const char*> kRows[] = {
        {"[]", Insert(0), "[7]"},
        {"[1,2]", Insert(0), "[7,1,2]"},
        {"[1,2]", Insert(1), "[1,7,2]"},
        {"[1,2]", Insert(2), "[1,2,7]"},
        {"[1,2]", Insert(-1), "[1,2]X"},
        {"[1,2]", Insert(INT64_MIN), "[1,2]X"},
        {"[]", Remove(0), "[]X"},
        {"[1,2,3]", Remove(0), "[2,3]"},
        {"[1,2,3]", Remove(1), "[1,3]"},
        {"[1,2,3]", Remove(2), "[1,2]"},
        {"[1,2,3]", Remove(INT64_MAX), "[1,2]"},
        {"[1,2]", Remove(-1), "[1,2]"},
        {"[1,2]", Remove(-2), "[1,2]X"},
    };
    for (const auto& [text, call, after] : kRows)
        EXPECT_EQ(After(text, call), after);
}

TEST(JSONItem, WritesAnArrayInTheOrderOfItsIndexes) {
    JSONItem item;
    item.SetValue(5, "five");
    item.SetValue(-1, "before");
    item.SetValue(0, "none");
    EXPECT_EQ(item.ToString(), "[\"before\",\"none\",\"five\"]");
    EXPECT_TRUE(item.Names().empty());
    EXPECT_EQ(item.Name(0), "");
    item.Clear();
    EXPECT_EQ(item.ToString(), "[]");
}

TEST(JSONItem, ReadingAMissingOrOtherValueRaises) {
    JSONItem item("[1,2]");
    EXPECT_THROW(Variant value = item[2], OutOfBoundsException);
    EXPECT_THROW(Variant value = item[-1], OutOfBoundsException);
    EXPECT_THROW(item[2] = 1, OutOfBoundsException);
    EXPECT_THROW(item.Value(2), KeyNotFoundException);
    EXPECT_THROW(item.Child(2), OutOfBoundsException);
    EXPECT_THROW(item.Child(0), IllegalCastException);
    EXPECT_THROW(item.Key(2), OutOfBoundsException);
    item[1] = "two";
    EXPECT_EQ(item.ToString(), "[1,\"two\"]");

    JSONItem object("{\"a\":1,\"n\":null}");
    EXPECT_THROW(object.Value("b"), KeyNotFoundException);
    EXPECT_THROW(object.Child("b"), KeyNotFoundException);
    EXPECT_THROW(object.Child("a"), IllegalCastException);
    EXPECT_THROW(object.Remove("b"), KeyNotFoundException);
    EXPECT_FALSE(object.Child("n"));
    EXPECT_EQ(object.Lookup("b", 7).Int32Value(), 7);
    EXPECT_TRUE(object.Lookup("n", 7).IsNull());
    EXPECT_FALSE(object.IsArray());
}

TEST(JSONItem, NamesAreEqualOnlyByteForByte) {
    JSONItem item("{\"key\":1,\"KEY\":2}");
    const std::string odd("\0\xFF/日", 6);
    item.SetValue(odd, 3);
    item.SetValue("key", 4);
    EXPECT_EQ(item.Value("key").Int32Value(), 4);
    EXPECT_EQ(item.Key(1).StringValue(), "4B4559");
    EXPECT_EQ(item.InternalValue("00FF2FE697A5").Int32Value(), 3);
    // Only the form that Key gives is a key.
    for (const Variant& key : {Variant("key"), {"4b4559"}, {"4B45"}, {"4B45590"}, {""}, {0}})
        EXPECT_THROW(item.InternalValue(key), KeyNotFoundException);
    item.SetValue("7", 5);
    EXPECT_TRUE(item.HasName(7));
    EXPECT_TRUE(item.HasName("KEY"));
    EXPECT_FALSE(item.HasName("Key"));
    item.Remove("KEY");
    EXPECT_EQ(item.Names(), (std::vector<std::string>{"key", odd, "7"}));
}

TEST(JSONItem, TextsAreReadAsUTF8) {
    JSONItem item("{\"a\":\"é\"}");
    EXPECT_EQ(item.InternalValue("61").Encoding(), TextEncoding::None);
    EXPECT_EQ(item.Value("a").EncodedValue(), (EncodedText{"é", Encodings::UTF8}));
    EXPECT_EQ(item.Lookup("a", 0).Encoding(), Encodings::UTF8);
    item.SetValue("b", Variant(std::string("\xE9\0", 2), Encodings::UTF16));
    EXPECT_EQ(item.Value("b").EncodedValue(), (EncodedText{"é", Encodings::UTF8}));
    JSONItem array("[\"é\"]");
    EXPECT_EQ(array.Value(0).Encoding(), Encodings::UTF8);
    EXPECT_EQ(Variant(array[0]).Encoding(), TextEncoding::None);
}

TEST(JSONItem, ArraysAndDictionariesBecomeItems) {
    const Ref<JSONItem> child = New<JSONItem>();
    JSONItem item;
    item.SetValue("flags", std::vector<bool>{true, false});
    item.SetValue("large", std::vector<int64_t>{5000000000});
    item.SetValue("double", std::vector<double>{1});
    item.SetValue("texts", std::vector<std::string>{"a", ""});
    item.SetValue("items", std::vector<Ref<JSONItem>>{child, nullptr});
    item.SetValue("none", std::vector<int32_t>{});
    EXPECT_THROW(item.SetValue("flags", std::vector<Date>{Date{}}), TypeMismatchException);
    EXPECT_THROW(item.SetValue("flags", std::vector<Variant>{1}), TypeMismatchException);
    EXPECT_EQ(item.ToString(),
              "{\"flags\":[true,false],\"large\":[5000000000],"
              "\"double\":[1.0],\"texts\":[\"a\",\"\"],\"items\":[{},null],\"none\":{}}");
    EXPECT_TRUE(item.Child("items")->Child(0) == child);

    Dictionary dictionary;
    dictionary.SetValue("b", 1);
    dictionary.SetValue(2, New<JSONItem>("[true]"));
    dictionary.SetValue(true, Variant());
    EXPECT_EQ(JSONItem(dictionary).ToString(), "{\"b\":1,\"2\":[true],\"True\":null}");
}

}  // namespace
}  // namespace dunvey
