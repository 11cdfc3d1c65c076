#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "platform/linux/helper_test.h"

namespace dunvey {
namespace {

class PsTest : public HelperTest {
 protected:
    PsTest() { setenv("HOME", In("home").c_str(), 1); }

    /// The lines of programs in the test's own tree.
    Words OwnLines(const Preparation& prepare = {}) const {
        std::istringstream output(Run("ps", {"-ax", "-o", "comm"}, prepare).output);
        Words lines;
        for (std::string line; std::getline(output, line);) {
            if (line.starts_with(In(""))) lines.push_back(line);
        }
        return lines;
    }
    bool EventuallyShows(const std::string& path) const {
        return Eventually([&] {
            const Words lines = OwnLines();
            return std::find(lines.begin(), lines.end(), path) != lines.end();
        });
    }
};

TEST_F(PsTest, ListsExecutablesUnderAHeadingInTheOrderOfTheirIds) {
    const std::string name(200, 'x');
    const std::string deep = MakeFolder(name + "/" + name + "/" + name + "/" + name + "/" + name);
    const Words programs = {MakeRecorder(In("a program")), MakeRecorder(deep + "/program")};
    std::map<pid_t, std::string> started;
    for (size_t i = 0; i < 60; ++i) {
        const std::string& program = programs[i % programs.size()];
        started[Start({program})] = program;
    }
    Words expected;
    for (const auto& [id, program] : started)
        expected.push_back(program);
    EXPECT_TRUE(Eventually([&] { return OwnLines() == expected; }));
    EXPECT_TRUE(Run("ps", {"-ax", "-o", "comm"}).output.starts_with("COMM\n/"));
}

TEST_F(PsTest, ShowsABundlesScriptByItsOwnPath) {
    const std::string programs = MakeFolder("A.app/Contents/MacOS");
    WriteText(In("interpreter"), "#!/bin/sh\n. \"$1\"\n", 0755);
    const std::string nested = "#!" + In("interpreter");
    const std::string other = MakeStayingScript(programs + "/other", "#!/bin/sh");
    struct Case {
        std::string firstLine;
        Words before, after;
    };
    const Case cases[] = {{"#!/bin/sh", {}, {"argument", "-c", "--"}},
                          {"#! /bin/sh", {}, {}},
                          {"#!/bin/sh -e", {}, {"-x"}},
                          {"#!/usr/bin/env sh", {}, {}},
                          {"#!/usr/bin/env -S sh -e -u", {}, {"x"}},
                          {nested, {}, {}},
                          {"#!/bin/sh", {"/bin/sh"}, {}},
                          {"#!/bin/sh", {}, {other}}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.firstLine);
        const std::string script = MakeStayingScript(programs + "/a wrapper", each.firstLine);
        Words words = each.before;
        words.push_back(script);
        words.insert(words.end(), each.after.begin(), each.after.end());
        const pid_t process = Start(words);
        EXPECT_TRUE(EventuallyShows(script));
        EXPECT_EQ(OwnLines(), Words{script});
        End(process);
    }
    // Mentioned, but not run.
    const std::string reader = MakeRecorder(In("reader"));
    StartRecorder({reader, other});
    Start({"/bin/sh", "-c", "read -r unused <'" + In("never-written") + "'", other});
    Start({"/bin/bash", "-c", "exec -a \"$0\" \"$1\"", other, reader});
    EXPECT_TRUE(Eventually([&] { return OwnLines() == Words{reader, reader}; }));
}

/// Home reached by another name, a bundle installed by a link, a start from within the folder.
TEST_F(PsTest, ShowsAProgramUnderTheInstalledNameOfItsBundle) {
    const std::string installed = MakeFolder("home/Applications/A") + "/A.app/Contents/MacOS/";
    const std::string elsewhere = MakeFolder("opt/B.app/Contents/MacOS") + "/";
    ASSERT_EQ(symlink(In("opt/B.app").c_str(), In("home/Applications/A/A.app").c_str()), 0);
    ASSERT_EQ(symlink("home", In("other home").c_str()), 0);
    MakeRecorder(elsewhere + "program");
    MakeStayingScript(elsewhere + "script", "#!/bin/sh");
    ASSERT_EQ(symlink(MakeRecorder(In("real")).c_str(), (elsewhere + "link").c_str()), 0);
    const std::string other = In("other home/Applications/A/A.app/Contents/MacOS/");
    for (const std::string name : {"program", "script", "link"}) {
        for (const std::string& path : {installed, elsewhere, other, std::string("./")}) {
            SCOPED_TRACE(path + name);
            // The kernel doesn't keep the path of a relative link to a program.
            if (name == "link" && path == "./") continue;
            const pid_t process = Start({path + name}, [&] { (void)!chdir(elsewhere.c_str()); });
            EXPECT_TRUE(EventuallyShows(installed + name));
            End(process);
        }
    }
}

TEST_F(PsTest, LooksNothingUpOutsideOfBundles) {
    // Reading a file sets the time of its last access, if that is old.
    const std::string document = MakeStayingScript(In("mentioned"), "#!/bin/sh");
    const timespec old[2] = {{1'000'000, 0}, {1'000'000'000, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, document.c_str(), old, 0), 0);
    Start({"/bin/bash", "-c", "read -r unused <'" + In("never-written") + "'", "x", document});
    const std::string reader = MakeRecorder(In("reader"));
    StartRecorder({reader, document});
    EXPECT_EQ(OwnLines(), Words{reader});
    struct stat status;
    ASSERT_EQ(stat(document.c_str(), &status), 0);
    EXPECT_EQ(status.st_atime, 1'000'000);
}

TEST_F(PsTest, ShowsAnotherUsersProgramByItsFirstArgument) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can start another user's program";
    const std::string program = MakeRecorder(MakeFolder("A.app/Contents/MacOS") + "/program");
    const std::string outside = MakeRecorder(In("outside"));
    ASSERT_EQ(chmod(In("").c_str(), 0755), 0);
    Start({program});
    Start({outside});
    const Preparation asNobody = [] {
        if (setgid(65'534) != 0 || setuid(65'534) != 0) _exit(97);
    };
    EXPECT_TRUE(Eventually([&] { return OwnLines(asNobody) == Words{program}; }));
}

TEST_F(PsTest, ShowsTheOldPathOfAReplacedProgramAndNoForgedLine) {
    const std::string replaced = MakeRecorder(In("replaced"));
    StartRecorder({replaced});
    MakeRecorder(In("new"));
    ASSERT_EQ(rename(In("new").c_str(), replaced.c_str()), 0);
    EXPECT_EQ(OwnLines(), Words{replaced});
    StartRecorder({MakeRecorder(MakeFolder("x\n") + "/usr\x1b\x7f")});
    EXPECT_EQ(OwnLines(), (Words{replaced, In("x?/usr??")}));
}

TEST_F(PsTest, FailsForOtherArgumentsAndAFailedWrite) {
    const Words calls[] = {{}, {"-ax", "-o", "pid"}, {"-ax", "-o", "comm", ""}};
    for (const Words& arguments : calls)
        Refused("ps", arguments, 2, "usage");
    const Preparation toFullDevice = [] { dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO); };
    const Preparation toClosedPipe = [] {
        int ends[2];
        if (pipe(ends) != 0) _exit(97);
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
    };
    for (const Preparation& prepare : {toFullDevice, toClosedPipe}) {
        const Finished ps = Run("ps", {"-ax", "-o", "comm"}, prepare);
        EXPECT_EQ(ps.code, 1);
        EXPECT_NE(ps.errors.find("can't be written"), std::string::npos);
    }
}

}  // namespace
}  // namespace dunvey
