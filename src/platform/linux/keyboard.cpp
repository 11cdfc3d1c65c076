#include "platform/loop/keyboard.h"

#include <xcb/xcb.h>

#include <cstdlib>

#include "platform/linux/bounded_call.h"
#include "platform/loop/desktop.h"

namespace dunvey::Keyboard {
namespace {

constexpr int kMaxMilliseconds = 500;

/// The modifier keys held down, as the X server reports them; 0 without a server.
uint8_t QueryModifiers() {
    xcb_connection_t* const server = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(server) != 0) return 0;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    const xcb_query_pointer_reply_t* const reply =
        xcb_query_pointer_reply(server, xcb_query_pointer(server, root), nullptr);
    return reply != nullptr ? static_cast<uint8_t>(reply->mask) : 0;
}

/// The same, 0 where the server doesn't answer in time. Then it isn't queried again.
uint8_t HeldModifiers() {
    static bool isDead = false;
    const char* const display = std::getenv("DISPLAY");
    if (isDead || display == nullptr || *display == '\0') return 0;
    const std::optional<uint8_t> modifiers = CallWithin(kMaxMilliseconds, &QueryModifiers);
    isDead = !modifiers;
    return modifiers.value_or(0);
}

}  // namespace

bool AsyncCommandKey() {
    if ((HeldModifiers() & XCB_MOD_MASK_CONTROL) != 0) return true;
    // Wayland shows the keys only to the window that has the focus.
    return Desktop::IsLoaded() && Desktop::Current().IsCommandKeyDown();
}

bool AsyncOptionKey() {
    return (HeldModifiers() & XCB_MOD_MASK_SHIFT) != 0;
}

const char* CommandKeyName() {
    return "Control";
}

}  // namespace dunvey::Keyboard
