#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <vector>

#include "platform/values/array.h"
#include "platform/values/collection.h"
#include "platform/values/dictionary.h"
#include "platform/values/memory_block.h"

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
    EXPECT_EQ(dictionary.Lookup("key", "else").StringValue(), "else");
    EXPECT_THROW(dictionary.Value(New<Dictionary>()), KeyNotFoundException);
    try {
        dictionary.Remove("key");
        FAIL();
    } catch (const KeyNotFoundException& exception) {
        EXPECT_EQ(exception.Message, "There is no value under the key \"key\".");
    }
}

TEST(Dictionary, ManyAdditionsAndRemovalsKeepKeysAndOrder) {
    std::mt19937 random(5);
    for (const unsigned range : {3U, 30U, 300U}) {
        Dictionary dictionary;
        std::vector<std::string> keys;
        std::map<std::string, int> values;
        for (int step = 0; step < 5000; ++step) {
            const std::string key = std::to_string(random() % range);
            ASSERT_EQ(dictionary.HasKey(key), values.contains(key));
            if (values.contains(key) && random() % 2 == 0) {
                dictionary.Remove(key);
                values.erase(key);
                std::erase(keys, key);
                continue;
            }
            dictionary.SetValue(key, step);
            if (values.insert_or_assign(key, step).second) keys.push_back(key);
        }
        ASSERT_EQ(dictionary.Count(), UpperBound(keys) + 1);
        for (int64_t i = 0; i < dictionary.Count(); ++i) {
            EXPECT_EQ(dictionary.Key(i).StringValue(), At(keys, i));
            EXPECT_EQ(dictionary.Value(At(keys, i)).Int32Value(), values[At(keys, i)]);
        }
        dictionary.Clear();
        EXPECT_EQ(dictionary.Count(), 0);
        EXPECT_FALSE(dictionary.HasKey("0"));
    }
}

TEST(Collection, CountsFromOne) {
    Collection collection;
    collection.Add("a");
    EXPECT_EQ(collection.Count(), 1);
    EXPECT_EQ(collection.Item(1).StringValue(), "a");
    EXPECT_THROW(collection.Item(INT64_MIN), OutOfBoundsException);
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

}  // namespace
}  // namespace dunvey
