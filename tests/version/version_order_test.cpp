#include <gtest/gtest.h>

#include "version/file_order.h"
#include "version/version_name.h"

namespace dunvey {
namespace {

TEST(VersionName, FollowsTheProductsNaming) {
    const std::pair<const char*, const char*> names[] = {
        {"1", "1"},        {"2", "2"},        {"3", "CS"},       {"4", "CS2"},
        {"5", "CS3"},      {"6", "CS4"},      {"7", "CS5"},      {"7.5", "CS5.5"},
        {"8", "CS6"},      {"9", "CC"},       {"10", "CC 2014"}, {"11", "CC 2015"},
        {"12", "CC 2017"}, {"13", "CC 2018"}, {"14", "CC 2019"}, {"15", "2020"},
        {"16", "2021"},    {"17", "2022"},    {"255", "2260"},   {"0", "2005"},
        {"2.5", "2.5"},    {"7.6", "2012"},   {"", "2005"}};
    for (const auto& [version, name] : names)
        EXPECT_EQ(InDesign::GetAppName(version), name);
}

TEST(FileOrder, IsNumericAscendingAndStable) {
    std::vector<std::string> versions = {"10", "9", "8.1", "nonsense", "8", "8.0", "", "7.5"};
    // An unstable sort shows only in a long list.
    for (int i = 0; i < 200; ++i)
        versions.push_back(i % 3 == 0 ? "11" : "11.0");
    std::vector<Ref<FileClass>> records;
    for (const std::string& version : versions)
        records.emplace_back(New<FileClass>())->WillUseVer = version;
    auto expected = records;
    const size_t order[] = {3, 6, 7, 4, 5, 2, 1, 0};
    for (size_t i = 0; i < std::size(order); ++i)
        expected[i] = records[order[i]];
    EXPECT_EQ(&InDesign::SortFilesByVer(records), &records) << "in place";
    EXPECT_EQ(records, expected);
}

}  // namespace
}  // namespace dunvey
