#include <algorithm>

#include "road/real_world.h"
#include "support/hostile_names.h"

namespace dunvey {
namespace {

using test::Words;

class RoadTest : public test::RealWorld {
 protected:
    std::string Errors() const { return folder_.Read("stderr"); }
    /// The number of lines on standard error.
    int64_t ErrorLines() const {
        const std::string errors = Errors();
        return std::count(errors.begin(), errors.end(), '\n');
    }
};

TEST_F(RoadTest, ReadableDocumentsAreOpenedAndAllElseIsRefusedWithALine) {
    Install("CS6", "8.0.1");
    Document("a b.indd", 8);
    Document("-dash.indd", 8);
    ASSERT_EQ(Script("mkfifo fifo.indd; ln -s nowhere dangling.indd; mkdir folder.indd gone"), 0);
    std::string deep;
    while (folder_.Path().size() + deep.size() < 3800)
        deep += std::string(200, 'd') + "/";
    folder_.MakeFolder(deep.substr(0, deep.size() - 1));
    Document(deep + "deep.indd", 8);
    const Words words = {"file://" + folder_.Path() + "/a%20b.indd",
                         "-dash.indd",
                         deep + "deep.indd",
                         "",
                         "--help",
                         "-psn_0_1",
                         "file://elsewhere/a.indd",
                         "fifo.indd",
                         "dangling.indd",
                         "folder.indd",
                         "/dev/zero",
                         std::string(5000, 'p') + ".indd"};
    EXPECT_EQ(Script("'" DUNVEY_PROGRAM "' \"$@\"", words), 0);
    EXPECT_EQ(ErrorLines(), 9) << Errors();
    EXPECT_EQ(Starts(1), Words{"CS6: a b.indd|-dash.indd|deep.indd|"});
    EXPECT_EQ(Dunvey({"none.indd", folder_.Write("note.txt", "")}), 0);
    // Without a display the user can't be asked about documents without a version.
    EXPECT_EQ(Dunvey({folder_.Write("empty.indd", ""), folder_.Write("short.indd", "short")}), 1);
    EXPECT_EQ(ErrorLines(), 2) << Errors();
    // Relative to a folder that is gone an argument names nothing.
    EXPECT_EQ(Script("cd gone; rmdir ../gone; '" DUNVEY_PROGRAM "' \"$@\"",
                     {"a b.indd", folder_ / "a b.indd"}),
              0);
    EXPECT_EQ(Starts(2), (Words{"CS6: a b.indd|-dash.indd|deep.indd|", "CS6: a b.indd|"}));
}

TEST_F(RoadTest, HostileNamesArriveByteForByteAndNothingElseRuns) {
    const std::string suffixes[] = {"$(touch canary) it's", "\xFF\\ \"a\"&;`b`"};
    Install(suffixes[0], "8.0.1");
    Install(suffixes[1], "9.0");
    folder_.MakeFolder("documents");
    Words words;
    for (const std::string& name : test::HostileNames())
        words.push_back(Document("documents/" + name + ".indd", 8));
    words.push_back(Document("b.indd", 9));
    EXPECT_EQ(Script("cd documents; '" DUNVEY_PROGRAM "' \"$@\"", words), 0);
    const Words starts = Starts(2);
    EXPECT_EQ(std::ranges::count(starts, suffixes[1] + ": b.indd|"), 1);
    words.pop_back();
    EXPECT_EQ(std::ranges::count(Records(), words, &Record::arguments), 1);
    EXPECT_EQ(std::ranges::count_if(
                  starts, [&](const auto& start) { return start.starts_with(suffixes[0] + ":"); }),
              1);
    EXPECT_NE(access((folder_ / "documents/canary").c_str(), F_OK), 0);
}

TEST_F(RoadTest, AProgramThatCannotStartCostsItsOwnDocumentsOnly) {
    InstallList("CS6", "8.0.1");
    Install("CC", "9.2.0");
    const Words words = {Document("a.indd", 8), Document("b.indd", 9)};
    EXPECT_EQ(Dunvey(words), 0);
    EXPECT_NE(Errors().find("Adobe InDesign CS6"), std::string::npos);
    // Also if the message can't be written, or there are no standard descriptors at all, and the
    // current folder is gone.
    size_t runs = 0;
    for (const char* redirection : {"2>&1 >/dev/null | true", "<&- >&- 2>&-"}) {
        AwaitRecords(++runs);
        EndAll();
        EXPECT_EQ(
            Script(std::string("mkdir gone; cd gone; rmdir ../gone; '" DUNVEY_PROGRAM "' \"$@\" ") +
                       redirection,
                   words),
            0);
    }
    EXPECT_EQ(Starts(3), Words(3, "CC: b.indd|"));
}

TEST_F(RoadTest, ItsOwnHelpersAreUsedWhereverTheBundleIs) {
    Install("CS6", "8.0.1");
    ASSERT_EQ(
        Script("mkdir bin \"a:b 'c' \\$d\"; cp -R \"${1%/MacOS/*}\" a*; ln -s a*/*/*/Dunvey dunvey;"
               "printf '#!/bin/sh\\ntouch ~/canary\\n' | tee bin/open >bin/ps; chmod +x bin/*",
               {program_}),
        0);
    program_ = folder_ / "dunvey";
    EXPECT_EQ(Dunvey({Document("a.indd", 8)}, {"PATH=" + folder_ / "bin:/usr/bin:/bin"}), 0);
    EXPECT_EQ(Starts(1), Words{"CS6: a.indd|"});
    EXPECT_NE(access((folder_ / "canary").c_str(), F_OK), 0);
}

TEST_F(RoadTest, WithoutDocumentsAndWithoutADisplayItSaysSo) {
    EXPECT_EQ(Dunvey({}), 1);
    EXPECT_NE(Errors().find("No display can be reached"), std::string::npos);
    EXPECT_EQ(Dunvey({}, {"QT_QPA_PLATFORM=wayland;xcb"}), 1) << "as sessions set it";
}

}  // namespace
}  // namespace dunvey
