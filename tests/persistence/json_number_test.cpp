#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "persistence/json_item.h"
#include "platform/number_format.h"

namespace dunvey {
namespace {

Variant ValueOf(const std::string& number) {
    return JSONItem("[" + number + "]").Value(0);
}

uint64_t BitsOf(double number) {
    uint64_t bits = 0;
    std::memcpy(&bits, &number, sizeof bits);
    return bits;
}

TEST(JSONNumber, WholeNumbersTakeTheSmallestTypeAndGoThroughADouble) {
    struct Case {
        const char* text;
        int type;
        int64_t value;
    };
    for (const Case& each : std::vector<Case>{
             {"0", 2, 0},
             {"-0", 2, 0},
             {"7", 2, 7},
             {"2147483647", 2, 2147483647},
             {"2147483648", 3, 2147483648},
             {"3000000000", 3, 3000000000},
             {"-2147483648", 2, -2147483648LL},
             {"-2147483649", 3, -2147483649LL},
             {"9007199254740993", 3, 9007199254740992},
             {"999999999999999999", 3, 1000000000000000000},
             {"9223372036854774784", 3, 9223372036854774784},
             {"9223372036854775807", 3, std::numeric_limits<int64_t>::max()},
             {"-9223372036854775808", 3, std::numeric_limits<int64_t>::min()},
             {"18446744073709551616", 3, std::numeric_limits<int64_t>::max()},
             {"-100000000000000000000", 3, std::numeric_limits<int64_t>::min()},
         }) {
        const Variant value = ValueOf(each.text);
        EXPECT_EQ(value.VarType(), each.type) << each.text;
        EXPECT_EQ(value.Int64Value(), each.value) << each.text;
    }
    EXPECT_EQ(ValueOf(std::string(400, '9')).Int64Value(), std::numeric_limits<int64_t>::max());
}

TEST(JSONNumber, PointOrExponentMakesADoubleOfTheNearestValue) {
    struct Case {
        const char* text;
        double value;
    };
    for (const Case& each : std::vector<Case>{
             {"1.0", 1},
             {"1e0", 1},
             {"1E+2", 100},
             {"0e5", 0},
             {"-0.0", -0.0},
             {"0.5E1", 5},
             {"1e", 1},
             {"1e+", 1},
             {"0.1", 0.1},
             {"123456.789", 123456.789},
             {"-999999999999999.9", -999999999999999.9},
             {"9007199254740993.0", 9007199254740992},
             {"9007199254740993.000000000000001", 9007199254740994},
             {"1.7976931348623157e308", std::numeric_limits<double>::max()},
             {"1e400", std::numeric_limits<double>::infinity()},
             {"-1e400", -std::numeric_limits<double>::infinity()},
             {"2.2250738585072014e-308", std::numeric_limits<double>::min()},
             {"2.2250738585072011e-308", 2.2250738585072011e-308},
             {"5e-324", std::numeric_limits<double>::denorm_min()},
             {"2e-324", 0},
             {"-1e-400", -0.0},
         }) {
        const Variant value = ValueOf(each.text);
        EXPECT_EQ(value.VarType(), VariantType::Double) << each.text;
        EXPECT_EQ(BitsOf(value.DoubleValue()), BitsOf(each.value)) << each.text;
    }
}

TEST(JSONNumber, FormatCutsToItsPlacesAndRoundsToTheNearest) {
    struct Case {
        double number;
        const char* pattern;
        const char* text;
    };
    constexpr char kUsual[] = "-0.0##############";
    for (const Case& each : std::vector<Case>{
             {2.5, kUsual, "2.5"},
             {-0.25, kUsual, "-0.25"},
             {100, kUsual, "100.0"},
             {0, kUsual, "0.0"},
             {-0.0, kUsual, "0.0"},
             {0.1, kUsual, "0.1"},
             {0.1 + 0.2, kUsual, "0.3"},
             {123456789.1, kUsual, "123456789.1"},
             {1.0 / 3, kUsual, "0.333333333333333"},
             {2.0 / 3, kUsual, "0.666666666666667"},
             {1e-15, kUsual, "0.000000000000001"},
             {-1e-20, kUsual, "0.0"},
             {0.0000000000000006, kUsual, "0.000000000000001"},
             {9007199254740992, kUsual, "9007199254740992.0"},
             {1e21, kUsual, "1000000000000000000000.0"},
             {9.99, "0.0", "10.0"},
             {0.96, "0.0", "1.0"},
             {0.06, "0.0", "0.1"},
             {0.04, "0.0", "0.0"},
             // The half is one only if the double is: the first three are not.
             {0.15, "0.0", "0.1"},
             {0.25, "0.0", "0.2"},
             {0.35, "0.0", "0.3"},
             {0.45, "0.0", "0.5"},
             {0.75, "0.0", "0.8"},
             {2.5, "0", "2"},
             {3.5, "0", "4"},
             {0.5, "0", "0"},
             {1.5, "-0", "2"},
             {-1.5, "0.0", "1.5"},
             {7.25, "000.000", "007.250"},
             {0.25, "#.##", ".25"},
             {3, "#.##", "3"},
             {12, "0.0 mm", "12.0 mm"},
             {-3.5, "-$0.00", "-$3.50"},
         }) {
        EXPECT_EQ(Str(each.number, each.pattern), each.text) << each.pattern;
    }
    EXPECT_EQ(Str(1e300, kUsual), "1" + std::string(300, '0') + ".0");
}

TEST(JSONNumber, PlainTextIsTheShortestThatReadsBack) {
    struct Case {
        double number;
        const char* text;
    };
    for (const Case& each : std::vector<Case>{
             {100, "100"},
             {-2.5, "-2.5"},
             {0.1, "0.1"},
             {0.30000000000000004, "0.30000000000000004"},
             {0.000012345678901234567, "0.000012345678901234568"},
             {0.0000012, "1.2e-06"},
             {1e15, "1000000000000000"},
             {1e16, "1e+16"},
             {1.5e300, "1.5e+300"},
             {5e-324, "5e-324"},
             {-1.7976931348623157e308, "-1.7976931348623157e+308"},
             {NAN, "NaN"},
             {-INFINITY, "-Infinity"},
         }) {
        EXPECT_EQ(Str(each.number), each.text);
    }
}

}  // namespace
}  // namespace dunvey
