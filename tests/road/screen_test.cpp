#include <fstream>
#include <set>

#include "road/display.h"
#include "road/real_world.h"

namespace dunvey {
namespace {

using test::Words;

/// The finished program on an X server, used by keyboard and mouse.
class ChooserRoad : public test::RealWorld {
 protected:
    static constexpr char kChooser[] = "Marlit Id - Notification";

    ChooserRoad() {
        folder_.MakeFolder("config");
        Install("CS5", "7.0.4");
        Install("CS6", "8.1.0");
        Install("CC", "9.2.0");
    }

    pid_t StartOn(const Words& documents, const Words& extraVariables = {}) {
        settled_.clear();
        // A sanitizer that keeps what was freed would hide how much memory is in use.
        Words variables = {"DISPLAY=" + screen_.Name(), "XDG_RUNTIME_DIR=" + folder_.Path(),
                           "QT_LOGGING_RULES=*=false", "ASAN_OPTIONS=quarantine_size_mb=1"};
        variables.insert(variables.end(), extraVariables.begin(), extraVariables.end());
        return Start(documents, variables);
    }

    /// The window with that title that isn't `last`, once it has the keyboard and, if that matters,
    /// takes answers.
    std::string AwaitWindow(const std::string& title, const std::string& last = {},
                            bool forAnswers = true) {
        std::string window;
        EXPECT_TRUE(Await([&] {
            const std::string answer = screen_.Ask("getwindowfocus getwindowname getwindowfocus");
            const size_t line = answer.find('\n');
            window = line == answer.npos ? "" : answer.substr(line + 1);
            return answer.substr(0, line) == title && window != last;
        })) << "no window "
            << title;
        // A new window takes no answer for as long as a double click may last.
        if (forAnswers && settled_.insert(window).second) usleep(800'000);
        return window;
    }
    std::string AwaitChooser() { return AwaitWindow(kChooser); }

    void Key(const std::string& keys) { EXPECT_TRUE(screen_.Do("key " + keys)) << keys; }
    /// Double-clicks a row of the list, which is a short one.
    void DoubleClick(const std::string& window, int row) {
        const std::string geometry = screen_.Ask("getwindowgeometry --shell " + window);
        const size_t height = geometry.find("HEIGHT=");
        ASSERT_NE(height, geometry.npos) << geometry;
        // Without the menu bar the window is 356 high, and its first row begins at 109.
        const int menuBar = std::atoi(geometry.c_str() + height + 7) - 356;
        EXPECT_TRUE(screen_.Do("mousemove --sync --window " + window + " 200 " +
                               std::to_string(menuBar + 109 + 13 + 26 * row) +
                               " click --repeat 2 --delay 60 1"));
    }

    /// A running version; it is there when this returns.
    void Run(const std::string& suffix) {
        const size_t before = Records().size();
        ASSERT_EQ(Script("\"$1\" >/dev/null 2>&1 &", {ExecutablePath(suffix)}), 0);
        AwaitRecords(before + 1);
    }

    test::Display screen_{test::Display::Manager::Openbox};
    std::set<std::string> settled_;
};

TEST_F(ChooserRoad, ReturnOpensAndEscapeLeavesOut) {
    const auto kMissing = Document("missing.indd", 12);
    Install("2020", "15.0.0");
    pid_t program = StartOn({Document("plain.indd", 8), kMissing});
    AwaitChooser();
    Key("Escape");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(1), Words{"CS6: plain.indd|"});
    Run("CC");
    program = StartOn({kMissing});
    AwaitChooser();
    EXPECT_TRUE(screen_.Do("type --delay 40 2020"));
    for (const char* answer : {"Return", "Escape", "alt+F4", "Tab space"}) {
        Key("Return");
        AwaitWindow("Dunvey");
        EXPECT_EQ(Records().size(), 2U);
        Key(answer);
        if (answer[0] != 'T') AwaitChooser();
    }
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(3).back(), "2020: missing.indd|");
}

TEST_F(ChooserRoad, ADoubleClickOpensAndWithCommandAlsoInALowerVersion) {
    const auto document = Document("a.indd", 8);
    ASSERT_TRUE(screen_.Do("keydown Control_L"));
    pid_t program = StartOn({document});
    DoubleClick(AwaitChooser(), 0);
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(1), Words{"CS5: a.indd|"});
    ASSERT_TRUE(screen_.Do("keyup Control_L"));
    program = StartOn({document});
    const std::string window = AwaitChooser();
    DoubleClick(window, 2);
    EXPECT_EQ(AwaitChooser(), window) << "a version that isn't allowed stays";
    DoubleClick(window, 1);
    AwaitWindow("Dunvey");
    Key("Tab space");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(2).back(), "CS6: a.indd|");
}

TEST_F(ChooserRoad, AfterAVersionHasQuitTheOwnOneOpensTheDocument) {
    Install("Don't; it's", "9.5.0");
    Run("Don't; it's");
    const pid_t program = StartOn({Document("a.indd", 8)});
    AwaitChooser();
    EXPECT_TRUE(screen_.Do("type --delay 40 Don"));
    // From the list over the cancel button to the quit button; the open button is disabled.
    Key("Tab Tab space");
    EXPECT_TRUE(Await([this] { return !IsAlive(Records().at(0).process); }));
    // The request takes a second, then the window checks again and selects the own version.
    sleep(2);
    Key("Return");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(2).back(), "CS6: a.indd|");
}

TEST_F(ChooserRoad, QuitOpensNothingOfItsOwnRun) {
    const pid_t program = StartOn({Document("a.indd", 9), Document("b.indd", 12)});
    const std::string window = AwaitChooser();
    EXPECT_EQ(ExitCodeOf(StartOn({Document("c.indd", 8)})), 0);
    EXPECT_EQ(Starts(1), Words{"CS6: c.indd|"}) << "another start is a run of its own";
    Key("alt+h");
    Key("Down Return");
    AwaitWindow("Dunvey");
    Key("ctrl+w");
    EXPECT_EQ(AwaitChooser(), window) << "About was in front";
    Key("ctrl+q");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Records().size(), 1U);
}

TEST_F(ChooserRoad, AStartWithoutDocumentsWaitsForSome) {
    const std::string preferences = folder_ / "config/Dunvey/Dunvey.pref";
    const pid_t program = StartOn({});
    AwaitWindow("Dunvey");
    EXPECT_NE(access(preferences.c_str(), F_OK), 0);
    Key("Return");
    AwaitWindow("Choose documents…");
    EXPECT_TRUE(screen_.Do("type --delay 40 " + Document("a.indd", 8)));
    Key("Return");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(1), Words{"CS6: a.indd|"});
    EXPECT_EQ(access(preferences.c_str(), F_OK), 0) << "they are saved at the end";
    for (const char* key : {"ctrl+w", "ctrl+q", "alt+F4"}) {
        const pid_t closed = StartOn({});
        AwaitWindow("Dunvey");
        Key("Escape");
        Key(key);
        EXPECT_EQ(ExitCodeOf(closed), 0) << key;
    }
}

TEST_F(ChooserRoad, BothKeysHeldAtTheStartRemoveThePreferences) {
    const std::string stored =
        "{\"AllowOpenHigherVersion\":true,\"AllowQuitButtonActiveted\":false,"
        "\"NonReleaseVersion\":1,\"IconVersion\":\"8.0\"}";
    folder_.MakeFolder("config/Dunvey");
    for (const std::string keys :
         {"Alt_L", "Control_L", "Shift_L", "Control_L+Alt_L", "Control_L+Shift_L"}) {
        folder_.Write("config/Dunvey/Dunvey.pref", stored);
        EXPECT_TRUE(screen_.Do("keydown " + keys));
        const pid_t program = StartOn({});
        // Its window is shown after the preferences were read.
        EXPECT_TRUE(screen_.Do("search --sync --onlyvisible --name '^Dunvey$'"));
        kill(program, SIGKILL);
        ExitCodeOf(program);
        EXPECT_TRUE(screen_.Do("keyup " + keys));
        EXPECT_EQ(folder_.Read("config/Dunvey/Dunvey.pref"),
                  keys == "Control_L+Shift_L" ? "" : stored);
    }
}

/// The number of open descriptors of a process, and its own memory in KiB.
std::pair<long, long> DescriptorsAndMemory(pid_t process) {
    const std::string folder = "/proc/" + std::to_string(process);
    std::ifstream status(folder + "/status");
    std::string word;
    while (status >> word && word != "RssAnon:")
        continue;
    long memory = 0;
    status >> memory;
    return {std::distance(std::filesystem::directory_iterator(folder + "/fd"), {}), memory};
}

TEST_F(ChooserRoad, AHundredChoosersLeaveTheProcessAsItWas) {
    Words documents;
    for (int i = 0; i < 100; ++i)
        documents.push_back(Document(std::to_string(i) + ".indd", 12));
    const pid_t program = StartOn(documents);
    std::string window;
    std::pair<long, long> early;
    for (int i = 0; i < 100; ++i) {
        window = AwaitWindow(kChooser, window, false);
        if (i == 20) early = DescriptorsAndMemory(program);
        if (i == 99) {
            const auto [descriptors, memory] = DescriptorsAndMemory(program);
            EXPECT_EQ(descriptors, early.first);
            // Images, fonts and freed pieces vary a little; eighty windows would be far more.
            EXPECT_LT(memory, early.second + early.second / 10 + 1024);
        }
        Key("alt+F4");
    }
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_TRUE(Records().empty());
}

TEST_F(ChooserRoad, WithoutItsXServerTheProgramFails) {
    const pid_t program = StartOn({Document("plain.indd", 8), Document("missing.indd", 12)});
    AwaitChooser();
    screen_.BreakDown();
    EXPECT_EQ(ExitCodeOf(program), 1);
}

/// Weston in a window on the X server: key presses sent to the X server reach Weston's clients.
class Wayland : public test::RealWorld {
 protected:
    void SetUp() override {
        RealWorld::SetUp();
        Install("CS6", "8.1.0");
        if (access("/usr/bin/weston", X_OK) != 0) GTEST_SKIP() << "weston isn't installed";
        chmod(folder_.Path().c_str(), 0700);
        program_ = "/usr/bin/weston";
        compositor_ =
            Start({"--backend=x11-backend.so", "--use-pixman", "--no-config", "--idle-time=0",
                   "--shell=kiosk-shell.so", "--socket=test", "--log=" + folder_ / "weston"},
                  {"DISPLAY=" + screen_.Name(), runtime_});
        program_ = DUNVEY_PROGRAM;
        ASSERT_TRUE(Await([&] { return access((folder_ / "test").c_str(), F_OK) == 0; }));
    }

    /// Starts the program and returns it once its chooser has the keyboard.
    pid_t StartChooser() {
        // Qt's Wayland plug-ins leak a little, and are unloaded before the leak check.
        const pid_t program = Start(
            {Document("plain.indd", 8), Document("missing.indd", 12)},
            {runtime_, "WAYLAND_DISPLAY=test", "WAYLAND_DEBUG=1", "ASAN_OPTIONS=detect_leaks=0"});
        EXPECT_TRUE(Await([&] {
            const std::string messages = folder_.Read("stderr");
            const size_t title = messages.find("set_title(\"Marlit Id - Notification\")");
            const size_t keyboard = messages.find("wl_keyboard@", messages.find(".attach(", title));
            return title != messages.npos && messages.find(".enter(", keyboard) != messages.npos;
        }));
        return program;
    }

    test::Display screen_;
    std::string runtime_ = "XDG_RUNTIME_DIR=" + folder_.Path();
    pid_t compositor_ = 0;
};

TEST_F(Wayland, TheChooserAppearsAndTakesAnswers) {
    const pid_t program = StartChooser();
    // The chooser ignores answers at first, for the time of a double click.
    EXPECT_TRUE(Await([&] { return !screen_.Do("key Escape") || !IsAlive(program); }));
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(1), std::vector<std::string>{"CS6: plain.indd|"});
}

TEST_F(Wayland, ControlAndADoubleClickOpenAnOlderVersion) {
    const pid_t program = StartChooser();
    EXPECT_TRUE(screen_.Do("keydown Control_L"));
    // The window fills the screen; the only row is at the top of the list.
    const std::string words = "mousemove 432 200 mousemove 432 156 click --repeat 2 --delay 20 1";
    EXPECT_TRUE(Await([&] { return !screen_.Do(words) || !IsAlive(program); }));
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(2), (std::vector<std::string>{"CS6: plain.indd|", "CS6: missing.indd|"}));
}

TEST_F(Wayland, ACompositorThatDiesEndsTheProgram) {
    const pid_t program = StartChooser();
    kill(compositor_, SIGTERM);
    EXPECT_EQ(ExitCodeOf(program), 1);
}

}  // namespace
}  // namespace dunvey
