#include <gtest/gtest.h>

#include "version/file_order.h"
#include "version/version_name.h"

namespace dunvey {
namespace {

TEST(VersionName, FollowsTheProductsNaming) {
    const std::pair<const char*, const char*> kNames[] = {
        {"1", "1"},        {"2", "2"},        {"3", "CS"},       {"4", "CS2"},
        {"5", "CS3"},      {"6", "CS4"},      {"7", "CS5"},      {"7.5", "CS5.5"},
        {"8", "CS6"},      {"9", "CC"},       {"10", "CC 2014"}, {"11", "CC 2015"},
        {"12", "CC 2017"}, {"13", "CC 2018"}, {"14", "CC 2019"}, {"15", "2020"},
        {"16", "2021"},    {"17", "2022"},    {"255", "2260"},   {"0", "2005"},
        {"2.5", "2.5"},    {"7.6", "2012"},   {"", "2005"}};
    for (const auto& [version, name] : kNames)
        EXPECT_EQ(InDesign::GetAppName(version), name);
}

std::vector<Ref<FileClass>> Records(const std::vector<std::string>& versions) {
    std::vector<Ref<FileClass>> records;
    for (const std::string& version : versions) {
        Ref<FileClass> record = New<FileClass>();
        record->WillUseVer = version;
        records.push_back(record);
    }
    return records;
}

TEST(FileOrder, IsNumericAscendingAndStable) {
    auto records = Records({"10", "9", "8.1", "nonsense", "8", "8.0", "", "7.5"});
    auto& sorted = InDesign::SortFilesByVer(records);
    EXPECT_EQ(&sorted, &records) << "in place";
    std::string order;
    for (const auto& record : records)
        order += record->WillUseVer + "|";
    EXPECT_EQ(order, "nonsense||7.5|8|8.0|8.1|9|10|");
    std::vector<Ref<FileClass>> empty;
    EXPECT_TRUE(InDesign::SortFilesByVer(empty).empty());
}

// A sort that isn't stable shows it only in a long list.
TEST(FileOrder, KeepsTheOrderOfManyEqualOnes) {
    std::vector<std::string> versions;
    for (int i = 0; i < 200; ++i)
        versions.push_back(i % 3 == 0 ? "8" : "8.0");
    auto records = Records(versions);
    const auto before = records;
    EXPECT_EQ(InDesign::SortFilesByVer(records), before);
}

}  // namespace
}  // namespace dunvey
