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

}  // namespace
}  // namespace dunvey
