#include "platform/qt/display.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace dunvey {
namespace {

TEST(ReachDisplayTest, TakesTheFirstPlatformThatCanShowWindows) {
    const std::string before = std::getenv("QT_QPA_PLATFORM");
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    using Row = std::pair<const char*, const char*>;
    for (const auto& [names, reached] :
         {Row{"OffScreen", "OffScreen"}, Row{"XCB;Minimal", "Minimal"},
          Row{"xcb;;offscreen:options", "offscreen:options"},
          Row{"linuxfb;eglfs;offscreen", "offscreen"}, Row{"xcb", ""}, Row{"Wayland;xcb", ""},
          Row{"none such", ""}, Row{"off*", ""}}) {
        setenv("QT_QPA_PLATFORM", names, 1);
        const std::optional<Display> display = ReachDisplay();
        EXPECT_EQ(display ? display->platform : "", reached) << names;
        EXPECT_STREQ(std::getenv("QT_QPA_PLATFORM"), names) << "commands inherit it";
    }
    setenv("QT_QPA_PLATFORM", before.c_str(), 1);
}

}  // namespace
}  // namespace dunvey
