#include "road/display.h"
#include "road/real_world.h"

namespace dunvey {
namespace {

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
