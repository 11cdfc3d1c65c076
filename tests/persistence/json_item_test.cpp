#include "persistence/json_item.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "persistence/raised.h"
#include "platform/exceptions.h"

namespace dunvey {
namespace {

using tests::Raised;

constexpr char kNotA[] = "12 JSONItem is not a array";
constexpr char kNotAn[] = "12 JSONItem is not an array";
constexpr char kIsArray[] = "13 JSONItem is an array";

TEST(JSONItem, OperationsWithAnIndexRefuseAnObjectThatHoldsSomething) {
    struct Case {
        const char* name;
        std::function<void(JSONItem&)> call;
        const char* fault;
    };
    for (const Case& each : std::vector<Case>{
             {"Append", [](JSONItem& item) { item.Append(1); }, kNotA},
             {"SetChild", [](JSONItem& item) { item.SetChild(0, New<JSONItem>()); }, kNotA},
             {"Insert", [](JSONItem& item) { item.Insert(0, 1); }, kNotA},
             {"read", [](JSONItem& item) { Variant value = item[0]; }, kNotA},
             {"assign", [](JSONItem& item) { item[0] = 1; }, kNotA},
             {"Remove", [](JSONItem& item) { item.Remove(0); }, kNotA},
             {"Value", [](JSONItem& item) { item.Value(0); }, kNotAn},
             {"SetValue", [](JSONItem& item) { item.SetValue(0, 1); }, kNotAn},
         }) {
        JSONItem item("{\"a\":1}");
        EXPECT_EQ(Raised([&] { each.call(item); }), each.fault) << each.name;
        EXPECT_EQ(item.ToString(), "{\"a\":1}") << each.name;
        EXPECT_FALSE(item.IsArray()) << each.name;
    }
}

TEST(JSONItem, ValuesUnderANameRefuseAnArrayEvenAnEmptyOne) {
    for (const char* text : {"[1]", "[]"}) {
        JSONItem item(text);
        EXPECT_EQ(Raised([&] { item.Value("a"); }), kIsArray);
        EXPECT_EQ(Raised([&] { item.SetValue("a", 1); }), kIsArray);
        EXPECT_EQ(Raised([&] { item.Lookup("a", 1); }), kIsArray);
        EXPECT_EQ(item.ToString(), text);
    }
}

TEST(JSONItem, AppendMakesAnArrayThatClearLeavesOne) {
    JSONItem item;
    item.Append("a");
    EXPECT_TRUE(item.IsArray());
    EXPECT_EQ(item.Count(), 1);
    item.Clear();
    EXPECT_EQ(item.Count(), 0);
    EXPECT_EQ(item.ToString(), "[]");
}

/// What is left of an array after the calls; "X" behind it if one of them raised KeyNotFound.
std::string After(const std::string& text, const std::function<void(JSONItem&)>& calls) {
    JSONItem item(text);
    std::string fault;
    try {
        calls(item);
    } catch (const KeyNotFoundException&) {
        fault = "X";
    }
    std::string keys;
    for (int64_t i = 0; i < item.Count(); ++i) {
        keys += (i > 0 ? " " : "") + item.Key(i).StringValue() + "=" +
                item.InternalValue(item.Key(i)).StringValue();
    }
    return keys + fault;
}

TEST(JSONItem, InsertAndRemoveMoveTheValuesBehind) {
    struct Case {
        const char* text;
        std::function<void(JSONItem&)> calls;
        const char* left;
    };
    const auto gap = [](JSONItem& item) { item.SetValue(5, 9); };
    for (const Case& each : std::vector<Case>{
             {"[1,2]", [](JSONItem& item) { item.Insert(1, 7); }, "0=1 1=7 2=2"},
             {"[1,2]", [](JSONItem& item) { item.Insert(0, 7); }, "0=7 1=1 2=2"},
             {"[1,2]", [](JSONItem& item) { item.Insert(2, 7); }, "0=1 1=2 2=7"},
             {"[1,2]", [](JSONItem& item) { item.Insert(4, 7); }, "0=1 1=2 4=7"},
             {"[1,2]", [](JSONItem& item) { item.Insert(-1, 7); }, "0=1 1=2X"},
             {"[1,2]", [](JSONItem& item) { item.Insert(INT64_MIN, 7); }, "0=1 1=2X"},
             {"[]", [](JSONItem& item) { item.Insert(0, 7); }, "0=7"},
             {"[1,2,3]", [](JSONItem& item) { item.Remove(0); }, "0=2 1=3"},
             {"[1,2,3]", [](JSONItem& item) { item.Remove(1); }, "0=1 1=3"},
             {"[1,2,3]", [](JSONItem& item) { item.Remove(2); }, "0=1 1=2"},
             {"[1,2,3]", [](JSONItem& item) { item.Remove(7); }, "0=1 1=2"},
             {"[1,2,3]", [](JSONItem& item) { item.Remove(INT64_MAX); }, "0=1 1=2"},
             {"[1,2]", [](JSONItem& item) { item.Remove(-1); }, "-1=1 0=2"},
             {"[1,2]", [](JSONItem& item) { item.Remove(-2); }, "0=1 1=2X"},
             {"[]", [](JSONItem& item) { item.Remove(0); }, "X"},
             // A gap counts for nothing, and the values behind it can't be moved.
             {"[1,2]", gap, "0=1 1=2 5=9"},
             {"[1,2]", [&](JSONItem& item) { gap(item), item.Append(3); }, "0=1 1=2 3=3 5=9"},
             {"[1,2]", [&](JSONItem& item) { gap(item), item.Insert(0, 3); }, "0=1 1=2 5=9X"},
             {"[1,2]", [&](JSONItem& item) { gap(item), item.Insert(3, 3); }, "0=1 1=2 3=3 5=9"},
             {"[1,2]", [&](JSONItem& item) { gap(item), item.Remove(0); }, "0=1 1=2 5=9X"},
             {"[1,2]", [&](JSONItem& item) { gap(item), item.Remove(9); }, "0=1 1=2 5=9X"},
             {"[1,2]", [&](JSONItem& item) { gap(item), item.SetValue(2, 3), item.Remove(0); },
              "0=1 1=2 2=3 5=9X"},
             // Filled from behind, it is an array like any other in the end.
             {"[]",
              [](JSONItem& item) {
                  for (int i = 3; i >= 0; --i)
                      item.SetValue(i, i);
                  item.Remove(1);
              },
              "0=0 1=2 2=3"},
         }) {
        EXPECT_EQ(After(each.text, each.calls), each.left) << each.text;
    }
}

TEST(JSONItem, WritesAnArrayInTheOrderOfItsIndexes) {
    JSONItem item;
    item.SetValue(5, "five");
    item.SetValue(-1, "before");
    item.SetValue(0, "none");
    EXPECT_EQ(item.ToString(), "[\"before\",\"none\",\"five\"]");
    EXPECT_EQ(item.Names(), std::vector<std::string>());
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
    JSONItem item;
    const std::string odd("\0\xFF/日", 6);
    item.SetValue("key", 1);
    item.SetValue("KEY", 2);
    item.SetValue(odd, 3);
    item.SetValue("key", 4);
    EXPECT_EQ(item.Names(), (std::vector<std::string>{"key", "KEY", odd}));
    EXPECT_EQ(item.Value("key").Int32Value(), 4);
    EXPECT_EQ(item.Key(1).StringValue(), "4B4559");
    EXPECT_EQ(item.Key(2).StringValue(), "00FF2FE697A5");
    EXPECT_EQ(item.InternalValue("00FF2FE697A5").Int32Value(), 3);
    // Only the encoded form is a key, and only as it is made.
    for (const char* key : {"key", "4b4559", "4B45", "4B45590", "4B 45 59", ""}) {
        EXPECT_THROW(item.InternalValue(key), KeyNotFoundException) << key;
    }
    EXPECT_THROW(item.InternalValue(0), KeyNotFoundException);
    EXPECT_TRUE(item.HasName("KEY"));
    EXPECT_FALSE(item.HasName("Key"));
    item.SetValue("7", 5);
    EXPECT_TRUE(item.HasName(7));
    item.Remove("KEY");
    EXPECT_EQ(item.Names(), (std::vector<std::string>{"key", odd, "7"}));
}

TEST(JSONItem, FindsEachOfManyNamesAlsoAfterRemovals) {
    JSONItem item;
    for (int i = 0; i < 1000; ++i)
        item.SetValue("name " + std::to_string(i), i);
    for (int i = 0; i < 1000; i += 3)
        item.Remove("name " + std::to_string(i));
    for (int i = 0; i < 1000; i += 6)
        item.SetValue("name " + std::to_string(i), -i);
    EXPECT_EQ(item.Count(), 666 + 167);
    for (int i = 0; i < 1000; ++i) {
        const std::string name = "name " + std::to_string(i);
        const int expected = i % 6 == 0 ? -i : i % 3 == 0 ? 1 : i;
        EXPECT_EQ(item.Lookup(name, 1).Int32Value(), expected) << name;
    }
    EXPECT_EQ(item.Name(0), "name 1");
    EXPECT_EQ(item.Name(666), "name 0");
}

TEST(JSONItem, SetChildTakesAnyNameEvenInAnArray) {
    JSONItem item("[1]");
    const Ref<JSONItem> child = New<JSONItem>();
    item.SetChild("b", child);
    item.SetChild(3, child);
    EXPECT_TRUE(item.Child("b") == child);
    EXPECT_TRUE(item.Child(3) == child);
    child->Append(2);
    EXPECT_EQ(item.ToString(), "[1,[2],[2]]");
    EXPECT_EQ(item.Names(), std::vector<std::string>{"b"});
    // The next place is the number of values.
    item.Append("next");
    EXPECT_EQ(item.Value(3).StringValue(), "next");
    item.Remove("b");
    EXPECT_EQ(item.ToString(), "[1,\"next\"]");
}

TEST(JSONItem, TextsFromTheParserAreDeclaredWhenTheyAreRead) {
    JSONItem item("{\"a\":\"é\"}");
    EXPECT_EQ(item.InternalValue("61").Encoding(), TextEncoding::None);
    EXPECT_EQ(item.Value("a").EncodedValue(), (EncodedText{"é", Encodings::UTF8}));
    EXPECT_EQ(item.Lookup("a", 0).Encoding(), Encodings::UTF8);
    item.SetValue("b", Variant("\xE9", Encodings::ISOLatin1));
    EXPECT_EQ(item.Value("b").EncodedValue(), (EncodedText{"é", Encodings::UTF8}));
    JSONItem array("[\"é\"]");
    EXPECT_EQ(array.Value(0).Encoding(), Encodings::UTF8);
    EXPECT_EQ(Variant(array[0]).Encoding(), TextEncoding::None);
}

TEST(JSONItem, ArraysBecomeItems) {
    const Ref<JSONItem> child = New<JSONItem>();
    JSONItem item;
    item.SetValue("flags", std::vector<bool>{true, false});
    item.SetValue("small", std::vector<int32_t>{1, -2});
    item.SetValue("large", std::vector<int64_t>{5000000000});
    item.SetValue("single", std::vector<float>{0.5f});
    item.SetValue("double", std::vector<double>{1});
    item.SetValue("texts", std::vector<std::string>{"a", ""});
    item.SetValue("items", std::vector<Ref<JSONItem>>{child, nullptr});
    item.SetValue("none", std::vector<int32_t>{});
    EXPECT_EQ(item.ToString(),
              "{\"flags\":[true,false],\"small\":[1,-2],\"large\":[5000000000],\"single\":[0.5],"
              "\"double\":[1.0],\"texts\":[\"a\",\"\"],\"items\":[{},null],\"none\":{}}");
    EXPECT_EQ(item.Child("large")->Value(0).VarType(), VariantType::Integer64);
    EXPECT_TRUE(item.Child("items")->Child(0) == child);
    EXPECT_THROW(item.SetValue("flags", std::vector<Date>{Date{}}), TypeMismatchException);
    EXPECT_THROW(item.SetValue("flags", std::vector<Variant>{1}), TypeMismatchException);
    EXPECT_EQ(item.Child("flags")->Count(), 2);
}

TEST(JSONItem, IsMadeFromADictionary) {
    Dictionary dictionary;
    dictionary.SetValue("b", 1);
    dictionary.SetValue(2, New<JSONItem>("[true]"));
    dictionary.SetValue(true, Variant());
    const JSONItem item(dictionary);
    EXPECT_EQ(item.ToString(), "{\"b\":1,\"2\":[true],\"True\":null}");
    EXPECT_EQ(JSONItem(std::string(" \n")).ToString(), "{}");
}

}  // namespace
}  // namespace dunvey
