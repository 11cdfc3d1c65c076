#include <fcntl.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <utility>

#include "platform/linux/helper_test.h"
#include "support/hostile_names.h"

namespace dunvey {
namespace {

class OpenTest : public HelperTest {
 protected:
    OpenTest() : bundle_(MakeBundle("An App.app")), program_(Program("An App")) {}

    std::string Program(const std::string& name) const {
        return bundle_ + "/Contents/MacOS/" + name;
    }
    std::string PropertyListPath() const { return bundle_ + "/Contents/Info.plist"; }

    /// Opens files with the application; returns the record of its start.
    Record OpenFiles(const Words& files, const Preparation& prepare = {}) const {
        Words arguments{"-a", bundle_};
        arguments.insert(arguments.end(), files.begin(), files.end());
        const size_t before = Records().size();
        const Finished open = Run("open", arguments, prepare);
        EXPECT_EQ(open.code, 0) << open.errors;
        EXPECT_EQ(open.errors, "");
        EXPECT_TRUE(Eventually([&] { return Records().size() > before; }));
        return Records().size() > before ? Records().back() : Record();
    }

    const std::string bundle_;
    /// The executable of the bundle without a property list.
    const std::string program_;
};

std::string ProcessFile(pid_t process, const std::string& name) {
    return "/proc/" + std::to_string(process) + "/" + name;
}

std::string LinkTarget(const std::string& path) {
    char target[4096];
    const ssize_t length = readlink(path.c_str(), target, sizeof target);
    return std::string(target, length > 0 ? static_cast<size_t>(length) : 0);
}

std::string PropertyList(const std::string& value) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
           "<key>CFBundleExecutable</key>" +
           value + "</dict></plist>\n";
}

TEST_F(OpenTest, FilesArriveByteForByte) {
    MakeRecorder(program_);
    Words files = {"-a", "--", "./dots/../kept", "/" + std::string(255, 'x')};
    for (const std::string& name : test::HostileNames()) {
        files.push_back(name);
        files.push_back("/" + name);
    }
    Words expected = files;
    for (std::string& file : expected) {
        if (file.front() != '/') file = In("folder/" + file);
    }
    MakeFolder("folder");
    const Record record = OpenFiles(files, [&] { (void)!chdir(In("folder").c_str()); });
    EXPECT_EQ(record.arguments, expected);
    EXPECT_EQ(record.executable, program_);
}

TEST_F(OpenTest, RestoresTheStackLimitUnlessTheArgumentsNeedMore) {
    MakeRecorder(program_);
    const auto softLimit = [this](size_t count) {
        Words files(count, "/" + std::string(200, 'x'));
        for (size_t i = 0; i < count; ++i)
            files[i] += std::to_string(i);
        const Record record = OpenFiles(files, [] {
            const rlimit limit{rlim_t{24} << 20, RLIM_INFINITY};
            if (setrlimit(RLIMIT_STACK, &limit) != 0) _exit(97);
            setenv("DUNVEY_STACK_LIMIT", "8388608", 1);
        });
        EXPECT_EQ(record.arguments, files);
        const std::string limits = ReadText(ProcessFile(record.process, "limits"));
        return std::stoul(limits.substr(limits.find("Max stack size") + 14));
    };
    EXPECT_EQ(softLimit(5'000), 8'388'608U);
    EXPECT_EQ(softLimit(15'000), 24U << 20);
}

/// Sets all that an application could inherit: a terminal, open files, signals, a home.
void Entangle(const std::string& home) {
    setsid();
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (grantpt(master) != 0 || unlockpt(master) != 0) _exit(97);
    if (ioctl(open(ptsname(master), O_RDWR), TIOCSCTTY, 0) != 0) _exit(97);
    for (const int number : {7, 63, 500})
        dup2(STDOUT_FILENO, number);
    close(STDIN_FILENO);
    for (const int number : {SIGINT, SIGCHLD, SIGPIPE, SIGHUP})
        std::signal(number, SIG_IGN);
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_SETMASK, &all, nullptr);
    setenv("HOME", home.c_str(), 1);
}

TEST_F(OpenTest, TheApplicationSharesNothingWithItsStarter) {
    MakeRecorder(program_);
    const std::string home = MakeFolder("home");
    for (const bool isOldKernel : {false, true}) {
        SCOPED_TRACE(isOldKernel);
        const Record record = OpenFiles({"/x"}, [&] {
            Entangle(home);
            if (isOldKernel) BecomeOldKernel();
        });
        const pid_t process = record.process;
        EXPECT_EQ(Children(), std::vector<pid_t>{process});
        EXPECT_EQ(getpgid(process), process);
        EXPECT_NE(getsid(process), process) << "a session's leader can acquire a terminal";
        EXPECT_NE(getsid(process), getsid(0));
        const std::string stat = ReadText(ProcessFile(process, "stat"));
        int terminal = -1;
        std::sscanf(stat.c_str() + stat.rfind(')'), ") %*c %*d %*d %*d %d", &terminal);
        EXPECT_EQ(terminal, 0);
        const std::string status = ReadText(ProcessFile(process, "status"));
        for (const char* none : {"SigBlk:\t0000000000000000\n", "SigIgn:\t0000000000000000\n"})
            EXPECT_NE(status.find(none), std::string::npos) << status;
        EXPECT_EQ(LinkTarget(ProcessFile(process, "cwd")), home);
        for (const char* stream : {"fd/0", "fd/1", "fd/2"})
            EXPECT_EQ(LinkTarget(ProcessFile(process, stream)), "/dev/null");
        // The recorder closes its own file a moment after the record can be read.
        EXPECT_TRUE(Eventually([&] { return !Exists(ProcessFile(process, "fd/3")); }));
        for (const char* inherited : {"fd/7", "fd/63", "fd/500"})
            EXPECT_EQ(LinkTarget(ProcessFile(process, inherited)), "");
        End(process);
    }
}

TEST_F(OpenTest, OnlyItsOwnFolderLeavesTheSearchPath) {
    MakeRecorder(program_);
    const std::string own = Helper("");
    const std::string plain = own.substr(0, own.size() - 1);
    ASSERT_EQ(symlink(plain.c_str(), In("link").c_str()), 0);
    const std::pair<std::string, std::string> cases[] = {
        {plain + ":/usr/bin::/bin", "PATH=/usr/bin::/bin"},
        {In("link") + ":/bin:/missing", "PATH=/bin:/missing"},
        {"/bin:" + own + ":", "PATH=/bin:"},
        {"/bin", "PATH=/bin"}};
    for (const auto& [given, expected] : cases) {
        const Record record = OpenFiles({"/x"}, [&path = given] {
            setenv("PATH", path.c_str(), 1);
            setenv("HOME", "/missing", 1);
            setenv("OTHER", "kept", 1);
        });
        const std::string environment = '\0' + ReadText(ProcessFile(record.process, "environ"));
        EXPECT_NE(environment.find('\0' + expected + '\0'), std::string::npos) << given;
        EXPECT_NE(environment.find(std::string("\0OTHER=kept\0", 12)), std::string::npos);
        const std::string mark = '\0' + ("DUNVEY_APPLICATION=" + bundle_) + '\0';
        EXPECT_NE(environment.find(mark), std::string::npos);
        EXPECT_EQ(LinkTarget(ProcessFile(record.process, "cwd")), "/");
    }
}

TEST_F(OpenTest, FilesAlwaysStartItAndAloneItStartsOnlyOnce) {
    MakeRecorder(program_);
    OpenFiles({"/1"});
    OpenFiles({"/2"});
    EXPECT_EQ(Run("open", {bundle_}).code, 0);
    EXPECT_EQ(Run("open", {"An App.app/"}, [&] { (void)!chdir(In("").c_str()); }).code, 0);
    EXPECT_EQ(Children().size(), 2U);
    EndChildren();
    EXPECT_EQ(Run("open", {bundle_ + "//"}).code, 0);
    ASSERT_TRUE(Eventually([&] { return Records().size() == 3; }));
    EXPECT_EQ(Records()[2].arguments, Words());
}

TEST_F(OpenTest, AScriptRunsAsSoonAsItIsOpened) {
    // On one processor the second open may interrupt the start at any point.
    cpu_set_t processors;
    CPU_ZERO(&processors);
    CPU_SET(sched_getcpu(), &processors);
    sched_setaffinity(0, sizeof processors, &processors);
    const std::string both = "\"$0\" -a \"$1\" /x && \"$0\" \"$1\"";
    for (const char* firstLine : {"#!/bin/sh", "#!/usr/bin/env sh", "#!/usr/bin/env -S sh -e"}) {
        MakeStayingScript(program_, firstLine);
        for (int i = 0; i < 50; ++i) {
            int status = -1;
            waitpid(Start({"/bin/sh", "-c", both, Helper("open"), bundle_}), &status, 0);
            EXPECT_EQ(status, 0);
            EXPECT_EQ(Children().size(), 1U) << firstLine;
            EndChildren();
        }
    }
}

TEST_F(OpenTest, ALinkInTheBundleRunsAsTheBundlesProgram) {
    const std::string programs[] = {MakeRecorder(In("program elsewhere")),
                                    MakeStayingScript(In("script elsewhere"), "#!/bin/sh")};
    ASSERT_EQ(symlink(In("").c_str(), In("other way").c_str()), 0);
    for (const std::string& program : programs) {
        unlink(program_.c_str());
        ASSERT_EQ(symlink(program.c_str(), program_.c_str()), 0);
        for (const std::string& path : {In("other way/An App.app"), bundle_, bundle_}) {
            EXPECT_EQ(Run("open", {path}).code, 0);
        }
        EXPECT_NE(Run("ps", {"-ax", "-o", "comm"}).output.find("\n" + program_ + "\n"),
                  std::string::npos);
        EXPECT_EQ(Children().size(), 1U);
        EndChildren();
    }
}

TEST_F(OpenTest, ThePropertyListNamesTheExecutableElseTheBundleDoes) {
    MakeRecorder(program_);
    MakeRecorder(Program("Named"));
    MakeRecorder(Program("Im Größten"));
    const std::pair<std::string, std::string> cases[] = {
        {PropertyList("<string>Named</string>"), "Named"},
        {PropertyList("<string>Im Größten</string>"), "Im Größten"},
        {PropertyList("<integer>5</integer>"), "An App"},
        {PropertyList("<string></string>"), "An App"},
        {"<plist version=\"1.0\"><dict></dict></plist>", "An App"},
        {"<plist version=\"1.0\"><array><string>Named</string></array></plist>", "An App"},
        {PropertyList("<string>Named</string>") + std::string(256 * 1024, ' '), "An App"},
        {"nonsense", "An App"},
        {"", "An App"}};
    for (const auto& [text, expected] : cases) {
        WriteText(PropertyListPath(), text);
        EXPECT_EQ(OpenFiles({"/x"}).executable, Program(expected)) << text.substr(0, 200);
    }
    // Must not be read whole before it is found to be too large.
    ASSERT_EQ(truncate(PropertyListPath().c_str(), off_t{1} << 40), 0);
    EXPECT_EQ(OpenFiles({"/x"}).executable, program_);
    unlink(PropertyListPath().c_str());
    ASSERT_EQ(mkfifo(PropertyListPath().c_str(), 0600), 0);
    EXPECT_EQ(OpenFiles({"/x"}).executable, program_);
}

TEST_F(OpenTest, SaysWhatCannotBeStarted) {
    MakeRecorder(Program("../outside"));
    WriteText(Program("locked"), "#!/bin/sh\n", 0644);
    WriteText(Program("stranger"), "#!/missing/interpreter\r\n", 0755);
    WriteText(Program("words"), "just words", 0755);
    MakeFolder("An App.app/Contents/MacOS/folder");
    const std::pair<std::string, std::string> cases[] = {
        {"gone", "/Contents/MacOS/gone\" is missing"},
        {"locked", "/Contents/MacOS/locked\" may not be executed"},
        {"stranger", "\"/missing/interpreter?\", which is missing"},
        {"words", "/Contents/MacOS/words\" is no program"},
        {"folder", "/Contents/MacOS/folder\" is no file that could be started"},
        {"../outside", "\"../outside\", which is no name of a file"},
        {"..", "\"..\", which is no name of a file"},
        {"/bin/sh", "\"/bin/sh\", which is no name of a file"}};
    for (const auto& [declared, message] : cases) {
        WriteText(PropertyListPath(), PropertyList("<string>" + declared + "</string>"));
        for (const Words& arguments : {Words{"-a", bundle_, "/x"}, Words{bundle_}})
            Refused("open", arguments, 1, message);
    }
    MakeFolder("plain");
    for (const char* path : {"missing.app", "plain", "records"})
        Refused("open", {"-a", In(path), "/x"}, 1, In(path) + "\" is no application");
    EXPECT_EQ(Children(), std::vector<pid_t>());
}

TEST_F(OpenTest, RefusesNonsense) {
    MakeRecorder(program_);
    const std::vector<Words> calls = {{},
                                      {""},
                                      {"-a"},
                                      {"--help"},
                                      {"-a", bundle_},
                                      {bundle_, "/x"},
                                      {"-a", bundle_, ""},
                                      {"-a", "", "/x"},
                                      {"-b", bundle_, "/x"}};
    for (const Words& arguments : calls)
        Refused("open", arguments, 2, "usage");
    EXPECT_EQ(Children(), std::vector<pid_t>());
}

}  // namespace
}  // namespace dunvey
