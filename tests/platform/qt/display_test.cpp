#include "platform/qt/display.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace dunvey {
namespace {

TEST(ReachDisplayTest, NamesOfPlatformsAreTakenInAnyCaseAndOneThatStartsIsEnough) {
    const std::string before = std::getenv("QT_QPA_PLATFORM");
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    for (const auto& [names, isReached] : {std::pair{"offscreen", true},
                                           {"OffScreen", true},
                                           {"XCB;Minimal", true},
                                           {"xcb;;offscreen:options", true},
                                           {"xcb", false},
                                           {"XCB", false},
                                           {"Wayland;xcb", false},
                                           {"none such", false},
                                           {"off*", false}}) {
        setenv("QT_QPA_PLATFORM", names, 1);
        EXPECT_EQ(ReachDisplay().has_value(), isReached) << names;
    }
    setenv("QT_QPA_PLATFORM", before.c_str(), 1);
}

}  // namespace
}  // namespace dunvey
