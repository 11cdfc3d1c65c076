#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "desktop/scripted_desktop.h"
#include "icons/icon.h"
#include "icons/icon_import.h"
#include "persistence/preferences.h"
#include "platform/bundles/executable_path.h"
#include "platform/pictures/native_image.h"
#include "platform/processes/apple_script.h"
#include "support/hostile_names.h"
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

class CopyScript : public ::testing::Test {
 protected:
    CopyScript() {
        if (chdir(folder_.MakeFolder("work").c_str()) != 0) abort();
    }
    ~CopyScript() override {
        EXPECT_EQ(FolderItem(folder_ / "work").Count(), 0) << "nothing was run";
        EXPECT_EQ(Others(), others_);
        if (chdir("/") != 0) abort();
    }

    std::string Run(const std::vector<std::string>& words) {
        return ExecuteAppleScript(New<FolderItem>(resources_ / "copyFile.scpt"), words);
    }
    /// Copies `source`1 and `source`2 to the bundle's icons; returns the error, "" if none.
    std::string Copy(const std::string& source) {
        return Run({ShellWord(source + "1"), ShellWord(resources_ / kDocument),
                    ShellWord(source + "2"), ShellWord(resources_ / kBook)});
    }
    /// The number of other files in the resource folder.
    static int64_t Others() {
        const Ref<FolderItem> folder = OwnResources();
        return folder->Count() - folder->Child(kDocument)->Exists() -
               folder->Child(kBook)->Exists();
    }

    test::TemporaryFolder folder_;
    test::OwnResources resources_;
    test::StandInPkexec pkexec_{folder_};
    const int64_t others_ = Others();
    const std::string from_ = folder_ / "from";
};

TEST_F(CopyScript, CopiesBothIconsFromHostilePaths) {
    // Twelve names make one path.
    std::string from = "from";
    int folders = 0;
    for (const std::string& name : test::HostileNames()) {
        from += "/" + name;
        if (++folders % 12 != 0) continue;
        from = folder_.MakeFolder(from) + "/" + name;
        for (const char* number : {"1", "2"})
            std::ofstream(from + number) << number << from;
        EXPECT_EQ(Copy(from), "") << from;
        EXPECT_EQ(resources_.Icons(), "1" + from + "2" + from);
        from = "from";
    }
    const auto contents = OwnResources()->Parent()->NativePath();
    EXPECT_EQ(pkexec_.Arguments(),
              "--disable-internal-agent\n" + contents + "/Helpers/write-icons\n");
}

TEST_F(CopyScript, RefusesOtherArgumentsBeforeCallingPkexec) {
    const std::string source = folder_.Write("good", "x");
    const std::vector<std::string> good = {source, ShellWord(resources_ / kDocument), source,
                                           ShellWord(resources_ / kBook)};
    std::vector<std::string> words = {"", "relative", "/two words", "-n", "$0", "'/bin/sh'"};
    for (const char* end : {";touch canary", "$(touch canary)", "`touch canary`", "&", "\n", "\\",
                            "\\\n", "'\n", "'\n\n'", "*", "\x7F", "\t", "/.."}) {
        words.push_back(source + end);
    }
    for (const std::string& word : words) {
        for (size_t place = 0; place < 4; ++place) {
            std::vector<std::string> call = good;
            call[place] = word;
            EXPECT_NE(Run(call), "") << word;
        }
    }
    EXPECT_NE(Run({source, folder_ / "a", source, good[3]}), "") << "not an icon of this bundle";
    EXPECT_NE(Run({source, good[3], source, good[1]}), "") << "the icons are swapped";
    EXPECT_NE(Run({source, good[1], source}), "");
    EXPECT_NE(Run({source, good[1], source, good[3], source}), "");
    EXPECT_EQ(pkexec_.Calls(), 0);
}

TEST_F(CopyScript, RootOpensNoSource) {
    folder_.Write("secret", "of root");
    for (const std::string number : {"1", "2"}) {
        folder_.Write("icon" + number, number);
        ASSERT_EQ(symlink(("icon" + number).c_str(), (from_ + number).c_str()), 0);
    }
    pkexec_.Meanwhile("for i in 1 2; do ln -sf secret '" + from_ + "'$i; done\n");
    EXPECT_EQ(Copy(from_), "");
    EXPECT_EQ(folder_.Read("from1"), "of root") << "the links were swapped";
    EXPECT_EQ(resources_.Icons(), "12");
}

TEST_F(CopyScript, BothOldIconsAreReplacedOrNone) {
    // Larger than a pipe buffer, so the second source is read while pkexec runs.
    folder_.Write("from1", std::string(1 << 20, 'x'));
    resources_.Write(kDocument, "old 1");
    resources_.Write(kBook, "old 2");
    EXPECT_NE(Copy(from_), "") << "one source is missing";
    ASSERT_EQ(mkfifo((folder_ / "from2").c_str(), 0600), 0);
    EXPECT_NE(Copy(from_), "") << "a FIFO would block";
    unlink((folder_ / "from2").c_str());
    EXPECT_EQ(resources_.Icons(), "old 1old 2");

    folder_.Write("from2", "new 2");
    pkexec_.Meanwhile("truncate -s 2 '" + from_ + "2'\n");
    EXPECT_EQ(Copy(from_), "An icon is cut short.") << "it shrank while it was copied";
    EXPECT_EQ(resources_.Icons(), "old 1old 2");
    pkexec_.Meanwhile("mkdir -p \"${2%/Helpers/*}/Resources/ID_Book_Icon.icns/x\"\n");
    unlink((resources_ / kBook).c_str());
    EXPECT_EQ(Copy(from_), "A folder: ID_Book_Icon.icns");
    EXPECT_EQ(resources_.Icons(), "old 1");
    rmdir((resources_ / "ID_Book_Icon.icns/x").c_str());
    rmdir((resources_ / kBook).c_str());

    pkexec_.Meanwhile("");
    folder_.Write("from1", "new 1");
    folder_.Write("from2", "new 2");
    folder_.Write("outside", "untouched");
    ASSERT_EQ(symlink((folder_ / "outside").c_str(), (resources_ / kBook).c_str()), 0);
    EXPECT_EQ(Copy(from_), "");
    EXPECT_EQ(resources_.Icons(), "new 1new 2") << "a link is replaced, not followed";
    EXPECT_EQ(folder_.Read("outside"), "untouched");
}

TEST_F(CopyScript, GivesAReasonEvenIfPkexecGivesNone) {
    folder_.Write("from1", std::string(1 << 20, 'x'));
    folder_.Write("from2", "x");
    for (const std::string reason : {"Not authorized.", ""}) {
        pkexec_.Refuse(reason);
        EXPECT_EQ(Copy(from_), reason.empty() ? "pkexec ended with 126." : reason);
    }
    unlink((folder_ / "bin/pkexec").c_str());
    setenv("PATH", (folder_ / "bin").c_str(), 1);
    EXPECT_NE(Copy(from_).find("no pkexec"), std::string::npos);
    EXPECT_EQ(resources_.Icons(), "");
}

}  // namespace
}  // namespace dunvey
