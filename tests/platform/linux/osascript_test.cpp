#include "platform/linux/helper_test.h"

namespace dunvey {
namespace {

const std::string kQuit = "quit application AppPath";

std::string Script(const std::string& steps) {
    return "on run {AppPath}\n" + steps + "\nend run";
}

class OsascriptTest : public HelperTest {
 protected:
    OsascriptTest() {
        unsetenv("DISPLAY");
        unsetenv("WAYLAND_DISPLAY");
    }
    static bool EventuallyEnded(pid_t process) {
        return Eventually([&] { return !IsRunning(process); });
    }
    /// Starts the helper and waits until it sleeps.
    pid_t StartWaiting(const std::string& steps, const std::string& bundle) const {
        const pid_t helper = Start({Helper("osascript"), "-e", Script(steps), bundle}, [this] {
            dup2(open(In("messages").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600), STDERR_FILENO);
        });
        const std::string sleeping = std::to_string(helper) + " (osascript) S";
        EXPECT_TRUE(Eventually(
            [&] { return ReadText(ProcessFile(helper, "stat")).starts_with(sleeping); }));
        return helper;
    }

    const std::string bundle_ = MakeBundle("Folder/A.app");
    const std::string programs_ = bundle_ + "/Contents/MacOS/";
    const std::string program_ = MakeRecorder(programs_ + "program");
};

TEST_F(OsascriptTest, EndsTheProcessesOfTheBundleAndNoOthers) {
    ASSERT_EQ(symlink("Folder", In("link").c_str()), 0);
    MakeFolder("Folder/A.app/Contents/MacOS/Deeper");
    MakeFolder("Folder/A.app/Contents/MacOS (old)");
    const std::string child = MakeRecorder(bundle_ + "/Contents/child");
    MakeProgram(programs_ + "wrapper", "#!/bin/sh\n'" + child + "'\nexit 5\n");
    const Words staying[] = {
        {"/bin/bash", "-c", "exec -a \"$0\" \"$1\"", program_, MakeRecorder(In("liar"))},
        {MakeRecorder(bundle_ + "/Contents/MacOS (old)/program")},
        {MakeRecorder(In("reader")), programs_ + "wrapper"}};
    const Words ending[] = {{program_},
                            {In("link/A.app/Contents/MacOS/program")},
                            {MakeRecorder(programs_ + "Deeper/program")},
                            {In("link/A.app/Contents/MacOS/wrapper")},
                            {programs_ + "wrapper"}};
    for (const std::string& path : {bundle_, In("link/A.app//"), std::string("link/A.app")}) {
        SCOPED_TRACE(path);
        std::vector<pid_t> kept, ended;
        for (const Words& words : staying)
            kept.push_back(StartRecorder(words));
        for (const Words& words : ending)
            ended.push_back(StartRecorder(words));
        kept.push_back(Records().back().process);
        EXPECT_EQ(Records().back().executable, child);
        const Finished osascript = Run("osascript", {"-e", Script(kQuit + "\ndelay 0"), path},
                                       [this] { (void)!chdir(In("").c_str()); });
        EXPECT_EQ(osascript.code, 0) << osascript.errors;
        for (const pid_t process : ended)
            EXPECT_TRUE(EventuallyEnded(process));
        for (const pid_t process : kept)
            EXPECT_TRUE(IsRunning(process));
        EndChildren();
    }
    EXPECT_EQ(Run("osascript", {"-e", Script(kQuit), bundle_}).code, 0) << "nothing runs";
}

TEST_F(OsascriptTest, TakesTheStepsInOrderAndWaitsAfterAFailureToo) {
    const pid_t process = StartRecorder({program_});
    StartWaiting("delay 3600.5\n" + kQuit, bundle_);
    EXPECT_TRUE(IsRunning(process));
    const pid_t helper = StartWaiting(kQuit + "\ndelay 3600", bundle_);
    EXPECT_TRUE(EventuallyEnded(process));
    EXPECT_TRUE(IsRunning(helper));
    EXPECT_EQ(ReadText(In("messages")), "");
    EXPECT_TRUE(IsRunning(StartWaiting(kQuit + "\ndelay 3600", In("missing.app"))));
    EXPECT_NE(ReadText(In("messages")).find("is no application"), std::string::npos);
}

TEST_F(OsascriptTest, RefusesWhatIsNoScriptOrNoApplication) {
    const pid_t process = StartRecorder({program_});
    const std::string whole = Script(kQuit);
    Words scripts = {"", kQuit, whole + "\n" + kQuit};
    for (const char* step : {"", "delay", "delay -1", "delay nan", "delay 1x",
                             "quit application Other", "do shell script \"true\""})
        scripts.push_back(Script(kQuit + "\n" + step));
    for (const std::string& script : scripts)
        Refused("osascript", {"-e", script, bundle_}, 2, "isn't understood");
    for (const Words& words : {Words(), {"-e", whole}, {"-x", whole, bundle_}})
        Refused("osascript", words, 2, "usage");
    MakeProgram(MakeFolder("Other/Contents") + "/MacOS", "no folder");
    for (const std::string& path : {In("missing\n.app"), In("Other")})
        Refused("osascript", {"-e", whole, path}, 1, "\" is no application");
    EXPECT_TRUE(IsRunning(process));
}

}  // namespace
}  // namespace dunvey
