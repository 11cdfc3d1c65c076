#include "platform/linux/helper_test.h"

namespace dunvey {
namespace {

const Words kAll = {"-ax", "-o", "comm"};

class PsTest : public HelperTest {
 protected:
    PsTest() { setenv("HOME", In("home").c_str(), 1); }

    /// The lines of programs in the test's own tree.
    Words OwnLines(const Preparation& prepare = {}) const {
        std::istringstream output(Run("ps", kAll, prepare).output);
        Words lines;
        for (std::string line; std::getline(output, line);)
            if (line.starts_with(In(""))) lines.push_back(line);
        return lines;
    }
    bool EventuallyShows(const Words& lines, const Preparation& prepare = {}) const {
        return Eventually([&] { return OwnLines(prepare) == lines; });
    }
};

TEST_F(PsTest, ShowsABundlesScriptByItsOwnPath) {
    const std::string programs = MakeFolder("A.app/Contents/MacOS");
    const std::string nested = "#!" + MakeProgram(In("interpreter"), "#!/bin/sh\n. \"$1\"\n");
    const std::string other = MakeStayingScript(programs + "/other", "#!/bin/sh");
    const std::string script = programs + "/a wrapper";
    const std::pair<std::string, Words> cases[] = {{"#!/bin/sh", {script, "argument", "-c", "--"}},
                                                   {"#! /bin/sh", {script}},
                                                   {"#!/bin/sh -e", {script, "-x"}},
                                                   {"#!/usr/bin/env sh", {script}},
                                                   {"#!/usr/bin/env -S sh -e -u", {script, "x"}},
                                                   {nested, {script}},
                                                   {"#!/bin/sh", {"/bin/sh", script}},
                                                   {"#!/bin/sh", {script, other}}};
    for (const auto& [firstLine, words] : cases) {
        MakeStayingScript(script, firstLine);
        const pid_t process = Start(words);
        EXPECT_TRUE(EventuallyShows({script})) << firstLine;
        End(process);
    }
    // Mentioned, but not run.
    const std::string reader = MakeRecorder(In("reader"));
    StartRecorder({reader, other});
    Start({"/bin/sh", "-c", "read -r unused <'" + In("never-written") + "'", other});
    Start({"/bin/bash", "-c", "exec -a \"$0\" \"$1\"", other, reader});
    EXPECT_TRUE(EventuallyShows({reader, reader}));
}

// Home reached by another name, a bundle installed by a link, a start from within the folder.
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
            // The kernel doesn't keep the path of a relative link to a program.
            if (name == "link" && path == "./") continue;
            const pid_t process = Start({path + name}, [&] { (void)!chdir(elsewhere.c_str()); });
            EXPECT_TRUE(EventuallyShows({installed + name})) << path + name;
            End(process);
        }
    }
    Start({"/bin/sh", "script"}, [&] { (void)!chdir(elsewhere.c_str()); });
    EXPECT_TRUE(EventuallyShows({installed + "script"}));
}

// A path on a network mount that doesn't answer would block the helper.
TEST_F(PsTest, LooksNothingUpOutsideOfBundles) {
    const std::string document = MakeStayingScript(In("mentioned"), "#!/bin/sh");
    Start({"/bin/bash", "-c", "read -r unused <'" + In("never-written") + "'", "x", document});
    StartRecorder({MakeRecorder(In("reader")), document});
    const std::string traced = "exec strace -e trace=%file -o \"$0\" \"$1\" -ax -o comm >/dev/null";
    waitpid(Start({"/bin/sh", "-c", traced, In("calls"), Helper("ps")}), nullptr, 0);
    EXPECT_NE(folder_.Read("calls").find("/cmdline\""), std::string::npos);
    EXPECT_EQ(folder_.Read("calls").find(document), std::string::npos);
}

TEST_F(PsTest, ShowsAnotherUsersProgramByItsFirstArgument) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can start another user's program";
    const std::string program = MakeRecorder(MakeFolder("A.app/Contents/MacOS") + "/program");
    ASSERT_EQ(chmod(In("").c_str(), 0755), 0);
    Start({program});
    Start({MakeRecorder(In("outside"))});
    EXPECT_TRUE(EventuallyShows({program}, [] {
        if (setgid(65'534) != 0 || setuid(65'534) != 0) _exit(97);
    }));
}

TEST_F(PsTest, ShowsTheOldPathOfAReplacedProgramAndNoForgedLine) {
    const std::string name(200, 'x');
    const std::string deep = MakeFolder(name + "/" + name + "/" + name + "/" + name + "/" + name);
    const std::string replaced = MakeRecorder(deep + "/replaced");
    StartRecorder({replaced});
    ASSERT_EQ(rename(MakeRecorder(In("new")).c_str(), replaced.c_str()), 0);
    StartRecorder({MakeRecorder(MakeFolder("x\n") + "/usr\x1b\x7f")});
    EXPECT_EQ(OwnLines(), (Words{replaced, In("x?/usr??")})) << "in the order of their ids";
    EXPECT_TRUE(Run("ps", kAll).output.starts_with("COMM\n/"));
}

TEST_F(PsTest, FailsForOtherArgumentsAndAFailedWrite) {
    for (const Words& words : {Words(), {"-ax", "-o", "pid"}, {"-ax", "-o", "comm", ""}})
        Refused("ps", words, 2, "usage");
    const Preparation toFullDevice = [] { dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO); };
    const Preparation toClosedPipe = [] {
        int ends[2];
        if (pipe(ends) != 0) _exit(97);
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
    };
    for (const Preparation& prepare : {toFullDevice, toClosedPipe}) {
        const Finished ps = Run("ps", kAll, prepare);
        EXPECT_EQ(ps.code, 1);
        EXPECT_NE(ps.errors.find("can't be written"), std::string::npos);
    }
}

}  // namespace
}  // namespace dunvey
