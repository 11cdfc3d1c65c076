#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/bundles/executable_path.h"
#include "platform/processes/apple_script.h"
#include "support/hostile_names.h"
#include "support/own_resources.h"
#include "support/stand_in_pkexec.h"

namespace dunvey {
namespace {

constexpr const char* kDocument = test::OwnResources::kDocument;
constexpr const char* kBook = test::OwnResources::kBook;

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
