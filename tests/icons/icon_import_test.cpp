#include "icons/icon_import.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "persistence/preferences.h"
#include "support/own_resources.h"
#include "support/stand_in_pkexec.h"
#include "support/world.h"
#include "version/installed_apps.h"

namespace dunvey {
namespace {

constexpr const char* kDocument = test::OwnResources::kDocument;
constexpr const char* kBook = test::OwnResources::kBook;
constexpr const char* kNotice = "Import file icons from InDesign.app installed.";
const std::string kBoth = "ID_Document_Icon.icns of 9.2ID_Book_Icon.icns of 9.2";

class IconImport : public test::World {
 protected:
    IconImport() { Reset(); }
    ~IconImport() override { Reset(); }

    static void Reset() {
        InDesign::InstalledApps.clear();
        Preferences::pIconVersion = "before";
    }

    /// Installs the newest version, with these icons; returns its resource folder.
    std::string Newest(const std::string& suffix, const std::string& version,
                       const std::vector<std::string>& icons) {
        InDesign::InstalledApps.push_back(Installed(suffix, version));
        const std::string resources = AppPath(suffix) + "/Contents/Resources/";
        mkdir(resources.c_str(), 0777);
        for (const std::string& icon : icons)
            std::ofstream(resources + icon) << icon + " of " + version;
        return resources;
    }

    test::OwnResources resources_;
    test::StandInPkexec pkexec_{folder_};
};

TEST_F(IconImport, AfterANoticeTheIconsOfTheNewestVersionReplaceTheOldOnes) {
    Newest("CS6", "8.0", {kDocument, kBook});
    Newest("CC", "9.2", {kDocument, kBook});
    resources_.Write(kDocument, std::string(9999, 'o'));
    user_->ExpectMessage(kNotice, {}, [&](const MessageDialog&) {
        EXPECT_EQ(resources_.Icons().size(), 9999U) << "nothing has changed yet";
    });
    InDesign::GetIconFile();
    EXPECT_EQ(resources_.Icons(), kBoth);
    EXPECT_EQ(Preferences::pIconVersion, "9.2");
    EXPECT_EQ(pkexec_.Calls(), 0);
}

TEST_F(IconImport, NothingHappensWithoutBothIconsOrWithoutADisplay) {
    InDesign::GetIconFile();  // nothing installed
    resources_.Write(kDocument, "old");
    Newest("CS6", "8.0", {kDocument, kBook});
    Newest("CC", "9.2", {kDocument});
    InDesign::GetIconFile();
    EXPECT_EQ(user_->timesInFront(), 0);

    Newest("CC 2015", "11.0", {kDocument, kBook});
    Desktop::Install(nullptr);
    Desktop::SetLoader(
        []() -> std::unique_ptr<Desktop> { throw DesktopUnavailableException("no screen"); });
    InDesign::GetIconFile();
    Desktop::SetLoader(nullptr);
    InstallDesktop();
    EXPECT_EQ(resources_.Icons(), "old");
    EXPECT_EQ(Preferences::pIconVersion, "before");
}

TEST_F(IconImport, TheScriptCopiesIfTheDirectCopyFails) {
    Newest("CC", "9.2", {kDocument, kBook});
    int calls = 0;
    for (const std::string blocked : {kDocument, kBook}) {
        Preferences::pIconVersion = "before";
        unlink((resources_ / blocked).c_str());
        // A folder in the place of the icon, which only pkexec removes. (Permissions would not
        // stop a test that runs as root.)
        mkdir((resources_ / blocked).c_str(), 0777);
        resources_.Write(blocked + "/" + blocked, "in the way");
        pkexec_.Meanwhile("rm -rf '" + (resources_ / blocked) + "'\n");
        user_->ExpectMessage(kNotice);
        InDesign::GetIconFile();
        EXPECT_EQ(resources_.Icons(), kBoth);
        EXPECT_EQ(Preferences::pIconVersion, "9.2");
        EXPECT_EQ(pkexec_.Calls(), ++calls);
    }
}

TEST_F(IconImport, AFolderIsRefusedWithAnAlertAndALinkIsFollowed) {
    const std::string book = Newest("CC", "9.2", {kDocument}) + kBook;
    mkdir(book.c_str(), 0777);
    user_->ExpectMessage(kNotice);
    user_->ExpectMessage("Unable to import the icon.");
    InDesign::GetIconFile();
    EXPECT_EQ(Preferences::pIconVersion, "before");
    EXPECT_EQ(resources_.Icons(), "ID_Document_Icon.icns of 9.2") << "the first copy succeeded";
    EXPECT_EQ(access((resources_ / kBook).c_str(), F_OK), -1) << "no partial copy";
    rmdir(book.c_str());
    ASSERT_EQ(symlink(kDocument, book.c_str()), 0);
    user_->ExpectMessage(kNotice);
    InDesign::GetIconFile();
    EXPECT_EQ(resources_.Icons(), "ID_Document_Icon.icns of 9.2ID_Document_Icon.icns of 9.2");
    EXPECT_EQ(Preferences::pIconVersion, "9.2");
}

}  // namespace
}  // namespace dunvey
