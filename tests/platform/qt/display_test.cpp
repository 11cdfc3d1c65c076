#include "platform/qt/display.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace dunvey {
namespace {

TEST(ReachDisplayTest, TakesTheFirstPlatformThatCanShowWindows) {
    const std::string before = std::getenv("QT_QPA_PLATFORM");
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    for (const auto& [names, reached] : {std::pair{"offscreen", "offscreen"},
                                         {"OffScreen", "OffScreen"},
                                         {"XCB;Minimal", "Minimal"},
                                         {"xcb;;offscreen:options", "offscreen:options"},
                                         {"linuxfb;eglfs;offscreen", "offscreen"},
                                         {"linuxfb", ""},
                                         {"xcb", ""},
                                         {"Wayland;xcb", ""},
                                         {"none such", ""},
                                         {"off*", ""}}) {
        setenv("QT_QPA_PLATFORM", names, 1);
        const std::optional<Display> display = ReachDisplay();
        EXPECT_EQ(display ? display->platform : "", reached) << names;
        EXPECT_STREQ(std::getenv("QT_QPA_PLATFORM"), names) << "commands inherit it";
    }
    setenv("QT_QPA_PLATFORM", before.c_str(), 1);
}

}  // namespace
}  // namespace dunvey
