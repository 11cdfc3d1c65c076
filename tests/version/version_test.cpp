#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/world.h"
#include "version/application_version.h"
#include "version/booting_apps.h"
#include "version/file_class.h"
#include "version/file_order.h"
#include "version/header_version.h"
#include "version/installed_apps.h"
#include "version/launch_command.h"
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

class InstalledApplications : public test::World {
 protected:
    /// The names found, without what is common to all.
    static std::string Scan() {
        InDesign::GetInstalledApps();
        std::string found;
        for (const auto& application : InDesign::InstalledApps)
            found += application->Name().substr(14, application->Name().size() - 18) + "|";
        return found;
    }
};

TEST_F(InstalledApplications, AreSortedByMajorVersionThenByName) {
    Installed("CC 2014", "10.0.2");
    Installed("CS6", "8.0.1");
    Installed("CS5.5", "7.5.3");
    Installed("CS5", "7.0.4");
    Installed("Unknown");
    for (int scan = 0; scan < 2; ++scan)
        EXPECT_EQ(Scan(), " Unknown| CS5| CS5.5| CS6| CC 2014|");
}

TEST_F(InstalledApplications, NeedAFolderAndABundleOfTheSameName) {
    Installed("CS6", "8.0.1");
    for (const char* name :
         {"A/A.app", "Adobe InDesign/Adobe InDesign.app", "Adobe InDesign CC",
          "Adobe InDesign CC 2014/Adobe InDesign.app", "Adobe InDesign CS4.app/Contents",
          "adobe indesign CS3/adobe indesign CS3.app", "My Adobe InDesign/My Adobe InDesign.app",
          "inner/Adobe InDesign CS5/Adobe InDesign CS5.app"})
        folder_.MakeFolder(std::string("Applications/") + name);
    folder_.Write("Applications/Adobe InDesign 2020", "a file");
    ASSERT_EQ(symlink((folder_ / "Applications/Adobe InDesign CS6").c_str(),
                      (folder_ / "Applications/Adobe InDesign Alias").c_str()),
              0);
    EXPECT_EQ(Scan(), "| CS6|");
    setenv("HOME", (folder_ / "nobody").c_str(), 1);
    EXPECT_EQ(Scan(), "") << "no applications folder";
}

class ApplicationVersion : public test::World {};

TEST_F(ApplicationVersion, IsThatOfThePropertyListUnlessTheNameHasTwoPointZero) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"CS6", "8.1.0", "8.1.0"},
        {"CS6", "CS 3 3.0.1", "3.0.1"},
        {"CS6", "CS 3 CS 3 1", "CS 3 1"},
        {"CS6", "CS 3.0", "CS 3.0"},
        {"CS6", "version CS 3 1", "version CS 3 1"},
        {"CC", "", "0.0.0"},
        {"2.0", "", "2.0.?"},
        {"CC 12.02", "8.0", "2.0.?"}};
    for (const auto& [suffix, text, version] : cases)
        EXPECT_EQ(InDesign::AppVersion(Installed(suffix, text)), version) << suffix;
    EXPECT_EQ(InDesign::AppVersion(New<FolderItem>(AppPath("2.0 gone"))), "0.0.0");
    EXPECT_EQ(InDesign::AppVersion(nullptr), "0.0.0");
    folder_.Write("Applications/Adobe InDesign CS6/Adobe InDesign CS6.app/Contents/Info.plist",
                  "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key>"
                  "<integer>8</integer></dict></plist>");
    EXPECT_EQ(InDesign::AppVersion(New<FolderItem>(AppPath("CS6"))), "0.0.0");
}

class Matching : public test::World {
 protected:
    Ref<FileClass> Record(int major, int minor = 0) {
        InDesign::GetInstalledApps();
        return InDesign::MakeNewFileClass(Document("file.indd", major, minor));
    }
    /// The name of the application that matches the version.
    std::string Match(int major, int minor = 0) {
        const Ref<FolderItem> application = Record(major, minor)->App;
        return application ? application->Name() : "nil";
    }
};

TEST_F(Matching, TheLastMatchWinsAndTheLastApplicationDecidesTheName) {
    Installed("CS6", "8.0.1");
    EXPECT_EQ(Record(8)->AppName, AppName("CS6"));
    rename((folder_ / "Applications/Adobe InDesign CS6").c_str(), (folder_ / "gone").c_str());
    Installed("renamed", "8.0.1");
    EXPECT_EQ(Record(8)->AppName, AppName("renamed"));
    Installed("CC", "9.2.0");
    const Ref<FileClass> record = Record(8);
    EXPECT_EQ(record->App->Name(), AppName("renamed"));
    EXPECT_EQ(record->WillUseApp, record->App);
    EXPECT_EQ(record->AppName, AppName("CS6")) << "composed, since the last one doesn't match";
    Installed("second", "8.1");
    EXPECT_EQ(Match(8), AppName("second"));
    EXPECT_EQ(Match(14), "nil");
    EXPECT_EQ(Record(14)->AppName, AppName("CC 2019"));
}

TEST_F(Matching, FieldsOfVersionsAreComparedAsTexts) {
    Installed("CS5", "7.0.4");
    EXPECT_EQ(Match(7, 5), "nil");
    EXPECT_EQ(Record(7, 5)->AppName, AppName("CS5.5"));
    EXPECT_EQ(Match(7, 0), AppName("CS5"));
    Installed("CS5.5", "7");
    EXPECT_EQ(Match(7, 5), "nil") << "a version without a second field";
    Installed("CS5.5", "7.5.3");
    EXPECT_EQ(Match(7, 5), AppName("CS5.5"));
    EXPECT_EQ(Match(7, 0), AppName("CS5.5")) << "both match, the later one wins";
    Installed("Unknown");
    EXPECT_EQ(Match(0), AppName("Unknown")) << "its version is 0.0.0";
    Installed("Padded", "08.0");
    EXPECT_EQ(Match(8), "nil") << "texts, not numbers";
}

class Booting : public test::World {
 protected:
    /// The names found in this output of `ps`.
    std::vector<std::string> Names(const std::string& output) {
        folder_.Write("ps-output", output);
        InDesign::GetBootingAppNames();
        return InDesign::BootingAppNames;
    }

    using Texts = std::vector<std::string>;
    const Texts cs6_ = {AppName("CS6")};
};

TEST_F(Booting, NamesAreInTheOrderOfTheListWithDuplicates) {
    EXPECT_EQ(
        Names("COMM\n/sbin/init\n" + ProcessLine("CC") + ProcessLine("CS6") + ProcessLine("CC")),
        (Texts{AppName("CC"), AppName("CS6"), AppName("CC")}));
    std::string hostile;
    while (hostile.size() < 16'000)
        hostile += folder_ / "Applications/Adobe InDesign ";
    EXPECT_EQ(Names(hostile + "\n" + ProcessLine("CS6")), cs6_);
    EXPECT_EQ(Names("\xFF\xFE\n" + ProcessLine("CS6") + "\x80"), cs6_);
    EXPECT_EQ(Names(""), Texts());
}

TEST_F(Booting, TheUsersApplicationsFolderMayBeALink) {
    folder_.MakeFolder("elsewhere/Programs");
    rmdir((folder_ / "Applications").c_str());
    ASSERT_EQ(symlink("elsewhere/Programs", (folder_ / "Applications").c_str()), 0);
    const std::string name = "/Adobe InDesign CS6";
    const std::string process = name + name + ".app/Contents/MacOS" + name;
    EXPECT_EQ(Names(folder_ / "elsewhere/Programs" + process), cs6_);
    EXPECT_EQ(Names(folder_ / "Applications" + process), cs6_);
    EXPECT_EQ(Names(folder_ / "elsewhere" + process), Texts());
    EXPECT_EQ(Names("/Applications" + process), Texts()) << "not the applications folder";
}

TEST_F(Booting, ADifferentApplicationRunsOnlyWhereTheGivenOneDoesNot) {
    const auto cs6 = Installed("CS6", "8.0.1");
    const auto cc = Installed("CC", "9.2.0");
    Running({"CS6"});
    EXPECT_FALSE(InDesign::IsBootedDiffApp(cs6));
    EXPECT_TRUE(InDesign::IsBootedDiffApp(cc));
    Running({"CS6", "CC"});
    EXPECT_FALSE(InDesign::IsBootedDiffApp(cc));
    unlink((folder_ / "ps-output").c_str());
    EXPECT_FALSE(InDesign::IsBootedDiffApp(cc)) << "no list means that nothing runs";
}

TEST_F(Booting, NothingIsStartedWithoutAnApplicationOrDocuments) {
    ::testing::internal::CaptureStderr();
    InDesign::OpenWith(nullptr, "");
    InDesign::OpenWith(Installed("CS6", "8.0.1"), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
    for (const Ref<FolderItem>& none : {Ref<FolderItem>(), New<FolderItem>(AppPath("gone"))}) {
        ::testing::internal::CaptureStderr();
        InDesign::OpenWith(none, "/a\\ b /c ");
        EXPECT_NE(::testing::internal::GetCapturedStderr().find("Not opened: /a\\ b /c"),
                  std::string::npos);
    }
    EXPECT_TRUE(OpenCalls().empty());
}

}  // namespace
}  // namespace dunvey
