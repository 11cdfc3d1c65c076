#include "persistence/json_item.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "persistence/raised.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

using tests::Raised;

using Call = std::function<void(JSONItem&)>;

TEST(JSONItem, RaisesWhereTheShapeIsTheOther) {
    const Call notA[] = {[](JSONItem& item) { item.Append(1); },
                         [](JSONItem& item) { item.SetChild(0, New<JSONItem>()); },
                         [](JSONItem& item) { item.Insert(0, 1); },
                         [](JSONItem& item) { Variant value = item[0]; },
                         [](JSONItem& item) { item[0] = 1; },
                         [](JSONItem& item) { item.Remove(0); }};
    const Call notAn[] = {[](JSONItem& item) { item.Value(0); },
                          [](JSONItem& item) { item.SetValue(0, 1); }};
    const Call isAn[] = {[](JSONItem& item) { item.Value("a"); },
                         [](JSONItem& item) { item.SetValue("a", 1); },
                         [](JSONItem& item) { item.Lookup("a", 1); }};
    JSONItem object("{\"a\":1}");
    JSONItem array("[1]");
    JSONItem empty("[1]");
    empty.Clear();
    for (const Call& call : notA)
        EXPECT_EQ(Raised([&] { call(object); }), "12 JSONItem is not a array");
    for (const Call& call : notAn)
        EXPECT_EQ(Raised([&] { call(object); }), "12 JSONItem is not an array");
    for (const Call& call : isAn) {
        EXPECT_EQ(Raised([&] { call(array); }), "13 JSONItem is an array");
        EXPECT_EQ(Raised([&] { call(empty); }), "13 JSONItem is an array");
    }
    EXPECT_EQ(object.ToString() + array.ToString() + empty.ToString(), "{\"a\":1}[1][]");
    EXPECT_FALSE(object.IsArray());
}

/// The values of an array after the call, and "X" if it raised KeyNotFoundException.
std::string After(const std::string& text, const Call& call) {
    JSONItem item(text);
    std::string raised;
    try {
        call(item);
    } catch (const KeyNotFoundException&) {
        raised = "X";
    }
    std::map<int64_t, std::string> values;
    for (int64_t i = 0; i < item.Count(); ++i)
        values[item.Key(i).Int64Value()] = item.InternalValue(item.Key(i)).StringValue();
    std::string list;
    for (const auto& [index, value] : values)
        list += (list.empty() ? "" : " ") + std::to_string(index) + "=" + value;
    return list + raised;
}

TEST(JSONItem, InsertAndRemoveMoveTheValuesBehind) {
    const auto inserted = [](const std::string& text, int64_t index) {
        return After(text, [index](JSONItem& item) { item.Insert(index, 7); });
    };
    const auto removed = [](const std::string& text, int64_t index) {
        return After(text, [index](JSONItem& item) { item.Remove(index); });
    };
    const std::pair<int64_t, std::string> places[] = {{1, "0=1 1=7 2=2"}, {0, "0=7 1=1 2=2"},
                                                      {2, "0=1 1=2 2=7"}, {4, "0=1 1=2 4=7"},
                                                      {-1, "0=1 1=2X"},   {INT64_MIN, "0=1 1=2X"}};
    for (const auto& [index, left] : places)
        EXPECT_EQ(inserted("[1,2]", index), left);
    for (const int64_t index : {int64_t{2}, int64_t{7}, INT64_MAX})
        EXPECT_EQ(removed("[1,2,3]", index), "0=1 1=2") << index;
    EXPECT_EQ(removed("[1,2,3]", 0), "0=2 1=3");
    EXPECT_EQ(removed("[1,2,3]", 1), "0=1 1=3");
    EXPECT_EQ(removed("[1,2]", -1), "-1=1 0=2");
    EXPECT_EQ(removed("[1,2]", -2), "0=1 1=2X");
    EXPECT_EQ(inserted("[]", 0), "0=7");
    EXPECT_EQ(removed("[]", 0), "X");
}

TEST(JSONItem, ValuesAfterAGapCanNotBeMoved) {
    const std::pair<Call, const char*> cases[] = {
        {[](JSONItem&) {}, "0=1 1=2 5=9"},
        {[](JSONItem& item) { item.Append(3); }, "0=1 1=2 3=3 5=9"},
        {[](JSONItem& item) { item.Insert(0, 3); }, "0=1 1=2 5=9X"},
        {[](JSONItem& item) { item.Insert(3, 3); }, "0=1 1=2 3=3 5=9"},
        {[](JSONItem& item) { item.Remove(0); }, "0=1 1=2 5=9X"},
        {[](JSONItem& item) { item.Remove(9); }, "0=1 1=2 5=9X"},
        {[](JSONItem& item) { item.SetValue(2, 3), item.Remove(0); }, "0=1 1=2 2=3 5=9X"}};
    for (const auto& [call, left] : cases) {
        const auto withGap = [&change = call](JSONItem& item) {
            item.SetValue(5, 9), change(item);
        };
        EXPECT_EQ(After("[1,2]", withGap), left);
    }
    const auto fromBehind = [](JSONItem& item) {
        for (int i = 3; i >= 0; --i)
            item.SetValue(i, i);
        item.Remove(1);
    };
    EXPECT_EQ(After("[]", fromBehind), "0=0 1=2 2=3");
}

TEST(JSONItem, WritesAnArrayInTheOrderOfItsIndexes) {
    JSONItem item;
    item.SetValue(5, "five");
    item.SetValue(-1, "before");
    item.SetValue(0, "none");
    EXPECT_EQ(item.ToString(), "[\"before\",\"none\",\"five\"]");
    EXPECT_TRUE(item.Names().empty());
    EXPECT_EQ(item.Name(0), "");
}

TEST(JSONItem, ReadingOutsideFailsInItsOwnWay) {
    JSONItem item("[1,2]");
    EXPECT_THROW(Variant value = item[2], OutOfBoundsException);
    EXPECT_THROW(Variant value = item[-1], OutOfBoundsException);
    EXPECT_THROW(item[2] = 1, OutOfBoundsException);
    EXPECT_THROW(item.Value(2), KeyNotFoundException);
    EXPECT_THROW(item.Child(2), OutOfBoundsException);
    EXPECT_THROW(item.Child(0), IllegalCastException);
    EXPECT_THROW(item.Key(2), OutOfBoundsException);
    EXPECT_THROW(item.Remove("a"), KeyNotFoundException);
    EXPECT_THROW(item.InternalValue("61"), KeyNotFoundException);
    item[1] = "two";
    EXPECT_EQ(item.ToString(), "[1,\"two\"]");

    JSONItem object("{\"a\":1,\"n\":null}");
    EXPECT_THROW(object.Value("b"), KeyNotFoundException);
    EXPECT_THROW(object.Child("b"), KeyNotFoundException);
    EXPECT_THROW(object.Child("a"), IllegalCastException);
    EXPECT_THROW(object.Child(0), OutOfBoundsException);
    EXPECT_THROW(object.Remove("b"), KeyNotFoundException);
    EXPECT_FALSE(object.Child("n"));
    EXPECT_EQ(object.Lookup("b", 7).Int32Value(), 7);
    EXPECT_TRUE(object.Lookup("n", 7).IsNull());
}

TEST(JSONItem, NamesAreTheSameOnlyByteForByte) {
    JSONItem item("{\"key\":1,\"KEY\":2}");
    const std::string odd("\0\xFF/日", 6);
    item.SetValue(odd, 3);
    item.SetValue("key", 4);
    EXPECT_EQ(item.Value("key").Int32Value(), 4);
    EXPECT_EQ(item.Key(1).StringValue(), "4B4559");
    EXPECT_EQ(item.Key(2).StringValue(), "00FF2FE697A5");
    EXPECT_EQ(item.InternalValue("00FF2FE697A5").Int32Value(), 3);
    // Only the encoded form is a key, and only as it is made.
    for (const char* key : {"key", "4b4559", "4B45", "4B45590", "4B 45 59", ""})
        EXPECT_THROW(item.InternalValue(key), KeyNotFoundException) << key;
    EXPECT_THROW(item.InternalValue(0), KeyNotFoundException);
    EXPECT_TRUE(item.HasName("KEY"));
    EXPECT_FALSE(item.HasName("Key"));
    item.SetValue("7", 5);
    EXPECT_TRUE(item.HasName(7));
    item.Remove("KEY");
    EXPECT_EQ(item.Names(), (std::vector<std::string>{"key", odd, "7"}));
}

TEST(JSONItem, SetChildTakesAnyNameEvenInAnArray) {
    JSONItem item("[1]");
    const Ref<JSONItem> child = New<JSONItem>();
    item.SetChild("b", child);
    item.SetChild(3, child);
    EXPECT_TRUE(item.Child("b") == child);
    EXPECT_TRUE(item.Child(3) == child);
    child->Append(2);
    EXPECT_TRUE(child->IsArray());
    EXPECT_EQ(item.ToString(), "[1,[2],[2]]");
    EXPECT_EQ(item.Names(), std::vector<std::string>{"b"});
    // The next place is the number of values.
    item.Append("next");
    EXPECT_EQ(item.Value(3).StringValue(), "next");
    item.Remove("b");
    EXPECT_EQ(item.ToString(), "[1,\"next\"]");
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

TEST(JSONItem, ArraysBecomeItems) {
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
    EXPECT_EQ(item.Child("large")->Value(0).VarType(), VariantType::Integer64);
    EXPECT_TRUE(item.Child("items")->Child(0) == child);
}

TEST(JSONItem, IsMadeFromADictionary) {
    Dictionary dictionary;
    dictionary.SetValue("b", 1);
    dictionary.SetValue(2, New<JSONItem>("[true]"));
    dictionary.SetValue(true, Variant());
    EXPECT_EQ(JSONItem(dictionary).ToString(), "{\"b\":1,\"2\":[true],\"True\":null}");
    EXPECT_EQ(JSONItem(std::string(" \n")).ToString(), "{}");
}

}  // namespace
}  // namespace dunvey
