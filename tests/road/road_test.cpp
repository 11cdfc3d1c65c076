#include "road/real_world.h"
#include "support/hostile_names.h"

namespace dunvey {
namespace {

using Lines = std::vector<std::string>;

class RoadTest : public test::RealWorld {
 protected:
    void InstallFive() {
        Install("CS5.5", "7.5.3");
        Install("CS6", "8.0.1");
        Install("CC", "9.2.0");
        Install("CC 2019", "14.0.1");
        InstallScript("2021", "16.4.0");
    }
};

TEST_F(RoadTest, FortyMixedDocumentsAreOneStartForEachVersion) {
    InstallFive();
    const std::pair<int, int> kVersions[] = {{16, 0}, {8, 0}, {7, 5}, {14, 0}, {9, 0}};
    std::vector<std::string> words;
    std::vector<std::string> arrived(5);
    for (int i = 0; i < 40; ++i) {
        const auto [major, minor] = kVersions[i * 7 % 5];
        const std::string name = "document " + std::to_string(i) + ".indd";
        words.push_back(Document(name, major, minor));
        arrived[i * 7 % 5] += name + "|";
    }
    EXPECT_EQ(Dunvey(words), 0);
    // The script's program is what writes the last record, under its own name.
    const std::vector<Record> records = AwaitRecords(5);
    ASSERT_EQ(records.size(), 5U);
    EXPECT_EQ(Starts(5)[0], "CS5.5: " + arrived[2]);
    EXPECT_EQ(Starts(5)[1], "CS6: " + arrived[1]);
    EXPECT_EQ(Starts(5)[2], "CC: " + arrived[4]);
    EXPECT_EQ(Starts(5)[3], "CC 2019: " + arrived[3]);
    EXPECT_EQ(records[4].arguments.size(), 8U);
    EXPECT_EQ(folder_.Read("stderr"), "");
}

TEST_F(RoadTest, HeadersFoundInTheWildReachTheirApplication) {
    const std::pair<const char*, const char*> kApplications[] = {
        {"2.0", ""},     {"CS", "3.0.1"},       {"CS5", "7.0.4"},  {"CS5.5", "7.5.3"},
        {"CC", "9.2.0"}, {"CC 2014", "10.0.0"}, {"2021", "16.4.0"}};
    for (const auto& [suffix, version] : kApplications)
        Install(suffix, version);
    std::vector<std::string> words;
    for (const test::SampleHeader& sample : test::kSampleHeaders) {
        const std::string name =
            "v" + std::string(sample.version) + "-" + std::to_string(words.size());
        words.push_back(
            folder_.Write(name + "." + sample.extension, test::Bytes(sample.hexadecimal)));
    }
    // Version 7 goes to the later of the two that match. There is no screen to ask on for the two
    // without a version.
    EXPECT_EQ(Dunvey(words), 1);
    EXPECT_EQ(Starts(7), (Lines{"2.0: v2-1.indd|", "CS: v3-0.indd|", "CS5.5: v7-4.indd|",
                                "CS5.5: v7.5-5.indd|", "CC: v9-6.indd|", "CC 2014: v10-7.indd|",
                                "2021: v16-8.indd|"}));
}

TEST_F(RoadTest, PathsUrisAndOddWords) {
    Install("CS6", "8.0.1");
    Document("a b.indd", 8);
    Document("-dash.indd", 8);
    ASSERT_EQ(chdir(folder_.Path().c_str()), 0);
    EXPECT_EQ(Dunvey({"file://" + folder_.Path() + "/a%20b.indd", "-dash.indd", "a b.indd", "",
                      "--help", "-psn_0_1", "file://elsewhere/a.indd", "none.indd"}),
              0);
    EXPECT_EQ(Starts(1), Lines{"CS6: a b.indd|-dash.indd|a b.indd|"});
    const std::string said = folder_.Read("stderr");
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 5) << said;
    EXPECT_EQ(Dunvey({"none.indd", folder_.Write("note.txt", "")}), 0);
    EXPECT_EQ(Starts(1).size(), 1U);
    ASSERT_EQ(chdir("/"), 0);
}

TEST_F(RoadTest, WhatIsNoReadableDocumentHoldsNothingUp) {
    Install("CS6", "8.0.1");
    ASSERT_EQ(mkfifo((folder_ / "fifo.indd").c_str(), 0600), 0);
    ASSERT_EQ(symlink("nowhere", (folder_ / "dangling.indd").c_str()), 0);
    folder_.MakeFolder("folder.indd");
    const std::string longName = std::string(250, 'x') + ".indd";
    std::string deep;
    while (folder_.Path().size() + deep.size() < 3800)
        deep += std::string(200, 'd') + "/";
    folder_.MakeFolder(deep.substr(0, deep.size() - 1));
    EXPECT_EQ(Dunvey({folder_ / "fifo.indd", folder_ / "dangling.indd", folder_ / "folder.indd",
                      folder_.Write("empty.indd", ""), folder_.Write("short.indd", "0123456789"),
                      "/dev/zero", "/", Document(longName, 8), Document(deep + "deep.indd", 8),
                      std::string(5000, 'p') + ".indd", folder_ / "gone.indd"}),
              1);
    const std::string said = folder_.Read("stderr");
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 9)
        << "each refused and each that must be asked about: " << said;
    EXPECT_EQ(Starts(1), Lines{"CS6: " + longName + "|deep.indd|"});
}

TEST_F(RoadTest, ARunningApplicationGetsItsDocumentsAndIsNotOpenedAgain) {
    Install("CS6", "8.0.1");
    InstallScript("CC", "9.2.0");
    EXPECT_EQ(Dunvey({Document("a.indd", 8)}), 0);
    EXPECT_EQ(Starts(1), Lines{"CS6: a.indd|"}) << "the second command finds it running";
    EXPECT_EQ(Dunvey({folder_ / "a.indd"}), 0);
    EXPECT_EQ(Starts(2).size(), 2U);
    // Beside a running version another one would be asked about.
    EndAll();
    EXPECT_EQ(Dunvey({Document("b.indd", 9)}), 0);
    EXPECT_EQ(AwaitRecords(3).size(), 3U) << "a script counts as running too";
    EXPECT_EQ(Dunvey({folder_ / "b.indd"}), 0);
    EXPECT_EQ(AwaitRecords(4).size(), 4U) << "one start each, though it runs";
}

TEST_F(RoadTest, HostileNamesArriveByteForByteAndNothingElseRuns) {
    Install("CS6", "8.0.1");
    folder_.MakeFolder("documents");
    ASSERT_EQ(chdir((folder_ / "documents").c_str()), 0);
    std::vector<std::string> words;
    for (const std::string& name : test::HostileNames()) {
        words.push_back(Document("documents/" + name + ".indd", 8));
    }
    EXPECT_EQ(Dunvey(words), 0);
    const std::vector<Record> records = AwaitRecords(1);
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].arguments, words);
    EXPECT_NE(access("canary", F_OK), 0);
}

TEST_F(RoadTest, HostileApplicationFoldersAreStartedUnderTheirName) {
    Install("$(touch canary) it's", "8.0.1");
    Install("\xFF\\ \"a\"&;`b`", "9.0");
    EXPECT_EQ(Dunvey({Document("a.indd", 8), Document("b.indd", 9)}), 0);
    EXPECT_EQ(Starts(2), (Lines{"$(touch canary) it's: a.indd|", "\xFF\\ \"a\"&;`b`: b.indd|"}));
}

TEST_F(RoadTest, AProgramThatCannotStartCostsItsOwnDocumentsOnly) {
    InstallList("CS6", "8.0.1");
    Install("CC", "9.2.0");
    EXPECT_EQ(Dunvey({Document("a.indd", 8), Document("b.indd", 9)}), 0);
    EXPECT_EQ(Starts(1), Lines{"CC: b.indd|"});
    EXPECT_NE(folder_.Read("stderr").find("Adobe InDesign CS6"), std::string::npos)
        << "whoever starts it from a terminal is told";
}

TEST_F(RoadTest, AnotherOpenAheadInTheUsersPathIsNotTaken) {
    Install("CS6", "8.0.1");
    folder_.MakeFolder("bin");
    for (const char* name : {"bin/open", "bin/ps"}) {
        folder_.Write(name, "#!/bin/sh\ntouch '" + folder_.Path() + "/canary'\n");
        chmod((folder_ / name).c_str(), 0755);
    }
    EXPECT_EQ(Dunvey({Document("a.indd", 8)}, {"PATH=" + folder_.Path() + "/bin:/usr/bin:/bin"}),
              0);
    EXPECT_EQ(Starts(1), Lines{"CS6: a.indd|"});
    EXPECT_NE(access((folder_ / "canary").c_str(), F_OK), 0);
}

TEST_F(RoadTest, ALostReaderOfComplaintsAndClosedDescriptorsHarmNothing) {
    InstallList("CS6", "8.0.1");
    Install("CC", "9.2.0");
    const std::string words = "'" + Document("a.indd", 8) + "' '" + Document("b.indd", 9) + "'";
    const std::string program = "HOME='" + folder_.Path() + "' XDG_CONFIG_HOME='" + folder_.Path() +
                                "/config' DUNVEY_RECORD='" + folder_.Path() + "/records' '" +
                                DUNVEY_PROGRAM + "' " + words;
    EXPECT_EQ(system(("(" + program + ") 2>&1 >/dev/null | true").c_str()), 0);
    AwaitRecords(1);
    EndAll();
    EXPECT_EQ(system((program + " <&- >&- 2>&-").c_str()), 0);
    EXPECT_EQ(Starts(2), (Lines{"CC: b.indd|", "CC: b.indd|"}));
}

TEST_F(RoadTest, ABundleStandsAnywhere) {
    Install("CS6", "8.0.1");
    const std::string place = folder_ / "a:b 'c' $d";
    ASSERT_EQ(mkdir(place.c_str(), 0700), 0);
    const std::string contents =
        std::string(DUNVEY_PROGRAM).substr(0, std::string(DUNVEY_PROGRAM).rfind("/MacOS/"));
    ASSERT_EQ(system(("cp -R '" + contents + "' \"" + folder_.Path() + "/a:b 'c' \\$d/\"").c_str()),
              0);
    ASSERT_EQ(symlink((place + "/Contents/MacOS/Dunvey").c_str(), (folder_ / "dunvey").c_str()), 0);
    program_ = folder_ / "dunvey";
    EXPECT_EQ(Dunvey({Document("a.indd", 8)}), 0);
    EXPECT_EQ(Starts(1), Lines{"CS6: a.indd|"});
}

TEST_F(RoadTest, ARelativeWordFromAFolderThatIsGoneNamesNothing) {
    Install("CS6", "8.0.1");
    folder_.MakeFolder("gone");
    ASSERT_EQ(chdir((folder_ / "gone").c_str()), 0);
    rmdir((folder_ / "gone").c_str());
    EXPECT_EQ(Dunvey({"a.indd", Document("b.indd", 8)}), 0);
    EXPECT_EQ(Starts(1), Lines{"CS6: b.indd|"});
    ASSERT_EQ(chdir("/"), 0);
}

TEST_F(RoadTest, TwoThousandDocumentsAreOneCommand) {
    Install("CS6", "8.0.1");
    folder_.MakeFolder("many");
    std::vector<std::string> words;
    for (int i = 0; i < 2'000; ++i) {
        words.push_back(Document("many/" + std::string(200, 'n') + std::to_string(i) + ".indd", 8));
    }
    EXPECT_EQ(Dunvey(words), 0);
    const std::vector<Record> records = AwaitRecords(1);
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].arguments, words);
}

TEST_F(RoadTest, ABrokenLibraryBelowTheToolkitKeepsNoOtherDocumentBack) {
    Install("CS6", "8.0.1");
    ASSERT_EQ(symlink(DUNVEY_EMPTY_LIBRARY, (folder_ / "libharfbuzz.so.0").c_str()), 0);
    EXPECT_EQ(Dunvey({Document("asked.indd", 12), Document("a.indd", 8)},
                     {"LD_LIBRARY_PATH=" + folder_.Path()}),
              1);
    EXPECT_EQ(Starts(1), Lines{"CS6: a.indd|"});
    const std::string errors = folder_.Read("stderr");
    EXPECT_NE(errors.find("asked.indd\" isn't opened"), std::string::npos) << errors;
    EXPECT_NE(errors.find("can't be loaded"), std::string::npos) << errors;
}

TEST_F(RoadTest, WithoutDocumentsAndWithoutADisplayItSaysSo) {
    EXPECT_EQ(Dunvey({}), 1);
    EXPECT_NE(folder_.Read("stderr").find("No display can be reached"), std::string::npos);
    EXPECT_EQ(Dunvey({}, {"QT_QPA_PLATFORM=wayland;xcb"}), 1) << "as sessions have it";
}

}  // namespace
}  // namespace dunvey
