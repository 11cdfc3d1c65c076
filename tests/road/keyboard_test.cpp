#include "road/display.h"
#include "road/real_world.h"

namespace dunvey {
namespace {

class KeyboardTest : public test::RealWorld {
 protected:
    /// Whether a start with these keys held down keeps the stored values.
    bool KeepsPreferences(const std::string& keys) {
        folder_.MakeFolder("config/Dunvey");
        folder_.Write("config/Dunvey/Dunvey.pref",
                      "{\"AllowOpenHigherVersion\":true,\"AllowQuitButtonActiveted\":false,"
                      "\"NonReleaseVersion\":1,\"IconVersion\":\"8.0\"}");
        EXPECT_TRUE(keys.empty() || display_.Do("keydown " + keys));
        const pid_t program = Start({}, {"DISPLAY=" + display_.Name()});
        // Its window is shown after the preferences were read.
        EXPECT_TRUE(display_.Do("search --sync --onlyvisible --name '^Dunvey$'"));
        kill(program, SIGKILL);
        ExitCodeOf(program);
        EXPECT_TRUE(keys.empty() || display_.Do("keyup " + keys));
        return folder_.Read("config/Dunvey/Dunvey.pref").find("\":true") != std::string::npos;
    }

    test::Display display_;
};

TEST_F(KeyboardTest, BothKeysHeldAtTheStartRemoveThePreferences) {
    ASSERT_NE(display_.Name(), "") << "no Xvfb";
    EXPECT_TRUE(KeepsPreferences(""));
    EXPECT_TRUE(KeepsPreferences("Control_L"));
    EXPECT_TRUE(KeepsPreferences("Shift_L"));
    EXPECT_TRUE(KeepsPreferences("Control_L+Alt_L"));
    EXPECT_FALSE(KeepsPreferences("Control_L+Shift_L"));
    EXPECT_TRUE(KeepsPreferences(""));
}

}  // namespace
}  // namespace dunvey
