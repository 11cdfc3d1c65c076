#include <fcntl.h>
#include <sched.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <csignal>
#include <map>
#include <sstream>

#include "platform/linux/helper_test.h"

namespace dunvey {
namespace {

class PsTest : public HelperTest {
 protected:
    Words Lines() const {
        std::istringstream output(Run("ps", {"-ax", "-o", "comm"}).output);
        Words lines;
        for (std::string line; std::getline(output, line);)
            lines.push_back(line);
        return lines;
    }
    bool Shows(const std::string& path) const {
        const Words lines = Lines();
        return std::find(lines.begin(), lines.end(), path) != lines.end();
    }
    /// The lines of programs in the test's own tree.
    Words OwnLines() const {
        Words lines = Lines();
        std::erase_if(lines, [&](const std::string& line) { return !line.starts_with(In("")); });
        return lines;
    }
    /// A path that is hardly shorter than the system allows.
    std::string LongPath() const {
        const std::string name(200, 'x');
        std::string folder = "long";
        while (In(folder).size() + 2 * name.size() < PATH_MAX)
            folder += "/" + name;
        return MakeFolder(folder) + "/program";
    }
    bool EventuallyShows(const std::string& path) const {
        return Eventually([&] { return Shows(path); });
    }
};

TEST_F(PsTest, ListsExecutablesUnderAHeadingInTheOrderOfTheirIds) {
    const std::string first = MakeRecorder(In("first program"));
    const std::string second = MakeRecorder(In("second"));
    const bool isAscending = StartRecorder({first}) < StartRecorder({second});
    const Words lines = Lines();
    EXPECT_EQ(lines.front(), "COMM");
    const auto isPath = [](const std::string& line) { return line.front() == '/'; };
    EXPECT_TRUE(std::all_of(lines.begin() + 1, lines.end(), isPath));
    const auto firstPlace = std::find(lines.begin(), lines.end(), first);
    const auto secondPlace = std::find(lines.begin(), lines.end(), second);
    ASSERT_NE(firstPlace, lines.end());
    ASSERT_NE(secondPlace, lines.end());
    EXPECT_EQ(firstPlace < secondPlace, isAscending);
}

TEST_F(PsTest, ListsManyProcessesAndLongPathsInTheOrderOfTheirIds) {
    const Words programs = {MakeRecorder(In("first")), MakeRecorder(In("second")),
                            MakeRecorder(LongPath())};
    std::map<pid_t, std::string> started;
    for (size_t i = 0; i < 150; ++i) {
        const std::string& program = programs[i % programs.size()];
        started[Start({program})] = program;
    }
    Words expected;
    for (const auto& [id, program] : started)
        expected.push_back(program);
    EXPECT_TRUE(Eventually([&] { return OwnLines() == expected; }));
    // Neither does it take a second processor.
    cpu_set_t all;
    ASSERT_EQ(sched_getaffinity(0, sizeof all, &all), 0);
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(sched_getcpu(), &one);
    ASSERT_EQ(sched_setaffinity(0, sizeof one, &one), 0);
    EXPECT_EQ(OwnLines(), expected);
    sched_setaffinity(0, sizeof all, &all);
}

TEST_F(PsTest, ShowsAScriptByItsOwnPath) {
    WriteText(In("interpreter"), "#!/bin/sh\n. \"$1\"\n", 0755);
    const std::string nested = "#!" + In("interpreter");
    const struct {
        const char* firstLine;
        Words before;
        Words behind;
    } cases[] = {
        {"#!/bin/sh", {}, {"argument", "-c", "--"}},
        {"#! /bin/sh", {}, {}},
        {"#!/bin/sh -e", {}, {"-x"}},
        {"#!/usr/bin/env sh", {}, {}},
        {"#!/usr/bin/env -S sh -e -u", {}, {"argument"}},
        {nested.c_str(), {}, {}},
        {"#!/bin/sh", {"/bin/sh"}, {}},
        {"#!/bin/sh", {}, {In("other")}},
    };
    MakeStayingScript(In("other"), "#!/bin/sh");
    for (const auto& each : cases) {
        SCOPED_TRACE(each.firstLine);
        const std::string script = MakeStayingScript(In("a wrapper's name"), each.firstLine);
        Words words = each.before;
        words.push_back(script);
        words.insert(words.end(), each.behind.begin(), each.behind.end());
        const pid_t process = Start(words);
        EXPECT_TRUE(EventuallyShows(script));
        EXPECT_FALSE(Shows(In("other")));
        End(process);
    }
}

TEST_F(PsTest, ResolvesTheRoundaboutPathOfAScript) {
    const std::string script = MakeStayingScript(MakeFolder("folder") + "/script", "#!/bin/sh");
    ASSERT_EQ(symlink(script.c_str(), In("link").c_str()), 0);
    const Words paths = {"./script", "../folder/script", In("folder/./script"), In("link")};
    for (const std::string& path : paths) {
        const pid_t process = Start({path}, [&] { (void)!chdir(In("folder").c_str()); });
        EXPECT_TRUE(EventuallyShows(script)) << path;
        End(process);
    }
}

TEST_F(PsTest, LeavesTheFilesOfOtherProgramsAlone) {
    // Reading a file's beginning sets the time of the last access, which can be made an old one.
    const std::string document = MakeStayingScript(In("mentioned"), "#!/bin/sh");
    const timespec old[2] = {{1'000'000, 0}, {1'000'000'000, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, document.c_str(), old, 0), 0);
    const std::string reader = MakeRecorder(In("reader"));
    StartRecorder({reader, document});
    EXPECT_TRUE(EventuallyShows(reader));
    struct stat status;
    ASSERT_EQ(stat(document.c_str(), &status), 0);
    EXPECT_EQ(status.st_atime, 1'000'000);
}

TEST_F(PsTest, ShowsAScriptOfAnyInterpreterInABundleOrUnderItsName) {
    const std::string bundle = MakeFolder("Some.app/Contents/MacOS");
    const std::string interpreter = MakeRecorder(In("interpreter of mine"));
    const std::string plain = MakeStayingScript(In("named script"), "#!" + In("interpreter"));
    ASSERT_EQ(rename(interpreter.c_str(), In("interpreter").c_str()), 0);
    const std::string bundled =
        MakeStayingScript(bundle + "/bundled script", "#!/usr/bin/env " + In("interpreter"));
    StartRecorder({plain});
    EXPECT_TRUE(EventuallyShows(plain));
    StartRecorder({bundled});
    EXPECT_TRUE(EventuallyShows(bundled));
}

TEST_F(PsTest, AScriptThatIsOnlyMentionedDoesNotRun) {
    const std::string script = MakeStayingScript(In("script"), "#!/bin/sh");
    const std::string reader = MakeRecorder(In("reader"));
    const std::string tool = MakeStayingScript(In("tool"), "#!/bin/sh");
    const std::string waits = "read -r unused <'" + In("never-written") + "'";
    Start({tool, script});
    StartRecorder({reader, script});
    const pid_t shell = Start({"/bin/sh", "-c", waits, script});
    EXPECT_TRUE(EventuallyShows(tool));
    EXPECT_TRUE(Shows(reader));
    EXPECT_TRUE(IsRunning(shell));
    EXPECT_FALSE(Shows(script));
}

TEST_F(PsTest, ShowsTheOldPathOfAnExecutableThatWasReplaced) {
    const std::string replaced = MakeRecorder(In("replaced"));
    const std::string marked = MakeRecorder(In("marked (deleted)"));
    StartRecorder({replaced});
    StartRecorder({marked});
    MakeRecorder(In("new"));
    ASSERT_EQ(rename(In("new").c_str(), replaced.c_str()), 0);
    EXPECT_TRUE(Shows(replaced));
    EXPECT_TRUE(Shows(marked));
}

TEST_F(PsTest, AControlCharacterCannotForgeALine) {
    StartRecorder({MakeRecorder(MakeFolder("x\n") + "/usr\x1b\x7f")});
    EXPECT_TRUE(Shows(In("x?/usr??")));
    EXPECT_FALSE(Shows("/usr??"));
}

TEST_F(PsTest, RefusesOtherArguments) {
    const Words calls[] = {
        {}, {"-ax"}, {"-ax", "-o", "pid"}, {"-ax", "-o", "comm", ""}, {"-o", "comm", "-ax"}};
    for (const Words& arguments : calls) {
        const Finished ps = Run("ps", arguments);
        EXPECT_EQ(ps.code, 2) << testing::PrintToString(arguments);
        EXPECT_EQ(ps.output, "");
        EXPECT_NE(ps.errors.find("usage"), std::string::npos);
    }
}

#if !defined(DUNVEY_SANITIZED)
TEST_F(PsTest, WithoutEnoughMemoryItFailsRatherThanListLess) {
    const std::string program = MakeRecorder(LongPath());
    for (int i = 0; i < 40; ++i)
        Start({program});
    ASSERT_TRUE(Eventually([&] { return OwnLines().size() == 40; }));
    int refusals = 0;
    for (rlim_t size = 64 << 10; size < 4 << 20; size += 16 << 10) {
        const rlimit limit{size, size};
        const Finished ps = Run("ps", {"-ax", "-o", "comm"}, [&] { setrlimit(RLIMIT_AS, &limit); });
        const auto lines = std::count(ps.output.begin(), ps.output.end(), '\n');
        EXPECT_TRUE(ps.code == 0 ? lines > 40 : lines == 0) << size;
        refusals += ps.code == 1 && ps.errors.find("enough memory") != std::string::npos;
    }
    EXPECT_GT(refusals, 0);
}
#endif

TEST_F(PsTest, AFailedWriteIsAFailure) {
    const Preparation toFullDevice = [] { dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO); };
    const Preparation toClosedPipe = [] {
        int ends[2];
        if (pipe(ends) != 0) _exit(97);
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
    };
    const Preparation toNothing = [] { close(STDOUT_FILENO); };
    for (const Preparation& prepare : {toFullDevice, toClosedPipe, toNothing}) {
        const Finished ps = Run("ps", {"-ax", "-o", "comm"}, prepare);
        EXPECT_EQ(ps.code, 1);
        EXPECT_NE(ps.errors.find("can't be written"), std::string::npos);
    }
}

}  // namespace
}  // namespace dunvey
