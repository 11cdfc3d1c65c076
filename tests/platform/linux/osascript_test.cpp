#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "platform/linux/helper_test.h"

namespace dunvey {
namespace {

std::string Script(const std::string& steps) {
    return "on run {AppPath}\n" + steps + "\nend run";
}

const char kQuit[] = "quit application AppPath";

class OsascriptTest : public HelperTest {
 protected:
    OsascriptTest() {
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
    }
    Finished Quit(const std::string& bundle, const Preparation& prepare = {}) const {
        return Run("osascript", {"-e", Script(std::string(kQuit) + "\ndelay 0"), bundle}, prepare);
    }
    static bool EventuallyEnded(pid_t process) {
        return Eventually([&] { return !IsRunning(process); });
    }
    /// Starts the helper and waits until it does nothing but wait.
    pid_t StartWaiting(const std::string& steps, const std::string& bundle) const {
        const pid_t helper = Start({Helper("osascript"), "-e", Script(steps), bundle}, [this] {
            dup2(open(In("messages").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600), STDERR_FILENO);
        });
        const std::string sleeping = std::to_string(helper) + " (osascript) S";
        EXPECT_TRUE(Eventually([&] {
            return ReadText("/proc/" + std::to_string(helper) + "/stat").starts_with(sleeping);
        }));
        return helper;
    }
};

TEST_F(OsascriptTest, EndsTheProcessesOfTheBundleAndNoOthers) {
    const std::string bundle = MakeBundle("Folder/A.app");
    ASSERT_EQ(symlink("Folder", In("link").c_str()), 0);
    const std::string programs = bundle + "/Contents/MacOS/";
    MakeFolder("Folder/A.app/Contents/MacOS/Deeper");
    MakeFolder("Folder/A.app/Contents/Resources");
    MakeFolder("Folder/A.app/Contents/MacOS (old)");
    const std::string child = MakeRecorder(bundle + "/Contents/Resources/child");
    WriteText(programs + "wrapper", "#!/bin/sh\n'" + child + "'\nexit 5\n", 0755);
    const std::string lie = "exec -a \"$0\" \"$1\"";
    const Words staying[] = {
        {"/bin/bash", "-c", lie, programs + "program", MakeRecorder(In("liar"))},
        {MakeRecorder(bundle + "/Contents/MacOS (old)/program")},
        {MakeRecorder(In("reader")), programs + "wrapper"}};
    const std::string program = MakeRecorder(programs + "program");
    const Words ending[] = {{program},
                            {In("link/A.app/Contents/MacOS/program")},
                            {MakeRecorder(programs + "Deeper/program")},
                            {In("link/A.app/Contents/MacOS/wrapper")},
                            {programs + "wrapper"}};
    for (const std::string& path : {bundle, In("link/A.app//"), std::string("link/A.app")}) {
        SCOPED_TRACE(path);
        std::vector<pid_t> kept, ended;
        for (const Words& words : staying)
            kept.push_back(StartRecorder(words));
        for (const Words& words : ending)
            ended.push_back(StartRecorder(words));
        kept.push_back(Records().back().process);
        EXPECT_EQ(Records().back().executable, child);
        const Finished osascript = Quit(path, [this] { (void)!chdir(In("").c_str()); });
        EXPECT_EQ(osascript.code, 0) << osascript.errors;
        for (const pid_t process : ended)
            EXPECT_TRUE(EventuallyEnded(process));
        for (const pid_t process : kept)
            EXPECT_TRUE(IsRunning(process));
        EndChildren();
    }
}

TEST_F(OsascriptTest, SparesItselfAndItsParent) {
    const std::string bundle = MakeBundle("A.app");
    const std::string own = bundle + "/Contents/MacOS/osascript";
    WriteText(own, ReadText(Helper("osascript")), 0755);
    const std::string parent = bundle + "/Contents/MacOS/parent";
    const std::string result = In("result");
    WriteText(parent,
              "#!/bin/sh\n'" + own + "' -e \"$1\" \"$2\"\necho \"code $?\" >'" + result + "'\n",
              0755);
    Start({parent, Script(kQuit), bundle});
    EXPECT_TRUE(Eventually([&] { return ReadText(result) == "code 0\n"; }));
}

TEST_F(OsascriptTest, TakesTheStepsInOrderAndWaitsBehindAFailureToo) {
    const std::string bundle = MakeBundle("A.app");
    const std::string program = MakeRecorder(bundle + "/Contents/MacOS/program");
    const std::string quitFirst = std::string(kQuit) + "\ndelay 3600";
    const pid_t process = StartRecorder({program});
    StartWaiting("delay 3600.5\n" + std::string(kQuit), bundle);
    EXPECT_TRUE(IsRunning(process));
    const pid_t helper = StartWaiting(quitFirst, bundle);
    EXPECT_TRUE(EventuallyEnded(process));
    EXPECT_TRUE(IsRunning(helper));
    EXPECT_EQ(ReadText(In("messages")), "");
    EXPECT_TRUE(IsRunning(StartWaiting(quitFirst, In("missing.app"))));
    EXPECT_NE(ReadText(In("messages")).find("is no application"), std::string::npos);
}

TEST_F(OsascriptTest, QuittingWhatDoesNotRunIsNoFailureButAMissingBundleIs) {
    EXPECT_EQ(Quit(MakeBundle("A.app")).code, 0);
    MakeFolder("Folder/Contents");
    WriteText(In("Folder/Contents/MacOS"), "no folder");
    for (const std::string& path : {In("missing\n.app"), In("Folder")}) {
        const Words arguments = {"-e", Script(kQuit), path};
        const Finished osascript = Refused("osascript", arguments, 1, "is no application");
        EXPECT_EQ(osascript.errors.find('\n'), osascript.errors.size() - 1);
    }
}

TEST_F(OsascriptTest, DoesNothingForAnythingButItsLittleLanguage) {
    const std::string bundle = MakeBundle("A.app");
    const pid_t process = StartRecorder({MakeRecorder(bundle + "/Contents/MacOS/program")});
    const std::string quit = kQuit;
    const std::string whole = Script(quit);
    Words scripts = {"",
                     quit,
                     "on run {AppPath}\n" + quit,
                     whole + "\n",
                     whole + "\n" + quit,
                     "on run {}\nquit application \nend run",
                     "on run {App Path}\nquit application App Path\nend run",
                     "on run AppPath\n" + quit + "\nend run"};
    for (const char* step :
         {"", "delay", "delay ", "delay -1", "delay nan", "delay 1x", "delay 0x1",
          "delay 99999999999999999999", "quit application Other", "do shell script \"true\""})
        scripts.push_back(Script(quit + "\n" + step));
    for (const std::string& script : scripts)
        Refused("osascript", {"-e", script, bundle}, 2, "isn't understood");
    const std::vector<Words> calls = {{},
                                      {"-e", whole},
                                      {whole, bundle},
                                      {"-e", whole, ""},
                                      {"-x", whole, bundle},
                                      {"-e", whole, bundle, bundle}};
    for (const Words& arguments : calls)
        Refused("osascript", arguments, 2, "usage");
    EXPECT_TRUE(IsRunning(process));
}

}  // namespace
}  // namespace dunvey
