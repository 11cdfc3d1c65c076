#include <sys/resource.h>

#include <utility>

#include "platform/linux/helper_test.h"

namespace dunvey {
namespace {

class OpenTest : public HelperTest {
 protected:
    std::string Program(const std::string& name) const {
        return bundle_ + "/Contents/MacOS/" + name;
    }

    /// Opens files with the application; returns the record of its start.
    Record OpenFiles(const Words& files, const Preparation& prepare = {}) const {
        Words words{"-a", bundle_};
        words.insert(words.end(), files.begin(), files.end());
        const size_t before = Records().size();
        const Finished open = Run("open", words, prepare);
        EXPECT_EQ(open.code, 0) << open.errors;
        EXPECT_EQ(open.errors, "");
        EXPECT_TRUE(Eventually([&] { return Records().size() > before; }));
        return Records().size() > before ? Records().back() : Record();
    }

    const std::string bundle_ = MakeBundle("An App.app");
    /// The executable of the bundle without a property list.
    const std::string program_ = MakeRecorder(Program("An App"));
};

std::string LinkTarget(const std::string& path) {
    char target[4096];
    const ssize_t length = readlink(path.c_str(), target, sizeof target);
    return std::string(target, length > 0 ? static_cast<size_t>(length) : 0);
}

TEST_F(OpenTest, FilesBecomeAbsoluteAndAreNeverOptions) {
    const Words files = {"-a", "--", "./dots/../kept", "/" + std::string(255, 'x'), "\n\xFF '\"$x"};
    Words expected = files;
    for (std::string& file : expected)
        if (file.front() != '/') file = In("folder/" + file);
    MakeFolder("folder");
    const Record record = OpenFiles(files, [&] { (void)!chdir(In("folder").c_str()); });
    EXPECT_EQ(record.arguments, expected);
    EXPECT_EQ(record.executable, program_);
}

TEST_F(OpenTest, RestoresTheStackLimitUnlessTheArgumentsNeedMore) {
    for (const auto& [count, expected] : {std::pair(5'000, "8388608"), {15'000, "25165824"}}) {
        const Words files(static_cast<size_t>(count), "/" + std::string(204, 'x'));
        const Record record = OpenFiles(files, [] {
            const rlimit limit{rlim_t{24} << 20, RLIM_INFINITY};
            if (setrlimit(RLIMIT_STACK, &limit) != 0) _exit(97);
            setenv("DUNVEY_STACK_LIMIT", "8388608", 1);
        });
        EXPECT_EQ(record.arguments, files);
        const std::string limits = ReadText(ProcessFile(record.process, "limits"));
        EXPECT_EQ(limits.find(expected), limits.find("Max stack size") + 26) << limits;
    }
}

/// Sets what an application could inherit: open files, signals.
void Entangle() {
    for (const int number : {7, 63, 500})
        dup2(STDOUT_FILENO, number);
    close(STDIN_FILENO);
    for (const int number : {SIGINT, SIGCHLD, SIGPIPE, SIGHUP})
        std::signal(number, SIG_IGN);
    sigset_t all;
    sigfillset(&all);
    sigprocmask(SIG_SETMASK, &all, nullptr);
}

TEST_F(OpenTest, TheApplicationInheritsNoSessionSignalsOrDescriptors) {
    const pid_t process = OpenFiles({"/x"}, Entangle).process;
    EXPECT_EQ(Children(), std::vector<pid_t>{process});
    EXPECT_EQ(getpgid(process), process);
    EXPECT_NE(getsid(process), process) << "a session's leader can acquire a terminal";
    EXPECT_NE(getsid(process), getsid(0));
    const std::string status = ReadText(ProcessFile(process, "status"));
    for (const char* none : {"SigBlk:\t0000000000000000\n", "SigIgn:\t0000000000000000\n"})
        EXPECT_NE(status.find(none), std::string::npos) << status;
    for (const char* stream : {"fd/0", "fd/1", "fd/2"})
        EXPECT_EQ(LinkTarget(ProcessFile(process, stream)), "/dev/null");
    // The recorder closes its own file a moment after the record can be read.
    EXPECT_TRUE(Eventually([&] { return LinkTarget(ProcessFile(process, "fd/3")).empty(); }));
    for (const char* inherited : {"fd/7", "fd/63", "fd/500"})
        EXPECT_EQ(LinkTarget(ProcessFile(process, inherited)), "");
}

TEST_F(OpenTest, OnlyItsOwnFolderLeavesTheSearchPath) {
    const std::string own = Helper("");
    const std::string plain = own.substr(0, own.size() - 1);
    ASSERT_EQ(symlink(plain.c_str(), In("link").c_str()), 0);
    const std::pair<std::string, std::string> cases[] = {
        {plain + ":/usr/bin::/bin", "/usr/bin::/bin"},
        {In("link") + ":/bin:/missing", "/bin:/missing"},
        {"/bin:" + own + ":", "/bin:"}};
    for (const auto& [given, expected] : cases) {
        const Record record =
            OpenFiles({"/x"}, [&path = given] { setenv("PATH", path.c_str(), 1); });
        const std::string text = '\0' + ReadText(ProcessFile(record.process, "environ"));
        for (const std::string& variable : {"PATH=" + expected, "DUNVEY_APPLICATION=" + bundle_})
            EXPECT_NE(text.find('\0' + variable + '\0'), std::string::npos) << variable;
    }
}

TEST_F(OpenTest, FilesAlwaysStartItAndAloneItStartsOnlyOnce) {
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

std::string PropertyList(const std::string& value) {
    return "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key>" + value + "</dict></plist>";
}

TEST_F(OpenTest, ThePropertyListNamesTheExecutableElseTheBundleDoes) {
    const std::string named = PropertyList("<string>Im Größten</string>");
    MakeRecorder(Program("Im Größten"));
    const std::pair<std::string, const char*> cases[] = {
        {named, "Im Größten"},
        {PropertyList("<integer>5</integer>"), "An App"},
        {PropertyList("<string></string>"), "An App"},
        {"nonsense", "An App"}};
    for (const auto& [text, expected] : cases) {
        folder_.Write("An App.app/Contents/Info.plist", text);
        EXPECT_EQ(OpenFiles({"/x"}).executable, Program(expected)) << text.substr(0, 200);
    }
}

TEST_F(OpenTest, SaysWhatCannotBeStarted) {
    MakeRecorder(Program("../outside"));
    MakeProgram(Program("stranger"), "#!/missing/interpreter\r\n");
    MakeProgram(Program("words"), "just words");
    chmod(MakeProgram(Program("locked"), "#!/bin/sh\n").c_str(), 0644);
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
        folder_.Write("An App.app/Contents/Info.plist",
                      PropertyList("<string>" + declared + "</string>"));
        for (const Words& words : {Words{"-a", bundle_, "/x"}, Words{bundle_}})
            Refused("open", words, 1, message);
    }
    for (const std::string& path : {In("missing.app"), In(""), program_})
        Refused("open", {"-a", path, "/x"}, 1, "\" is no application");
    for (const Words& words : {Words(), {"-a"}, {"-a", bundle_, ""}, {"-b", bundle_, "/x"}})
        Refused("open", words, 2, "usage");
    EXPECT_EQ(Children(), std::vector<pid_t>());
}

}  // namespace
}  // namespace dunvey
