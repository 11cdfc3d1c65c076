#include "platform/keyboard.h"

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace dunvey::Keyboard {
namespace {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

/// The keys and buttons that are down, as the X server sees them; 0 without a server.
uint16_t HeldDown() {
    static const std::unique_ptr<xcb_connection_t, Disconnect> kConnection(
        xcb_connect(nullptr, nullptr));
    xcb_connection_t* server = kConnection.get();
    if (xcb_connection_has_error(server) != 0) return 0;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
    const std::unique_ptr<xcb_query_pointer_reply_t, Free> reply(
        xcb_query_pointer_reply(server, xcb_query_pointer(server, root), nullptr));
    return reply ? reply->mask : uint16_t{0};
}

}  // namespace

bool AsyncCommandKey() {
    return (HeldDown() & XCB_MOD_MASK_CONTROL) != 0;
}

bool AsyncOptionKey() {
    return (HeldDown() & XCB_MOD_MASK_1) != 0;
}

}  // namespace dunvey::Keyboard
