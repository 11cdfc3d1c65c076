#include "icons/icon_import.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "menus/general.h"
#include "persistence/preferences.h"
#include "support/own_resources.h"
#include "support/stand_in_pkexec.h"
#include "support/world.h"
#include "version/installed_apps.h"

namespace dunvey {
namespace {

const char* const kDocument = "ID_Document_Icon.icns";
const char* const kBook = "ID_Book_Icon.icns";

class IconImport : public test::World {
 protected:
    IconImport() { Reset(); }
    ~IconImport() override { Reset(); }

    static void Reset() {
        InDesign::InstalledApps.clear();
        Preferences::pIconVersion = "before";
    }

    /// An installed version as the newest, with these icons in its bundle.
    Ref<FolderItem> Newest(const std::string& suffix, const std::string& version,
                           const std::vector<std::string>& icons) {
        const Ref<FolderItem> bundle = Installed(suffix, version);
        const std::string resources =
            "Applications/Adobe InDesign " + suffix + "/" + AppName(suffix) + "/Contents/Resources";
        folder_.MakeFolder(resources);
        for (const std::string& icon : icons)
            folder_.Write(resources + "/" + icon, icon + " of " + version);
        InDesign::InstalledApps.push_back(bundle);
        return bundle;
    }

    void ExpectNotice() {
        user_->ExpectMessage(
            "Import file icons from InDesign.app installed.", {},
            [this](const MessageDialog& dialog) {
                EXPECT_EQ(dialog.Explanation, "This process is executed as necessary.");
                EXPECT_EQ(dialog.Icon, MessageDialog::kNote);
                EXPECT_EQ(dialog.ActionButton->Caption, "OK");
                EXPECT_FALSE(dialog.CancelButton->Visible);
                EXPECT_FALSE(dialog.AlternateActionButton->Visible);
                EXPECT_EQ(user_->timesInFront(), 1) << "it came to the front first";
                atNotice_ = {Stored(kDocument), Stored(kBook)};
            });
    }
    void ExpectFailureAlert() {
        user_->ExpectMessage("Unable to import the icon.", {}, [](const MessageDialog& dialog) {
            EXPECT_EQ(dialog.Explanation,
                      "Please put Dunvey.app in the place where write permission is given.");
            EXPECT_EQ(dialog.Icon, MessageDialog::kCaution);
        });
    }

    /// Puts folders in the places of the icons, which only root can remove here. (A test that is
    /// run by root isn't stopped by permissions.)
    void Block(const std::vector<std::string>& icons) {
        std::string removal;
        for (const std::string& icon : icons) {
            mkdir((resources_ / icon).c_str(), 0777);
            resources_.Write(icon + "/" + icon, "in the way");
            removal += "rm -rf '" + (resources_ / icon) + "'\n";
        }
        pkexec_.Meanwhile(removal);
    }

    /// The bytes of an icon in the program's own resource folder.
    std::string Stored(const std::string& icon) const {
        std::ifstream file(resources_ / icon, std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }

    test::OwnResources resources_;
    test::StandInPkexec pkexec_{folder_};
    std::vector<std::string> atNotice_;
};

TEST_F(IconImport, TheNewestVersionsIconsReplaceTheOldOnes) {
    Newest("CS6", "8.0", {kDocument, kBook});
    Newest("CC", "9.2", {kDocument, kBook});
    resources_.Write(kDocument, std::string(9999, 'o'));
    ExpectNotice();
    InDesign::GetIconFile();
    EXPECT_EQ(Stored(kDocument), "ID_Document_Icon.icns of 9.2");
    EXPECT_EQ(Stored(kBook), "ID_Book_Icon.icns of 9.2");
    EXPECT_EQ(Preferences::pIconVersion, "9.2");
    EXPECT_EQ(atNotice_, (std::vector<std::string>{std::string(9999, 'o'), ""}))
        << "nothing changes ahead of the notice";
    EXPECT_EQ(pkexec_.Calls(), 0);
}

TEST_F(IconImport, WithoutBothIconsNothingHappens) {
    InDesign::GetIconFile();  // nothing installed
    const std::vector<std::string> cases[] = {{}, {kDocument}, {kBook}};
    for (const auto& icons : cases) {
        folder_.MakeFolder("Applications");
        Newest("CS6", "8.0", {kDocument, kBook});
        Newest("CC " + std::to_string(icons.size()) + (icons.empty() ? "" : icons[0]), "9.2",
               icons);
        resources_.Write(kDocument, "old");
        InDesign::GetIconFile();
        EXPECT_EQ(Stored(kDocument), "old");
        EXPECT_EQ(Preferences::pIconVersion, "before");
    }
    InDesign::InstalledApps.push_back(nullptr);
    InDesign::GetIconFile();
    EXPECT_EQ(user_->timesInFront(), 0);
}

TEST_F(IconImport, TheScriptCopiesWhatTheDirectWayCant) {
    const std::vector<std::vector<std::string>> cases = {{kDocument}, {kBook}, {kDocument, kBook}};
    int calls = 0;
    for (const auto& blocked : cases) {
        Preferences::pIconVersion = "before";
        Block(blocked);
        InDesign::InstalledApps.clear();
        Newest("CC", "9.2", {kDocument, kBook});
        user_->ExpectMessage("Import file icons from InDesign.app installed.");
        InDesign::GetIconFile();
        EXPECT_EQ(Stored(kDocument), "ID_Document_Icon.icns of 9.2");
        EXPECT_EQ(Stored(kBook), "ID_Book_Icon.icns of 9.2");
        EXPECT_EQ(Preferences::pIconVersion, "9.2");
        EXPECT_EQ(pkexec_.Calls(), ++calls);
        unlink((resources_ / kDocument).c_str());
        unlink((resources_ / kBook).c_str());
    }
}

TEST_F(IconImport, WhereBothWaysFailTheUserIsToldAndTheVersionStays) {
    Newest("CC", "9.2", {kDocument, kBook});
    resources_.Write(kDocument, "old");
    Block({kBook});
    pkexec_.Refuse("");
    ExpectNotice();
    ExpectFailureAlert();
    InDesign::GetIconFile();
    EXPECT_EQ(Preferences::pIconVersion, "before");
    EXPECT_EQ(Stored(kDocument), "ID_Document_Icon.icns of 9.2") << "that copy had worked";
    EXPECT_EQ(pkexec_.Calls(), 1);
}

TEST_F(IconImport, ASourceThatIsNoFileIsNoIcon) {
    const std::string resources =
        Newest("CC", "9.2", {kDocument})->NativePath() + "/Contents/Resources/";
    mkdir((resources + kBook).c_str(), 0777);
    for (const bool isFifo : {false, true}) {
        if (isFifo) {
            rmdir((resources + kBook).c_str());
            ASSERT_EQ(mkfifo((resources + kBook).c_str(), 0600), 0);
        }
        resources_.Write(kDocument, "old");
        user_->ExpectMessage("Import file icons from InDesign.app installed.");
        ExpectFailureAlert();
        InDesign::GetIconFile();
        EXPECT_EQ(Preferences::pIconVersion, "before");
        EXPECT_EQ(access((resources_ / kBook).c_str(), F_OK), -1) << "nothing half-made";
    }
    unlink((resources + kBook).c_str());
    ASSERT_EQ(symlink(kDocument, (resources + kBook).c_str()), 0);
    user_->ExpectMessage("Import file icons from InDesign.app installed.");
    InDesign::GetIconFile();
    EXPECT_EQ(Stored(kBook), "ID_Document_Icon.icns of 9.2") << "what the link leads to";
    EXPECT_EQ(Preferences::pIconVersion, "9.2");
}

TEST_F(IconImport, TheJapaneseNoticeHasTwoLines) {
    setenv("LC_ALL", "ja_JP.UTF-8", 1);
    user_->ExpectMessage(
        "インストールされている InDesign.app から\rファイルアイコンを取り込みます。", {},
        [](const MessageDialog& dialog) {
            EXPECT_EQ(dialog.Explanation, "この処理は必要に応じて実行されます。");
        });
    InDesign::ShowAlertWillIconCopy();
}

TEST_F(IconImport, WithoutAScreenNothingChanges) {
    Newest("CC", "9.2", {kDocument, kBook});
    resources_.Write(kDocument, "old");
    Desktop::Install(nullptr);
    Desktop::SetLoader(
        []() -> std::unique_ptr<Desktop> { throw DesktopUnavailableException("no screen"); });
    InDesign::GetIconFile();
    Desktop::SetLoader(nullptr);
    InstallDesktop();
    EXPECT_EQ(Stored(kDocument), "old");
    EXPECT_EQ(Preferences::pIconVersion, "before");
}

class CopyFileOrFolder : public ::testing::Test {
 protected:
    bool Copy(const std::string& source, const std::string& destination) {
        return General::CopyFileOrFolder(New<FolderItem>(folder_ / source),
                                         New<FolderItem>(folder_ / destination));
    }
    test::TemporaryFolder folder_;
};

TEST_F(CopyFileOrFolder, AFolderComesToStandInTheDestinationWithAllThatItHolds) {
    folder_.MakeFolder("from/sub/empty");
    folder_.MakeFolder("to");
    folder_.Write("from/a", "A");
    folder_.Write("from/sub/b", "B");
    folder_.Write("from/z", "Z");
    EXPECT_TRUE(Copy("from", "to"));
    EXPECT_EQ(folder_.Read("to/from/a") + folder_.Read("to/from/sub/b") + folder_.Read("to/from/z"),
              "ABZ");
    EXPECT_TRUE(FolderItem(folder_ / "to/from/sub/empty").Directory());
    EXPECT_FALSE(Copy("from", "to")) << "the first file is there already";
    EXPECT_FALSE(Copy("from", "missing"));
    EXPECT_FALSE(Copy("from", "from/a")) << "a file as the destination of a folder";
    folder_.Write("to/sub", "a file in the folder's place");
    EXPECT_FALSE(Copy("from/sub", "to"));
}

TEST_F(CopyFileOrFolder, AFailureEndsTheCopyAndLeavesWhatWasCopied) {
    folder_.MakeFolder("from");
    folder_.MakeFolder("to");
    folder_.Write("from/a", "A");
    ASSERT_EQ(mkfifo((folder_ / "from/m").c_str(), 0600), 0);
    folder_.Write("from/z", "Z");
    EXPECT_FALSE(Copy("from", "to"));
    EXPECT_EQ(folder_.Read("to/from/a"), "A");
    EXPECT_FALSE(FolderItem(folder_ / "to/from/z").Exists());
}

}  // namespace
}  // namespace dunvey
