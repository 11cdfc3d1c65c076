#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <random>
#include <string>

#include "persistence/json_item.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

/// Makes documents that both libraries take: whole numbers up to 2^53, doubles with no more places
/// than the usual format has, texts of whole characters.
class Generator {
 public:
    explicit Generator(unsigned seed) : random_(seed) {}

    nlohmann::json Document() { return Below(2) == 0 ? Object(4) : Array(4); }

 private:
    int64_t Below(int64_t limit) {
        return std::uniform_int_distribution<int64_t>(0, limit - 1)(random_);
    }

    nlohmann::json Value(int depth) {
        switch (Below(depth > 0 ? 9 : 7)) {
            case 0:
                return nullptr;
            case 1:
                return Below(2) == 0;
            case 2:
                return Below(201) - 100;
            case 3:
                return Below((int64_t{1} << 54) + 1) - (int64_t{1} << 53);
            case 4:
                return static_cast<double>(Below(2000001) - 1000000) / 1024;
            case 5:
                return Number();
            case 6:
                return Text();
            case 7:
                return Object(depth - 1);
            default:
                return Array(depth - 1);
        }
    }

    /// A double that needs all its digits, two of them or more in front of the point.
    double Number() {
        const double sign = Below(2) == 0 ? 1 : -1;
        return sign * std::uniform_real_distribution<double>(10, 100)(random_) *
               std::pow(10.0, static_cast<double>(Below(200)));
    }

    std::string Text() {
        static constexpr uint32_t kLimits[] = {0x20, 0x80, 0x100, 0x3000, 0x10000, 0x110000};
        std::string text;
        for (int64_t length = Below(24); length > 0; --length) {
            text += Chr(static_cast<uint32_t>(Below(kLimits[Below(6)])));
        }
        return text;
    }

    nlohmann::json Object(int depth) {
        nlohmann::json object = nlohmann::json::object();
        for (int64_t count = Below(24); count > 0; --count)
            object[Text()] = Value(depth);
        return object;
    }

    nlohmann::json Array(int depth) {
        nlohmann::json array = nlohmann::json::array();
        for (int64_t count = Below(12); count > 0; --count)
            array.push_back(Value(depth));
        return array;
    }

    std::mt19937 random_;
};

unsigned Seed() {
    // To see a failure again, give its seed in the environment.
    const char* given = std::getenv("DUNVEY_TEST_SEED");
    return given != nullptr ? static_cast<unsigned>(std::atoi(given)) : std::random_device()();
}

TEST(JSONRoundTrip, BothLibrariesUnderstandEachOther) {
    const unsigned seed = Seed();
    SCOPED_TRACE("DUNVEY_TEST_SEED=" + std::to_string(seed));
    Generator generator(seed);
    for (int i = 0; i < 200; ++i) {
        const nlohmann::json original = generator.Document();
        JSONItem item(original.dump(i % 3 == 0 ? 2 : -1));
        item.Compact = i % 2 == 0;
        item.EscapeSlashes = i % 5 == 0;
        const std::string written = item.ToString();
        ASSERT_TRUE(nlohmann::json::parse(written) == original) << "document " << i;
        // Read once more it is the same text: the order of the members is kept.
        JSONItem again(written);
        again.Compact = item.Compact;
        again.EscapeSlashes = item.EscapeSlashes;
        ASSERT_TRUE(again.ToString() == written) << "document " << i;
    }
}

TEST(JSONRoundTrip, DoublesBelowOneKeepFifteenPlaces) {
    const unsigned seed = Seed();
    SCOPED_TRACE("DUNVEY_TEST_SEED=" + std::to_string(seed));
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> values(-1, 1);
    JSONItem item;
    std::vector<double> numbers;
    for (int i = 0; i < 2000; ++i) {
        numbers.push_back(values(random) / std::pow(10.0, i % 18));
        item.Append(numbers.back());
    }
    // Half of the last place, and what a double near 1 is rounded by when it is read.
    constexpr double kFarthest = 0.5e-15 + 1.2e-16;
    const nlohmann::json back = nlohmann::json::parse(item.ToString());
    for (size_t i = 0; i < numbers.size(); ++i) {
        EXPECT_LE(std::abs(back[i].get<double>() - numbers[i]), kFarthest) << numbers[i];
    }
}

}  // namespace
}  // namespace dunvey
