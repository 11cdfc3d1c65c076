#include "version/installed_apps.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "support/world.h"
#include "version/application_version.h"
#include "version/file_class.h"

namespace dunvey {
namespace {

class InstalledApplications : public test::World {
 protected:
    /// The suffixes of the names found, in their order.
    std::string Scan() {
        InDesign::GetInstalledApps();
        std::string found;
        for (const auto& application : InDesign::InstalledApps) {
            found += application->Name().substr(15, application->Name().size() - 19) + "|";
        }
        return found;
    }
};

TEST_F(InstalledApplications, AreSortedByMajorVersionThenByName) {
    for (const auto& [suffix, version] : std::vector<std::pair<std::string, std::string>>{
             {"CC 2014", "10.0.2"}, {"CS6", "8.0.1"}, {"CS5.5", "7.5.3"}, {"CS5", "7.0.4"}})
        Installed(suffix, version);
    Installed("Unknown");
    for (int scan = 0; scan < 2; ++scan)
        EXPECT_EQ(Scan(), "Unknown|CS5|CS5.5|CS6|CC 2014|");
}

TEST_F(InstalledApplications, NeedAFolderAndABundleOfTheSameName) {
    Installed("CS6", "8.0.1");
    folder_.MakeFolder("Applications/Adobe InDesign CC");
    folder_.MakeFolder("Applications/Adobe InDesign CC 2014/Adobe InDesign.app");
    folder_.MakeFolder("Applications/Adobe InDesign CS4.app/Contents");
    folder_.MakeFolder("Applications/adobe indesign CS3/adobe indesign CS3.app");
    folder_.MakeFolder("Applications/My Adobe InDesign/My Adobe InDesign.app");
    folder_.MakeFolder("Applications/inner/Adobe InDesign CS5/Adobe InDesign CS5.app");
    folder_.Write("Applications/Adobe InDesign 2020", "a file");
    ASSERT_EQ(symlink((folder_ / "Applications/Adobe InDesign CS6").c_str(),
                      (folder_ / "Applications/Adobe InDesign Alias").c_str()),
              0);
    EXPECT_EQ(Scan(), "CS6|");
    folder_.MakeFolder("Applications/Adobe InDesign/Adobe InDesign.app");
    InDesign::GetInstalledApps();
    EXPECT_EQ(InDesign::InstalledApps.size(), 2U) << "a name without a suffix";
    setenv("HOME", (folder_ / "nobody").c_str(), 1);
    EXPECT_EQ(Scan(), "") << "no applications folder";
}

class ApplicationVersion : public test::World {
 protected:
    std::string WithList(const std::string& bytes) {
        Installed("CS6");
        folder_.Write("Applications/Adobe InDesign CS6/Adobe InDesign CS6.app/Contents/Info.plist",
                      bytes);
        return InDesign::AppVersion(New<FolderItem>(AppPath("CS6")));
    }
};

TEST_F(ApplicationVersion, ComesFromThePropertyList) {
    const std::pair<const char*, const char*> kRows[] = {{"8.1.0", "8.1.0"},
                                                         {"CS 3 3.0.1", "3.0.1"},
                                                         {"CS 3 CS 3 1", "CS 3 1"},
                                                         {"CS 3.0", "CS 3.0"},
                                                         {"version CS 3 1", "version CS 3 1"}};
    for (const auto& [text, version] : kRows)
        EXPECT_EQ(InDesign::AppVersion(Installed("CS6", text)), version);
}

TEST_F(ApplicationVersion, IsUnknownWithoutAUsableList) {
    for (const Ref<FolderItem>& item : {Ref<FolderItem>(), New<FolderItem>(AppPath("none")),
                                        Installed("CC"), Installed("2014", "")})
        EXPECT_EQ(InDesign::AppVersion(item), "0.0.0");
    const std::string head = "<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key>";
    for (const std::string& list :
         {std::string(), std::string("broken"), head + "<integer>8</integer></dict></plist>",
          std::string("<plist version=\"1.0\"><dict/></plist>")})
        EXPECT_EQ(WithList(list), "0.0.0") << list;
    EXPECT_EQ(WithList(head + "<string>8.0</string></dict></plist>"), "8.0");
}

TEST_F(ApplicationVersion, TwoPointZeroInTheNameOverridesTheList) {
    EXPECT_EQ(InDesign::AppVersion(Installed("2.0")), "2.0.?");
    EXPECT_EQ(InDesign::AppVersion(Installed("2.0", "8.0")), "2.0.?");
    EXPECT_EQ(InDesign::AppVersion(Installed("CC 12.02", "8.0")), "2.0.?");
    EXPECT_EQ(InDesign::AppVersion(New<FolderItem>(AppPath("2.0 gone"))), "0.0.0");
}

class Matching : public test::World {
 protected:
    Ref<FileClass> Record(int major, int minor = 0) {
        InDesign::GetInstalledApps();
        return InDesign::MakeNewFileClass(Document("file.indd", major, minor));
    }
    static std::string Name(const Ref<FolderItem>& item) { return item ? item->Name() : "nil"; }
};

TEST_F(Matching, TheLastMatchWinsAndTheLastApplicationDecidesTheName) {
    Installed("CS6", "8.0.1");
    EXPECT_EQ(Record(8)->AppName, AppName("CS6"));
    rename((folder_ / "Applications/Adobe InDesign CS6").c_str(), (folder_ / "gone").c_str());
    Installed("renamed", "8.0.1");
    EXPECT_EQ(Record(8)->AppName, AppName("renamed"));
    Installed("CC", "9.2.0");
    const Ref<FileClass> record = Record(8);
    EXPECT_EQ(Name(record->App), AppName("renamed"));
    EXPECT_EQ(record->WillUseApp, record->App);
    EXPECT_EQ(record->AppName, AppName("CS6")) << "composed, since the last one doesn't match";
    Installed("second", "8.1");
    EXPECT_EQ(Name(Record(8)->App), AppName("second"));
    EXPECT_EQ(Name(Record(14)->App), "nil");
    EXPECT_EQ(Record(14)->AppName, AppName("CC 2019"));
}

TEST_F(Matching, SevenAndSevenPointFive) {
    Installed("CS5", "7.0.4");
    EXPECT_EQ(Name(Record(7, 5)->App), "nil");
    EXPECT_EQ(Record(7, 5)->AppName, AppName("CS5.5"));
    EXPECT_EQ(Name(Record(7, 0)->App), AppName("CS5"));
    Installed("CS5.5", "7.5.3");
    EXPECT_EQ(Name(Record(7, 5)->App), AppName("CS5.5"));
    EXPECT_EQ(Name(Record(7, 0)->App), AppName("CS5.5")) << "both match, the later one wins";
}

TEST_F(Matching, VersionTextsAreComparedFieldByField) {
    Installed("CS5.5", "7");
    EXPECT_EQ(Name(Record(7, 5)->App), "nil") << "a version without a second field";
    Installed("Unknown");
    EXPECT_EQ(Name(Record(0)->App), AppName("Unknown")) << "its version is 0.0.0";
    Installed("Padded", "08.0");
    EXPECT_EQ(Name(Record(8)->App), "nil") << "text, not numbers";
}

}  // namespace
}  // namespace dunvey
