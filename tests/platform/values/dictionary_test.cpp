#include "platform/values/dictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "platform/values/collection.h"
#include "platform/values/exceptions.h"

namespace dunvey {
namespace {

TEST(Dictionary, KeysOfAllKindsStandSideBySide) {
    Dictionary dictionary;
    const Ref<Dictionary> object = New<Dictionary>();
    const std::vector<Variant> keys = {
        Variant(),          true, false, 1, "1", "a", "A", 2.5, "2.5", object, Date{1}, Color{1},
        int64_t{5000000000}};
    for (size_t i = 0; i < keys.size(); ++i)
        dictionary.SetValue(keys[i], int(i));
    EXPECT_EQ(dictionary.Count(), 13);
    for (size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(dictionary.Value(keys[i]).Int32Value(), int(i));
    }
    // Numbers count by what they are worth.
    EXPECT_EQ(dictionary.Value(1.0).Int32Value(), 3);
    EXPECT_FALSE(dictionary.HasKey(New<Dictionary>()));
}

TEST(Dictionary, MissingKeysAreToldByName) {
    Dictionary dictionary;
    EXPECT_EQ(dictionary.Lookup("key", "else").StringValue(), "else");
    EXPECT_THROW(dictionary.Remove("key"), KeyNotFoundException);
    EXPECT_THROW(dictionary.Value(New<Dictionary>()), KeyNotFoundException);
    try {
        dictionary.Value("key");
        FAIL();
    } catch (const KeyNotFoundException& exception) {
        EXPECT_EQ(exception.Message, "There is no value under the key \"key\".");
    }
}

/// The same calls on a table and on a plain list of pairs, the keys numbers and texts.
TEST(Dictionary, ManyAdditionsAndRemovalsKeepKeysAndOrder) {
    std::mt19937 random(5);
    Dictionary dictionary;
    std::vector<std::pair<Variant, int>> expected;
    for (int step = 0; step < 20000; ++step) {
        const int number = static_cast<int>(random() % 300);
        const Variant key = number % 2 == 0 ? Variant(number) : "name " + std::to_string(number);
        const auto place = std::find_if(expected.begin(), expected.end(),
                                        [&key](const auto& pair) { return pair.first == key; });
        ASSERT_EQ(dictionary.HasKey(key), place != expected.end());
        if (place == expected.end()) {
            dictionary.SetValue(key, step);
            expected.emplace_back(key, step);
        } else if (random() % 2 == 0) {
            dictionary.Remove(key);
            expected.erase(place);
        } else {
            dictionary.SetValue(key, step);
            place->second = step;
        }
    }
    ASSERT_EQ(dictionary.Count(), static_cast<int64_t>(expected.size()));
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_TRUE(dictionary.Key(static_cast<int64_t>(i)) == expected[i].first);
        EXPECT_EQ(dictionary.Value(expected[i].first).Int32Value(), expected[i].second);
    }
    EXPECT_THROW(dictionary.Key(dictionary.Count()), OutOfBoundsException);
    EXPECT_THROW(dictionary.Key(-1), OutOfBoundsException);
    dictionary.Clear();
    EXPECT_EQ(dictionary.Count(), 0);
}

TEST(Collection, CountsFromOne) {
    Collection collection;
    collection.Add("a");
    collection.Add("b");
    EXPECT_EQ(collection.Item(2).StringValue(), "b");
    EXPECT_THROW(collection.Item(0), OutOfBoundsException);
    EXPECT_THROW(collection.Item(3), OutOfBoundsException);
    EXPECT_THROW(collection.Item(INT64_MIN), OutOfBoundsException);
}

}  // namespace
}  // namespace dunvey
