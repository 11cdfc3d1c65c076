#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/files/folder_listing.h"
#include "platform/processes/apple_script.h"
#include "support/hostile_names.h"
#include "support/own_resources.h"
#include "support/stand_in_pkexec.h"

namespace dunvey {
namespace {

class Script : public ::testing::Test {
 protected:
    Script() {
        folder_.MakeFolder("work");
        if (chdir((folder_ / "work").c_str()) != 0)
            throw std::runtime_error("no folder to work in");
    }
    ~Script() override {
        if (chdir("/") != 0) abort();
    }

    /// Runs a script with this text.
    std::string Result(const std::string& text, const std::vector<std::string>& arguments = {}) {
        return ExecuteAppleScript(New<FolderItem>(folder_.Write("it's a script", text)), arguments);
    }

    test::TemporaryFolder folder_;
};

TEST_F(Script, ItsResultIsWhatItPrintsAndSilenceOnlySuccess) {
    EXPECT_EQ(Result(""), "");
    EXPECT_EQ(Result("echo; echo two; echo lines; echo"), "\ntwo\nlines");
    EXPECT_EQ(Result("printf 'no line feed'"), "no line feed");
    EXPECT_EQ(Result("echo why; exit 3"), "why");
    EXPECT_EQ(Result("exit 3"), "The script ended with 3.");
    EXPECT_EQ(Result("kill -9 $$"), "The script ended with 137.");
    EXPECT_NE(ExecuteAppleScript(New<FolderItem>(folder_ / "missing"), {}), "");
    std::string printed;
    std::vector<std::string> names = test::HostileNames();
    names.push_back("");
    for (const std::string& name : names)
        printed += "[" + name + "]";
    EXPECT_EQ(Result("printf '[%s]' \"$@\"", names), printed);
}

class CopyScript : public Script {
 protected:
    static std::string Run(const std::vector<std::string>& words) {
        return ExecuteAppleScript(Application::ExecutableFile()
                                      ->Parent()
                                      ->Parent()
                                      ->Child("Resources")
                                      ->Child("copyFile.scpt"),
                                  words);
    }
    std::string Copy(const std::string& source, const std::string& destination) {
        return Run({ShellWord(source + "1"), ShellWord(destination + "1"), ShellWord(source + "2"),
                    ShellWord(destination + "2")});
    }
    /// The number of entries, those with a dot ahead too.
    int64_t Count(const std::string& name) { return FolderItem(folder_ / name).Count(); }

    test::StandInPkexec pkexec_{folder_};
};

TEST_F(CopyScript, CopiesExactlyTheTwoFilesWhateverThePathsHold) {
    const std::vector<std::string> names = test::HostileNames();
    constexpr size_t kTogether = 12;
    for (size_t first = 0; first < names.size(); first += kTogether) {
        // Several hostile folders inside each other, and hostile names in them.
        std::string from = "from";
        std::string to = "to";
        for (size_t place = first; place < std::min(first + kTogether, names.size()); ++place) {
            from += "/" + names[place];
            to += "/" + names[place];
        }
        from = folder_.MakeFolder(from) + "/" + names[first].substr(0, 9);
        to = folder_.MakeFolder(to) + "/" + names[first].substr(0, 9);
        for (const char* number : {"1", "2"})
            std::ofstream(from + number) << number << " of " << from;
        EXPECT_EQ(Copy(from, to), "") << from;
        for (const char* number : {"1", "2"}) {
            std::ifstream copy(to + number);
            std::ostringstream bytes;
            bytes << copy.rdbuf();
            EXPECT_EQ(bytes.str(), number + (" of " + from));
        }
        EXPECT_EQ(FolderItem(to).Parent()->Count(), 2) << "nothing else is left there";
    }
    EXPECT_EQ(Count("work"), 0) << "nothing was run";
}

TEST_F(CopyScript, WhatIsNoAbsolutePathAsAShellWordIsRefused) {
    const std::string good = folder_.Write("good", "x");
    std::vector<std::string> words = {"", "relative", "/two words", "-n", "$0"};
    words.push_back("'" + good + "'");
    words.push_back("\"" + good + "\"");
    for (const char* end :
         {";touch canary", "$(touch canary)", "`touch canary`", "&", "|touch canary", "\n", "\\",
          "\\\n", "'\n", "'\n\n'", "*", "?", "~", "\x7F", "\t"}) {
        words.push_back(good + end);
    }
    for (const std::string& word : words) {
        for (size_t place = 0; place < 4; ++place) {
            std::vector<std::string> call = {good, folder_ / "a", good, folder_ / "b"};
            call[place] = word;
            EXPECT_NE(Run(call), "") << word;
        }
    }
    EXPECT_NE(Run({good, folder_ / "a", good}), "") << "a word too few";
    EXPECT_NE(Run({good, folder_ / "a", good, folder_ / "b", good}), "") << "a word too many";
    EXPECT_EQ(pkexec_.Calls(), 0) << "refused before anyone is asked";
    EXPECT_EQ(Count("work"), 0) << "nothing was run";
}

TEST_F(CopyScript, OldIconsAreReplacedWholeOrNotAtAll) {
    const std::string from = folder_.Write("from1", "new 1").substr(0, folder_.Path().size() + 5);
    folder_.MakeFolder("to");
    const auto fill = [&] {
        folder_.Write("to/1", "old 1");
        folder_.Write("to/2", "old 2");
    };
    fill();
    EXPECT_NE(Copy(from, folder_ / "to/"), "") << "one source is missing";
    folder_.MakeFolder("from2");
    EXPECT_NE(Copy(from, folder_ / "to/"), "") << "it is a folder";
    rmdir((folder_ / "from2").c_str());
    ASSERT_EQ(mkfifo((folder_ / "from2").c_str(), 0600), 0);
    EXPECT_NE(Copy(from, folder_ / "to/"), "") << "it would wait for ever";
    unlink((folder_ / "from2").c_str());
    EXPECT_EQ(folder_.Read("to/1") + folder_.Read("to/2"), "old 1old 2");
    EXPECT_EQ(Count("to"), 2);

    folder_.Write("from2", "new 2");
    chmod((folder_ / "from2").c_str(), 0600);
    folder_.Write("outside", "not to be touched");
    for (const char* place : {"to/1", "to/2"}) {
        unlink((folder_ / place).c_str());
        ASSERT_EQ(symlink("../outside", (folder_ / place).c_str()), 0);
    }
    EXPECT_EQ(Copy(from, folder_ / "to/"), "");
    EXPECT_EQ(folder_.Read("to/1") + folder_.Read("to/2"), "new 1new 2");
    EXPECT_EQ(folder_.Read("outside"), "not to be touched") << "a link in the place is replaced";
    struct stat status;
    ASSERT_EQ(stat((folder_ / "to/2").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777u, 0644u) << "everyone may read an icon";

    if (geteuid() != 0) {
        unlink((folder_ / "from2").c_str());
        ASSERT_EQ(symlink("/etc/shadow", (folder_ / "from2").c_str()), 0);
        const int calls = pkexec_.Calls();
        EXPECT_NE(Copy(from, folder_ / "to/"), "");
        EXPECT_EQ(pkexec_.Calls(), calls) << "no copy of what only the administrator may read";
    }
    unlink((folder_ / "to/2").c_str());
    folder_.MakeFolder("to/2");
    EXPECT_NE(Copy(from, folder_ / "to/"), "");
    EXPECT_EQ(Count("to/2"), 0) << "not into a folder in the icon's place";
    EXPECT_EQ(Count("to"), 2);
    EXPECT_NE(Copy(from, folder_ / "missing/"), "");
    const std::string source = from + "1";
    EXPECT_NE(Run({source, folder_ / "to/1", source, folder_ / "missing/2"}), "");
    EXPECT_EQ(Count("to"), 2) << "what was begun is taken away";
    EXPECT_EQ(Run({source, folder_ / "to/1'\n'", source, folder_ / "to/3"}), "");
    EXPECT_EQ(folder_.Read("to/1\n"), "new 1");
}

TEST_F(CopyScript, ARefusalSaysSomethingEvenIfPkexecDoesnt) {
    const std::string from = folder_.Write("from1", "x").substr(0, folder_.Path().size() + 5);
    folder_.Write("from2", "x");
    pkexec_.Refuse("Not authorized.");
    EXPECT_EQ(Copy(from, folder_ / "to"), "Not authorized.");
    pkexec_.Refuse("");
    EXPECT_EQ(Copy(from, folder_ / "to"), "pkexec ended with 126.");
    unlink((folder_ / "bin/pkexec").c_str());
    setenv("PATH", (folder_ / "bin").c_str(), 1);
    EXPECT_NE(Copy(from, folder_ / "to").find("no pkexec"), std::string::npos);
    EXPECT_FALSE(FolderItem(folder_ / "to1").Exists());
}

}  // namespace
}  // namespace dunvey
