#include "platform/loop/keyboard.h"

#include <dlfcn.h>
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>

namespace dunvey::Keyboard {
namespace {

/// The library that talks to an X server. It isn't linked: a session without one does without, and
/// what is linked is searched for each name that the toolkit binds.
class X11Library {
 public:
    /// Sets the function to the one of that name; false if there is none.
    template <typename Function>
    bool Find(Function*& function, const char* name) const {
        if (library_ != nullptr) function = reinterpret_cast<Function*>(dlsym(library_, name));
        return function != nullptr;
    }

 private:
    void* const library_ = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
};

/// A connection to the session's X server, if there is one, for as long as the process lives.
class X11Server {
 public:
    X11Server() {
        const char* const display = std::getenv("DISPLAY");
        if (display == nullptr || *display == '\0') return;
        const X11Library library;
        decltype(xcb_connect)* connect = nullptr;
        decltype(xcb_connection_has_error)* hasError = nullptr;
        decltype(xcb_get_setup)* getSetup = nullptr;
        decltype(xcb_setup_roots_iterator)* rootsIterator = nullptr;
        if (!library.Find(connect, "xcb_connect") ||
            !library.Find(hasError, "xcb_connection_has_error") ||
            !library.Find(getSetup, "xcb_get_setup") ||
            !library.Find(rootsIterator, "xcb_setup_roots_iterator") ||
            !library.Find(queryPointer_, "xcb_query_pointer") ||
            !library.Find(queryPointerReply_, "xcb_query_pointer_reply") ||
            !library.Find(disconnect_, "xcb_disconnect")) {
            return;
        }
        connection_ = connect(nullptr, nullptr);
        isConnected_ = hasError(connection_) == 0;
        if (isConnected_) root_ = rootsIterator(getSetup(connection_)).data->root;
    }
    ~X11Server() {
        if (connection_ != nullptr) disconnect_(connection_);
    }
    X11Server(const X11Server&) = delete;
    X11Server& operator=(const X11Server&) = delete;

    /// The keys and buttons that are down, as the server sees them; 0 without a server.
    uint16_t HeldDown() const {
        if (!isConnected_) return 0;
        xcb_query_pointer_reply_t* const reply =
            queryPointerReply_(connection_, queryPointer_(connection_, root_), nullptr);
        const uint16_t mask = reply != nullptr ? reply->mask : uint16_t{0};
        std::free(reply);
        return mask;
    }

 private:
    decltype(xcb_query_pointer)* queryPointer_ = nullptr;
    decltype(xcb_query_pointer_reply)* queryPointerReply_ = nullptr;
    decltype(xcb_disconnect)* disconnect_ = nullptr;
    xcb_connection_t* connection_ = nullptr;
    bool isConnected_ = false;
    xcb_window_t root_ = 0;
};

uint16_t HeldDown() {
    static const X11Server kServer;
    return kServer.HeldDown();
}

}  // namespace

bool AsyncCommandKey() {
    return (HeldDown() & XCB_MOD_MASK_CONTROL) != 0;
}

bool AsyncOptionKey() {
    return (HeldDown() & XCB_MOD_MASK_1) != 0;
}

}  // namespace dunvey::Keyboard
