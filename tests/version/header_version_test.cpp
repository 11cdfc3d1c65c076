#include "version/header_version.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/world.h"
#include "version/file_class.h"
#include "version/file_order.h"
#include "version/version_name.h"

namespace dunvey {
namespace {

using test::Header;
using Version = std::vector<int64_t>;

class HeaderVersion : public test::World {
 protected:
    Version VersionOf(const std::string& extension, const std::string& bytes) const {
        const auto file = New<FolderItem>(folder_.Write("file", bytes));
        return InDesign::GetVerHexToDec(file, extension);
    }
};

TEST_F(HeaderVersion, IsReadInBothByteOrdersFromTheKindThatTheExtensionNames) {
    const std::pair<const char*, const char*> kinds[] = {
        {"indd", "DOCUMENT"}, {"INDT", "DOCUMENT"}, {"indb", "BOOKBOOK"}, {"indl", "LIBRARY4"}};
    for (const auto& [extension, typeWord] : kinds) {
        for (const Version& version : {Version{8, 1}, {16, 255}, {255, 0}}) {
            for (const bool littleEndian : {true, false}) {
                const auto [major, minor] = std::pair(int(version[0]), int(version[1]));
                const std::string header = Header(typeWord, major, minor, littleEndian);
                EXPECT_EQ(VersionOf(extension, header), version) << extension;
            }
        }
    }
    for (const auto& [extension, typeWord] : {std::pair{"indb", "DOCUMENT"},
                                              {"indd", "BOOKBOOK"},
                                              {"indl", "DOCUMENT"},
                                              {"idml", "DOCUMENT"}})
        EXPECT_EQ(VersionOf(extension, Header(typeWord, 8, 0)), (Version{0, 0})) << extension;
}

TEST_F(HeaderVersion, IsZeroForUnreadableFiles) {
    ASSERT_EQ(mkfifo((folder_ / "fifo.indd").c_str(), 0600), 0);
    folder_.MakeFolder("folder.indd");
    for (const char* name : {"fifo.indd", "folder.indd", "none.indd"}) {
        const auto item = New<FolderItem>(folder_ / name);
        EXPECT_EQ(InDesign::GetVerHexToDec(item, "indd"), (Version{0, 0})) << name;
    }
}

class FileRecord : public test::World {};

TEST_F(FileRecord, IsFilledFromTheFile) {
    const auto item = Document("My Layout.v2.indd", 8, 1);
    const Ref<FileClass> record = InDesign::MakeNewFileClass(item);
    EXPECT_EQ(record->File, item);
    EXPECT_EQ(record->FileExt, "indd");
    EXPECT_EQ(record->Vers, (Version{8, 1}));
    EXPECT_EQ(record->Ver, "8");
    EXPECT_EQ(record->WillUseVer, "8");
    EXPECT_TRUE(record->WillOpen);
    EXPECT_FALSE(record->App);
    EXPECT_FALSE(record->WillUseApp);
    EXPECT_EQ(record->AppName, "");
    // Only 7.5 keeps its minor version.
    EXPECT_EQ(InDesign::MakeNewFileClass(Document("a.indd", 7, 5))->Ver, "7.5");
    EXPECT_EQ(InDesign::MakeNewFileClass(Document("b.indd", 7, 0))->Ver, "7");
    EXPECT_EQ(InDesign::MakeNewFileClass(Document("c.indd", 8, 5))->Ver, "8");
}

TEST_F(FileRecord, IsMadeForTheFourExtensionsOnly) {
    const auto record = [this](const std::string& name) {
        return InDesign::MakeNewFileClass(New<FolderItem>(folder_ / name));
    };
    for (const char* name : {"a.indd", "a.indt", "a.indb", "a.indl", "indd", ".indd", "A.INDD",
                             "a.bak.Indt", "日本.indd"}) {
        EXPECT_FALSE(record(name)) << "no file " << name;
        folder_.Write(name, "");
        EXPECT_TRUE(record(name)) << name;
    }
    EXPECT_EQ(record("A.INDD")->FileExt, "INDD");
    for (const char* name : {"Layout.indd.bak", "a.idml", "a", "a.indd ", "aindd"}) {
        folder_.Write(name, "");
        EXPECT_FALSE(record(name)) << name;
    }
    ASSERT_EQ(symlink("nowhere", (folder_ / "dangling.indd").c_str()), 0);
    EXPECT_FALSE(record("dangling.indd"));
    EXPECT_FALSE(InDesign::MakeNewFileClass(nullptr));
}

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
