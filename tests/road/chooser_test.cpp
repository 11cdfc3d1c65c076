#include <dirent.h>

#include <fstream>
#include <set>

#include "road/display.h"
#include "road/real_world.h"

namespace dunvey {
namespace {

/// The real program with a window on a real screen, and a user with a keyboard and a mouse.
class ChooserRoad : public test::RealWorld {
 protected:
    static constexpr char kChooser[] = "Marlit Id - Notification";

    ChooserRoad() {
        folder_.MakeFolder("config");
        Install("CS5", "7.0.4");
        Install("CS6", "8.1.0");
        Install("CC", "9.2.0");
    }

    pid_t StartOn(const std::vector<std::string>& documents,
                  const std::vector<std::string>& extraVariables = {}) {
        settled_.clear();
        // A sanitizer that keeps what was freed would hide how much memory is in use.
        std::vector<std::string> variables = {
            "DISPLAY=" + screen_.Name(), "XDG_RUNTIME_DIR=" + folder_.Path(),
            "QT_LOGGING_RULES=*=false", "ASAN_OPTIONS=quarantine_size_mb=1"};
        variables.insert(variables.end(), extraVariables.begin(), extraVariables.end());
        return Start(documents, variables);
    }

    /// The window with that title that isn't `last`, once it has the keyboard and, if that matters,
    /// takes answers.
    std::string Await(const std::string& title, const std::string& last = {},
                      bool forAnswers = true) {
        for (int i = 0; i < 600; ++i) {
            const std::string answer = screen_.Ask("getwindowfocus getwindowname getwindowfocus");
            const size_t line = answer.find('\n');
            const std::string window = line == answer.npos ? "" : answer.substr(line + 1);
            if (answer.substr(0, line) == title && window != last) {
                // A fresh window takes no answer for as long as a double click may last.
                if (forAnswers && settled_.insert(window).second) usleep(800'000);
                return window;
            }
            usleep(20'000);
        }
        ADD_FAILURE() << "no window " << title;
        return "";
    }
    std::string AwaitChooser(const std::string& last = {}) { return Await(kChooser, last); }

    void Key(const std::string& keys) { EXPECT_TRUE(screen_.Do("key " + keys)) << keys; }
    /// How high the menu bar is: what the window has above the height of a short list.
    int MenuBarHeight(const std::string& window) {
        const std::string geometry = screen_.Ask("getwindowgeometry --shell " + window);
        const size_t height = geometry.find("HEIGHT=");
        if (height == geometry.npos) return 0;
        return std::atoi(geometry.c_str() + height + std::string("HEIGHT=").size()) - 356;
    }
    /// Clicks into a row of the list, which is a short one.
    void Click(const std::string& window, int row, int times) {
        const std::string place =
            "200 " + std::to_string(MenuBarHeight(window) + 109 + 13 + 26 * row);
        EXPECT_TRUE(screen_.Do("mousemove --sync --window " + window + " " + place +
                               " click --repeat " + std::to_string(times) + " --delay 60 1"));
    }

    /// A running version; it is there when this returns.
    void Run(const std::string& suffix) {
        const size_t before = Records().size();
        const std::string command = "DUNVEY_RECORD='" + folder_.Path() + "/records' \"" +
                                    ExecutablePath(suffix) + "\" >/dev/null 2>&1 &";
        ASSERT_EQ(system(command.c_str()), 0);
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
    EXPECT_EQ(Starts(1), std::vector<std::string>{"CS6: plain.indd|"});
    Run("CC");
    program = StartOn({kMissing});
    AwaitChooser();
    EXPECT_TRUE(screen_.Do("type --delay 40 2020"));
    Key("Return");
    Await("Dunvey");
    Key("Tab space");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(3).back(), "2020: missing.indd|");
}

TEST_F(ChooserRoad, ADoubleClickOpensAndWithCommandAlsoInALowerVersion) {
    const auto document = Document("a.indd", 8);
    ASSERT_TRUE(screen_.Do("keydown Control_L"));
    pid_t program = StartOn({document});
    Click(AwaitChooser(), 0, 2);
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(1), std::vector<std::string>{"CS5: a.indd|"});
    ASSERT_TRUE(screen_.Do("keyup Control_L"));
    program = StartOn({document});
    std::string window = AwaitChooser();
    Click(window, 2, 2);
    EXPECT_EQ(AwaitChooser(), window) << "a version that isn't allowed stays";
    Click(window, 1, 2);
    Await("Dunvey");
    Key("Tab space");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(2).back(), "CS6: a.indd|");
}

TEST_F(ChooserRoad, AVersionIsQuitAndTheWayIsClear) {
    Install("Don't; it's", "9.5.0");
    Run("Don't; it's");
    const pid_t program = StartOn({Document("a.indd", 8)});
    const std::string window = AwaitChooser();
    EXPECT_TRUE(screen_.Do("type --delay 40 Don"));
    // From the list over the cancel button to the quit button; the open button is disabled.
    Key("Tab Tab space");
    for (int i = 0; i < 600 && IsAlive(Records()[0].process); ++i)
        usleep(50'000);
    EXPECT_FALSE(IsAlive(Records()[0].process));
    // The request takes its second, then the window is judged anew; the own version is selected.
    sleep(2);
    Key("Return");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(2).back(), "CS6: a.indd|");
}

TEST_F(ChooserRoad, TheWarningOfMixedVersionsTakesThreeAnswers) {
    Run("CC");
    const auto document = Document("a.indd", 8);
    const auto warned = [&] {
        const pid_t program = StartOn({document});
        AwaitChooser();
        Key("Return");
        Await("Dunvey");
        return program;
    };
    for (const char* key : {"Return", "Escape", "alt+F4"}) {
        const pid_t program = warned();
        Key(key);
        AwaitChooser();
        Key("Escape");
        EXPECT_EQ(ExitCodeOf(program), 0);
        EXPECT_EQ(Records().size(), 1U) << "nothing was opened";
    }
    const pid_t program = warned();
    Key("Tab space");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(2).back(), "CS6: a.indd|");
}

TEST_F(ChooserRoad, CommandLetGoBetweenTwoDocuments) {
    ASSERT_TRUE(screen_.Do("keydown Control_L"));
    const pid_t program = StartOn({Document("b.indd", 9), Document("a.indd", 8)});
    AwaitChooser();
    ASSERT_TRUE(screen_.Do("keyup Control_L"));
    Key("Return");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(2), (std::vector<std::string>{"CS6: a.indd|", "CC: b.indd|"}));
}

TEST_F(ChooserRoad, ASecondStartIsARunOfItsOwn) {
    const pid_t first = StartOn({Document("missing.indd", 12)});
    const std::string window = AwaitChooser();
    EXPECT_EQ(ExitCodeOf(StartOn({Document("a.indd", 8)})), 0);
    EXPECT_EQ(Starts(1), std::vector<std::string>{"CS6: a.indd|"});
    EXPECT_EQ(AwaitChooser(), window) << "the first one still asks";
    Key("alt+F4");
    EXPECT_EQ(ExitCodeOf(first), 0);
}

TEST_F(ChooserRoad, QuitOpensNothingAndAboutIsReachedByTheKeyboard) {
    const std::vector<std::string> documents = {Document("a.indd", 8), Document("b.indd", 12)};
    const pid_t program = StartOn(documents);
    const std::string window = AwaitChooser();
    Key("alt+h");
    Key("Down Return");
    const std::string about = Await("Dunvey");
    Key("Escape");
    EXPECT_EQ(AwaitChooser(), window);
    Key("alt+h");
    Key("Down Return");
    Await("Dunvey", about);
    Key("ctrl+w");
    EXPECT_EQ(AwaitChooser(), window) << "the command went to the window in front";
    Key("ctrl+q");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_TRUE(Records().empty());
}

TEST_F(ChooserRoad, AStartWithoutDocumentsWaitsForSome) {
    const std::string preferences = folder_ / "config/Dunvey/Dunvey.pref";
    pid_t program = StartOn({});
    Await("Dunvey");
    EXPECT_NE(access(preferences.c_str(), F_OK), 0);
    Key("alt+F4");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(access(preferences.c_str(), F_OK), 0) << "they are saved";
    const std::string document = Document("a.indd", 8);
    program = StartOn({});
    const std::string dock = Await("Dunvey");
    Key("Return");
    Await("Choose documents…");
    EXPECT_TRUE(screen_.Do("type --delay 40 " + document));
    Key("Return");
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(Starts(1), std::vector<std::string>{"CS6: a.indd|"});
}

/// The number of open descriptors of a process.
size_t Descriptors(pid_t process) {
    size_t count = 0;
    DIR* folder = opendir(("/proc/" + std::to_string(process) + "/fd").c_str());
    while (folder != nullptr && readdir(folder) != nullptr)
        ++count;
    if (folder != nullptr) closedir(folder);
    return count;
}

/// The memory of a process that is its own and in use, in KiB.
size_t Memory(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    size_t kibibytes = 0;
    for (std::string word; status >> word;)
        if (word == "RssAnon:") status >> kibibytes;
    return kibibytes;
}

TEST_F(ChooserRoad, AHundredChoosersLeaveTheProcessAsItWas) {
    std::vector<std::string> documents;
    for (int i = 0; i < 100; ++i)
        documents.push_back(Document(std::to_string(i) + ".indd", 12));
    const pid_t program = StartOn(documents);
    std::string window;
    size_t descriptors = 0;
    size_t memory = 0;
    for (int i = 0; i < 100; ++i) {
        window = Await(kChooser, window, false);
        if (i == 20) descriptors = Descriptors(program);
        if (i == 20) memory = Memory(program);
        if (i == 99) {
            EXPECT_EQ(Descriptors(program), descriptors);
            // Pictures, fonts and freed pieces vary a little; eighty windows would be far more.
            EXPECT_LT(Memory(program), memory + memory / 10 + 1024);
        }
        Key("alt+F4");
    }
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_TRUE(Records().empty());
}

TEST_F(ChooserRoad, WhereTheScreenGoesAwayTheProgramFails) {
    const pid_t program = StartOn({Document("plain.indd", 8), Document("missing.indd", 12)});
    AwaitChooser();
    screen_.BreakDown();
    EXPECT_EQ(ExitCodeOf(program), 1);
}

TEST_F(ChooserRoad, ANamedPlatformThatCannotStartCostsNothing) {
    for (const char* platform : {"wayland", "no-such-platform"}) {
        const pid_t program =
            StartOn({Document("plain.indd", 8), Document("missing.indd", 12)},
                    {std::string("QT_QPA_PLATFORM=") + platform, "WAYLAND_DISPLAY=none"});
        AwaitChooser();
        Key("Escape");
        EXPECT_EQ(ExitCodeOf(program), 0) << platform;
        EXPECT_EQ(Starts(1)[0], "CS6: plain.indd|") << platform;
        EndAll();
    }
}

}  // namespace
}  // namespace dunvey
