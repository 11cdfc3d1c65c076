#include "platform/linux/helpers/program_windows.h"

#include <gtest/gtest.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "road/display.h"

namespace dunvey {
namespace {

/// Windows as programs make them, without a window manager.
class ProgramWindows : public testing::Test {
 protected:
    ProgramWindows() {
        setenv("DISPLAY", display_.Name().c_str(), 1);
        connection_ = xcb_connect(nullptr, nullptr);
        screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
    }
    ~ProgramWindows() override { xcb_disconnect(connection_); }

    xcb_atom_t Atom(const std::string& name) {
        const auto length = static_cast<uint16_t>(name.size());
        const auto cookie = xcb_intern_atom(connection_, 0, length, name.c_str());
        xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(connection_, cookie, nullptr);
        const xcb_atom_t atom = reply->atom;
        free(reply);
        return atom;
    }
    void Set(xcb_window_t window, const char* name, const std::vector<uint32_t>& values) {
        xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, Atom(name), XCB_ATOM_ATOM,
                            32, static_cast<uint32_t>(values.size()), values.data());
    }
    /// A window of a process, shown and closable.
    xcb_window_t Window(pid_t process) {
        const xcb_window_t window = xcb_generate_id(connection_);
        xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window, screen_->root, 0, 0, 9, 9, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        if (process != 0) Set(window, "_NET_WM_PID", {static_cast<uint32_t>(process)});
        Set(window, "WM_PROTOCOLS", {Atom("WM_DELETE_WINDOW")});
        xcb_map_window(connection_, window);
        return window;
    }
    void Sync() {
        free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    }
    /// How many close requests have arrived since the last call.
    size_t Requests() {
        Sync();
        size_t count = 0;
        while (xcb_generic_event_t* event = xcb_poll_for_event(connection_)) {
            count += (event->response_type & 0x7F) == XCB_CLIENT_MESSAGE;
            free(event);
        }
        return count;
    }
    CloseRequest Ask(pid_t asked = kOwn) {
        Sync();
        return RequestClose([asked](pid_t process) { return process == asked; });
    }

    static constexpr pid_t kOwn = 12'345;
    test::Display display_;
    xcb_connection_t* connection_ = nullptr;
    xcb_screen_t* screen_ = nullptr;
};

TEST_F(ProgramWindows, AreAskedToCloseAndNoOthers) {
    Window(0);
    Window(kOwn + 1);
    EXPECT_EQ(Ask(), CloseRequest::NoWindow);
    const xcb_window_t first = Window(kOwn);
    const xcb_window_t second = Window(kOwn);
    EXPECT_EQ(Ask(), CloseRequest::Sent);
    EXPECT_EQ(Requests(), 2U);
    for (const xcb_window_t window : {first, second})
        xcb_unmap_window(connection_, window);
    EXPECT_EQ(Ask(), CloseRequest::Hidden);
    const xcb_window_t deaf = Window(kOwn);
    xcb_delete_property(connection_, deaf, Atom("WM_PROTOCOLS"));
    EXPECT_EQ(Ask(), CloseRequest::Refused);
    EXPECT_EQ(Requests(), 0U);
}

TEST_F(ProgramWindows, AreFoundByTheProcessThatMadeThem) {
    Window(0);
    EXPECT_EQ(Ask(getpid()), CloseRequest::Sent);
    Window(kOwn);  // as a container numbers its processes
    EXPECT_EQ(Ask(getpid()), CloseRequest::Sent);
    EXPECT_EQ(Requests(), 3U);
}

TEST_F(ProgramWindows, AreLeftAloneWhileTheProgramAsks) {
    const xcb_window_t window = Window(kOwn);
    const xcb_window_t dialog = Window(kOwn);
    Set(dialog, "WM_TRANSIENT_FOR", {window});
    EXPECT_EQ(Ask(), CloseRequest::Asking);
    // A palette isn't a question: by its type, or by the owner's hints as Wine sets them.
    Set(dialog, "_NET_WM_WINDOW_TYPE", {Atom("_NET_WM_WINDOW_TYPE_UTILITY")});
    EXPECT_EQ(Ask(), CloseRequest::Sent);
    Set(dialog, "_NET_WM_WINDOW_TYPE", {Atom("_NET_WM_WINDOW_TYPE_DIALOG")});
    EXPECT_EQ(Ask(), CloseRequest::Asking);
    Set(window, "_MOTIF_WM_HINTS", {3, 0x3E, 0, 0, 0});
    EXPECT_EQ(Ask(), CloseRequest::Sent);
    Set(dialog, "_NET_WM_STATE", {Atom("_NET_WM_STATE_MODAL")});
    EXPECT_EQ(Ask(), CloseRequest::Asking);
    EXPECT_EQ(Requests(), 2U);
}

TEST_F(ProgramWindows, AServerThatIsGoneIsNoProgramWithoutWindows) {
    Window(kOwn);
    display_.BreakDown();
    EXPECT_EQ(Ask(), CloseRequest::NoAnswer);
}

}  // namespace
}  // namespace dunvey
