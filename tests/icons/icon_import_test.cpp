#include "icons/icon_import.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "desktop/scripted_desktop.h"
#include "icons/icon.h"
#include "persistence/preferences.h"
#include "platform/pictures/native_image.h"
#include "support/own_resources.h"
#include "support/stand_in_pkexec.h"
#include "support/temporary_folder.h"
#include "support/world.h"
#include "version/installed_apps.h"

namespace dunvey {
namespace {

constexpr const char* kDocument = test::OwnResources::kDocument;
constexpr const char* kBook = test::OwnResources::kBook;
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

    void ExpectNotice() { user_->ExpectMessage("Import file icons from InDesign.app installed."); }

    test::OwnResources resources_;
    test::StandInPkexec pkexec_{folder_};
};

TEST_F(IconImport, AfterANoticeTheIconsOfTheNewestVersionReplaceTheOldOnes) {
    Newest("CS6", "8.0", {kDocument, kBook});
    Newest("CC", "9.2", {kDocument, kBook});
    const char* const kNotices[][3] = {
        {"en_US.UTF-8", "Import file icons from InDesign.app installed.",
         "This process is executed as necessary."},
        {"ja_JP.UTF-8",
         "インストールされている InDesign.app から\rファイルアイコンを取り込みます。",
         "この処理は必要に応じて実行されます。"}};
    for (const auto& [locale, message, explanation] : kNotices) {
        setenv("LC_ALL", locale, 1);
        resources_.Write(kDocument, std::string(9999, 'o'));
        unlink((resources_ / kBook).c_str());
        user_->ExpectMessage(message, {}, [&, text = explanation](const MessageDialog& dialog) {
            EXPECT_EQ(dialog.Explanation, text);
            EXPECT_EQ(dialog.Icon, MessageDialog::kNote);
            EXPECT_EQ(dialog.ActionButton->Caption, "OK");
            EXPECT_FALSE(dialog.CancelButton->Visible || dialog.AlternateActionButton->Visible);
            EXPECT_EQ(resources_.Icons().size(), 9999U) << "nothing has changed yet";
        });
        InDesign::GetIconFile();
        EXPECT_EQ(resources_.Icons(), kBoth);
        EXPECT_EQ(Preferences::pIconVersion, "9.2");
    }
    EXPECT_EQ(user_->timesInFront(), 2);
    EXPECT_EQ(pkexec_.Calls(), 0);
}

TEST_F(IconImport, NothingHappensWithoutBothIconsOrWithoutADisplay) {
    InDesign::GetIconFile();  // nothing installed
    resources_.Write(kDocument, "old");
    Newest("CS6", "8.0", {kDocument, kBook});
    Newest("CC", "9.2", {kDocument});
    InDesign::GetIconFile();
    Newest("CC 2014", "10.0", {kBook});
    InDesign::GetIconFile();
    InDesign::InstalledApps.push_back(nullptr);
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
        ExpectNotice();
        InDesign::GetIconFile();
        EXPECT_EQ(resources_.Icons(), kBoth);
        EXPECT_EQ(Preferences::pIconVersion, "9.2");
        EXPECT_EQ(pkexec_.Calls(), ++calls);
    }
}

TEST_F(IconImport, AFolderIsRefusedWithAnAlertAndALinkIsFollowed) {
    const std::string book = Newest("CC", "9.2", {kDocument}) + kBook;
    mkdir(book.c_str(), 0777);
    ExpectNotice();
    user_->ExpectMessage("Unable to import the icon.", {}, [](const MessageDialog& dialog) {
        EXPECT_EQ(dialog.Explanation,
                  "Please put Dunvey.app in the place where write permission is given.");
        EXPECT_EQ(dialog.Icon, MessageDialog::kCaution);
        EXPECT_EQ(dialog.ActionButton->Caption, "OK");
        EXPECT_FALSE(dialog.CancelButton->Visible || dialog.AlternateActionButton->Visible);
    });
    InDesign::GetIconFile();
    EXPECT_EQ(user_->timesInFront(), 2) << "for each of both";
    EXPECT_EQ(Preferences::pIconVersion, "before");
    EXPECT_EQ(resources_.Icons(), "ID_Document_Icon.icns of 9.2") << "the first copy succeeded";
    EXPECT_EQ(access((resources_ / kBook).c_str(), F_OK), -1) << "no partial copy";
    rmdir(book.c_str());
    ASSERT_EQ(symlink(kDocument, book.c_str()), 0);
    ExpectNotice();
    InDesign::GetIconFile();
    EXPECT_EQ(resources_.Icons(), "ID_Document_Icon.icns of 9.2ID_Document_Icon.icns of 9.2");
    EXPECT_EQ(Preferences::pIconVersion, "9.2");
}

/// Expects the image's bitmaps in two resolutions.
void ExpectTwoResolutions(const Ref<Picture>& picture, const Ref<NSImage>& image, int64_t size) {
    EXPECT_EQ(picture->Width(), size);
    EXPECT_EQ(picture->Height(), size);
    for (const auto& [scale, side] :
         {std::pair{1.0, size}, {1.25, size * 2}, {2.0, size * 2}, {3.0, size * 2}}) {
        const Bitmap& bitmap = picture->PixelsFor(scale);
        EXPECT_EQ(bitmap.Width, side);
        EXPECT_EQ(bitmap.Height, side);
        EXPECT_EQ(bitmap.Pixels, image->CGImageForProposedRect({0, 0, side, side}).Pixels);
    }
}

TEST(Icon, HasTwoResolutionsAndIsNilForAMissingFile) {
    Desktop::Install(std::make_unique<headless::ScriptedDesktop>());
    Desktop& desktop = Desktop::Current();
    const test::TemporaryFolder folder;
    const std::string path = folder.Write("a.indd", "x");
    const auto item = New<FolderItem>(path);
    for (const int64_t size : {1, 16, 128})
        ExpectTwoResolutions(Icon::Get(item, size), desktop.IconForFile(path), size);
    ExpectTwoResolutions(Icon::GetForFileType("indd", 32), desktop.IconForFileType("indd"), 32);
    ExpectTwoResolutions(Icon::GetAlertCaution(16), desktop.IconForFileType("'caut'"), 16);
    EXPECT_FALSE(Icon::Get(nullptr, 16));
    unlink(path.c_str());
    EXPECT_FALSE(Icon::Get(item, 16));
    Desktop::Install(nullptr);
}

}  // namespace
}  // namespace dunvey
