#include "register/register_world.h"
#include "support/hostile_names.h"

namespace dunvey::test {
namespace {

/// What a registered application does.
class RegisterTest : public RegisterWorld {
 protected:
    bool IsRunning(const std::string& name) {
        EXPECT_EQ(Script("'" DUNVEY_HELPERS "/ps' -ax -o comm >processes"), 0);
        return Has("processes", (folder_ / ScriptOf(name)) + "\n");
    }
};

TEST_F(RegisterTest, CommandGetsItsWordsAndTheDocumentsByteForByte) {
    Words words = HostileNames();
    words.emplace_back();
    Words command = words;
    command.insert(command.begin(), DUNVEY_RECORDER);
    ASSERT_EQ(RegisterCommand(kName, "8.0.1", command), 0) << folder_.Read("stderr");
    for (const char* name : {"plain.indd", "$(touch canary) 'it\"s\n-.indd"})
        words.push_back(Document(name, 8));
    ASSERT_EQ(Dunvey({words.end() - 2, words.end()}), 0);
    EXPECT_EQ(folder_.Read("stderr"), "");
    EXPECT_EQ(AwaitRecords(1).at(0).arguments, words);
    EXPECT_EQ(Script("! find . -name 'canary*' | grep ."), 0);
}

TEST_F(RegisterTest, ApplicationGetsSigtermAndRunsUntilItsCommandEnds) {
    const std::string name = "Adobe InDesign CC";
    folder_.Write("slow",
                  "trap 'echo asked >>\"$HOME/asked\"' TERM; echo ready >\"$HOME/ready\"\n"
                  "until [ -e \"$HOME/over\" ]; do sleep 0.05; done\n");
    ASSERT_EQ(RegisterCommand(name, "9.2", {"/bin/sh", folder_ / "slow"}), 0);
    ASSERT_EQ(Dunvey({Document("a.indd", 9)}), 0);
    ASSERT_TRUE(Await([this] { return Has("ready", "ready"); }));
    for (const std::string asked : {"asked\n", "asked\nasked\n"}) {
        EXPECT_EQ(Script("exec '" DUNVEY_HELPERS
                         "/osascript' -e 'on run {n}\nquit application n\nend run' \"$1\"",
                         {folder_ / BundleOf(name)}),
                  0);
        EXPECT_TRUE(Await([&] { return folder_.Read("asked") == asked; }));
        EXPECT_TRUE(IsRunning(name));
    }
    folder_.Write("over", "yes");
    EXPECT_TRUE(Await([&] { return !IsRunning(name); }));
}

TEST_F(RegisterTest, NamesOfAllKindsAreFoundListedAndRemoved) {
    const std::string longest(236, 'x');
    size_t opened = 0;
    for (const char* suffix : {"CS6", "it's $(touch canary) `x`", "<&lt;\"]]>\\", "-rf *",
                               "\xE6\x97\xA5\xE6\x9C\xAC", longest.c_str()}) {
        const std::string name = std::string("Adobe InDesign ") + suffix;
        ASSERT_EQ(RegisterCommand(name, "8.0.1", {DUNVEY_RECORDER, "for\n", name}), 0)
            << folder_.Read("stderr");
        const std::string line = name + "  8.0.1  " + DUNVEY_RECORDER + " for'\xE2\x90\x8A' ";
        EXPECT_EQ(List().substr(0, line.size()), line);
        EXPECT_EQ(Dunvey({Document("a.indd", 8)}), 0);
        EXPECT_EQ(AwaitRecords(++opened).back().arguments,
                  (Words{"for\n", name, folder_ / "a.indd"}));
        EndAll();
        EXPECT_EQ(Register({"--remove", name}), 0) << folder_.Read("stderr");
        EXPECT_EQ(Tree(), "Applications\n");
    }
}

TEST_F(RegisterTest, CommandsThatDoNotWorkAreExplained) {
    ASSERT_EQ(Script("ln -s '" DUNVEY_PROGRAM "' link; cp /bin/true wine"), 0);
    // A command, its exit code and its message.
    const std::tuple<Words, int, const char*> cases[] = {
        {{"A=1", "/bin/true"}, 1, "env A=1"},
        {{DUNVEY_PROGRAM}, 1, "again and again"},
        {{"./link"}, 1, "again and again"},
        {{"env", "-i", "A=1", DUNVEY_PROGRAM}, 1, "again and again"},
        {{"./wine", "start", "x.exe"}, 0, "warning"},
        {{"./wine", "x.exe"}, 0, ""},
        {{folder_ / ScriptOf(kName)}, 1, "dunvey-register"}};
    for (const auto& [command, code, message] : cases) {
        EXPECT_EQ(RegisterCommand(kName, "8", command), code) << command[0];
        EXPECT_TRUE(Has("stderr", message)) << folder_.Read("stderr");
        EXPECT_EQ(folder_.Read("stderr").empty(), *message == '\0') << command[0];
    }
}

TEST_F(RegisterTest, DocumentsReachAWindowsProgramByWindowsPaths) {
    folder_.MakeFolder("bin");
    folder_.MakeFolder("pre fix/dosdevices");
    folder_.Write("pre fix/ID.exe", "");
    folder_.Write(
        "bin/wine",
        "#!/bin/sh\nif [ \"$1\" != winepath.exe ]; then\n"
        "    exec '" DUNVEY_RECORDER
        "' \"$WINEPREFIX\" \"$@\"\nfi\nshift 2\n"
        "printf 'Z:%s\\r\\n' \"$@\" | tr / '\\\\' | sed 's/^Z:.*unseen/\\\\\\\\?\\\\unix&/'\n");
    ASSERT_EQ(Script("chmod +x bin/wine"), 0);
    ASSERT_EQ(
        Register({"--name", kName, "--version", "8", "--wine=pre fix", "pre fix/ID.exe", "/x"},
                 "PATH=\"$HOME/bin:$PATH\""),
        0)
        << folder_.Read("stderr");
    const Words words = {ScriptOf(kName),      folder_ / "it's $(x).indd", folder_ / "a:b.indd",
                         folder_ / "c\n.indd", folder_ / "unseen.indd",    folder_ / "end./d.indd"};
    EXPECT_EQ(Script("export DUNVEY_RECORD_EXIT=1; exec \"$@\"", words), 0);
    std::string windows = "Z:" + words[1];
    std::replace(windows.begin(), windows.end(), '/', '\\');
    EXPECT_EQ(AwaitRecords(1).at(0).arguments,
              (Words{folder_ / "pre fix", folder_ / "pre fix/ID.exe", "/x", windows}));
    for (const char* refused : {"a:b", "c\n", "unseen", "d.indd"})
        EXPECT_TRUE(Has("stderr", refused)) << refused;
    EXPECT_FALSE(Has("stderr", "it's"));
}

TEST_F(RegisterTest, ScriptTellsTheUserOfAMissingOrFailingCommand) {
    const std::string tools = "PATH=\"$HOME/bin:$PATH\" DISPLAY=:0; export DISPLAY; ";
    const std::string run = "exec \"$1\"";
    folder_.MakeFolder("bin");
    ASSERT_EQ(Script("cd bin; printf '#!/bin/sh\\necho \"${0##*/} $*\" >>~/told\\n' >notify-send; "
                     "cp notify-send zenity; chmod +x *; cp zenity ../start"),
              0);
    // SIGINT ends the command, since it isn't ignored.
    ASSERT_EQ(RegisterCommand(kName, "8", {"sh", "-c", "kill -INT $$; exit 3"}), 0);
    EXPECT_EQ(Script(tools + run, {ScriptOf(kName)}), 130);
    EXPECT_TRUE(Has("told", "notify-send -u critical"));
    EXPECT_TRUE(Has("told", "exit code 130"));

    // Without a session bus notify-send fails.
    ASSERT_EQ(RegisterCommand(kName, "8", {"./start"}), 0);
    ASSERT_EQ(Script("rm told start; echo 'exit 1' >>bin/notify-send"), 0);
    EXPECT_EQ(Script(tools + run, {ScriptOf(kName)}), 127);
    EXPECT_TRUE(Await([this] { return Has("told", "zenity --error"); }));
    EXPECT_TRUE(Has("stderr", "start\" is missing"));
}

}  // namespace
}  // namespace dunvey::test
