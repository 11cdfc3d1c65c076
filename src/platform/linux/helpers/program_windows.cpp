#include "platform/linux/helpers/program_windows.h"

#include <unistd.h>
#include <xcb/res.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/linux/bounded_call.h"

namespace dunvey {
namespace {

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> Owned(Reply* reply) {
    return {reply, &std::free};
}

using IsProgram = std::function<bool(pid_t)>;
using Values = std::vector<uint32_t>;

bool Has(const Values& values, uint32_t value) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

/// The X server's windows and their properties.
class Server {
 public:
    Server() : connection_(xcb_connect(nullptr, nullptr)) {}
    ~Server() { xcb_disconnect(connection_); }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    bool IsConnected() const { return xcb_connection_has_error(connection_) == 0; }

    xcb_atom_t Atom(const char* name) {
        xcb_atom_t& atom = atoms_[name];
        if (atom != XCB_ATOM_NONE) return atom;
        const auto cookie =
            xcb_intern_atom(connection_, 0, static_cast<uint16_t>(std::strlen(name)), name);
        const auto reply = Owned(xcb_intern_atom_reply(connection_, cookie, nullptr));
        if (reply) atom = reply->atom;
        return atom;
    }

    Values Property(xcb_window_t window, const char* name) { return Read(Request(window, name)); }

    std::string Text(xcb_window_t window, const char* name) {
        const auto reply =
            Owned(xcb_get_property_reply(connection_, Request(window, name), nullptr));
        if (!reply || reply->format != 8) return {};
        return {static_cast<const char*>(xcb_get_property_value(reply.get())),
                static_cast<size_t>(xcb_get_property_value_length(reply.get()))};
    }

    /// The windows of the processes for which `isProgram` is true. A window manager may put up to
    /// two windows between the root and each of them.
    std::vector<xcb_window_t> ProgramWindows(const IsProgram& isProgram) {
        std::vector<xcb_window_t> found;
        std::vector<xcb_window_t> level;
        for (auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection_)); screen.rem > 0;
             xcb_screen_next(&screen))
            level.push_back(screen.data->root);
        for (int depth = 0; depth < 3; ++depth) {
            std::vector<xcb_window_t> others;
            for (const Owner& window : Owners(Children(level))) {
                if (isProgram(window.client) || (isProgram(window.named) && IsLocal(window.id)))
                    found.push_back(window.id);
                else if (window.named == 0)
                    others.push_back(window.id);
            }
            level = others;
        }
        return found;
    }

    /// Whether the window is visible or a window manager manages it.
    bool IsShown(xcb_window_t window) {
        constexpr uint32_t kNormal = 1;
        constexpr uint32_t kIconic = 3;
        const auto cookie = xcb_get_window_attributes(connection_, window);
        const auto reply = Owned(xcb_get_window_attributes_reply(connection_, cookie, nullptr));
        if (!reply || reply->override_redirect != 0) return false;
        const Values state = Property(window, "WM_STATE");
        const bool isManaged = !state.empty() && (state[0] == kNormal || state[0] == kIconic);
        return isManaged || reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    void SendClose(xcb_window_t window) {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = Atom("WM_PROTOCOLS");
        event.data.data32[0] = Atom("WM_DELETE_WINDOW");
        event.data.data32[1] = XCB_CURRENT_TIME;
        xcb_send_event(connection_, 0, window, XCB_EVENT_MASK_NO_EVENT,
                       reinterpret_cast<const char*>(&event));
    }

    /// Returns when the server has processed all requests.
    void Finish() {
        Owned(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
    }

 private:
    xcb_get_property_cookie_t Request(xcb_window_t window, const char* name) {
        constexpr uint32_t kMaxWords = 64;
        return xcb_get_property(connection_, 0, window, Atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0,
                                kMaxWords);
    }

    Values Read(xcb_get_property_cookie_t cookie) {
        const auto reply = Owned(xcb_get_property_reply(connection_, cookie, nullptr));
        if (!reply || reply->format != 32) return {};
        const auto* const values = static_cast<uint32_t*>(xcb_get_property_value(reply.get()));
        return {values, values + reply->value_len};
    }

    std::vector<xcb_window_t> Children(const std::vector<xcb_window_t>& windows) {
        std::vector<xcb_query_tree_cookie_t> cookies;
        for (const xcb_window_t window : windows)
            cookies.push_back(xcb_query_tree(connection_, window));
        std::vector<xcb_window_t> children;
        for (const auto cookie : cookies) {
            const auto reply = Owned(xcb_query_tree_reply(connection_, cookie, nullptr));
            if (!reply) continue;
            const xcb_window_t* const begin = xcb_query_tree_children(reply.get());
            children.insert(children.end(), begin,
                            begin + xcb_query_tree_children_length(reply.get()));
        }
        return children;
    }

    /// Whether the window is of a program on this machine, so that its process id is valid here.
    bool IsLocal(xcb_window_t window) {
        char name[256] = {};
        gethostname(name, sizeof name - 1);
        const std::string machine = Text(window, "WM_CLIENT_MACHINE");
        return machine.empty() || machine == name;
    }

    /// A window and the processes it may belong to, 0 where unknown.
    struct Owner {
        xcb_window_t id;
        pid_t client;  ///< the X client's, as the server knows it
        pid_t named;   ///< _NET_WM_PID, which may be missing or a number inside a container
    };

    std::vector<Owner> Owners(const std::vector<xcb_window_t>& windows) {
        // A request of a missing extension would end the connection.
        const bool knowsClients = xcb_get_extension_data(connection_, &xcb_res_id)->present != 0;
        std::vector<xcb_res_query_client_ids_cookie_t> clients;
        std::vector<xcb_get_property_cookie_t> names;
        for (const xcb_window_t window : windows) {
            const xcb_res_client_id_spec_t wanted{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
            if (knowsClients) clients.push_back(xcb_res_query_client_ids(connection_, 1, &wanted));
            names.push_back(Request(window, "_NET_WM_PID"));
        }
        std::vector<Owner> owners;
        for (size_t i = 0; i < windows.size(); ++i) {
            const pid_t client = knowsClients ? Client(clients[i]) : 0;
            const Values named = Read(names[i]);
            owners.push_back(
                {windows[i], client, named.empty() ? 0 : static_cast<pid_t>(named[0])});
        }
        return owners;
    }

    pid_t Client(xcb_res_query_client_ids_cookie_t cookie) {
        const auto reply = Owned(xcb_res_query_client_ids_reply(connection_, cookie, nullptr));
        if (!reply) return 0;
        const auto ids = xcb_res_query_client_ids_ids_iterator(reply.get());
        const bool isThere = ids.rem > 0 && xcb_res_client_id_value_value_length(ids.data) > 0;
        return isThere ? static_cast<pid_t>(*xcb_res_client_id_value_value(ids.data)) : 0;
    }

    xcb_connection_t* const connection_;
    std::map<std::string, xcb_atom_t> atoms_;
};

/// Whether the window is a dialog: modal, or transient for another window and no tool window.
bool IsDialog(Server& server, xcb_window_t window) {
    constexpr uint32_t kCloseFunction = 1 << 5;
    constexpr uint32_t kAllFunctions = 1;
    if (Has(server.Property(window, "_NET_WM_STATE"), server.Atom("_NET_WM_STATE_MODAL")))
        return true;
    const Values owner = server.Property(window, "WM_TRANSIENT_FOR");
    if (owner.empty()) return false;
    const Values type = server.Property(window, "_NET_WM_WINDOW_TYPE");
    const bool isPlain = type.empty() || type[0] == server.Atom("_NET_WM_WINDOW_TYPE_DIALOG") ||
                         type[0] == server.Atom("_NET_WM_WINDOW_TYPE_NORMAL");
    if (!isPlain) return false;
    // Wine gives its palettes the type of a dialog. But only a real dialog disables closing its
    // owner, as the owner's hints show.
    const Values hints = server.Property(owner[0], "_MOTIF_WM_HINTS");
    const bool namesFunctions = hints.size() > 1 && (hints[0] & 1) != 0;
    return !namesFunctions || (hints[1] & (kCloseFunction | kAllFunctions)) == 0;
}

bool AcceptsClose(Server& server, xcb_window_t window) {
    return server.Property(window, "WM_TRANSIENT_FOR").empty() &&
           Has(server.Property(window, "WM_PROTOCOLS"), server.Atom("WM_DELETE_WINDOW"));
}

CloseRequest RequestCloseNow(const IsProgram& isProgram) {
    Server server;
    if (!server.IsConnected()) return CloseRequest::NoAnswer;
    // Not erase_if, of which GCC 12 warns without reason at -O3.
    const std::vector<xcb_window_t> windows = server.ProgramWindows(isProgram);
    if (windows.empty()) return CloseRequest::NoWindow;
    std::vector<xcb_window_t> shown;
    std::copy_if(windows.begin(), windows.end(), std::back_inserter(shown),
                 [&](xcb_window_t window) { return server.IsShown(window); });
    if (shown.empty()) return CloseRequest::Hidden;
    const auto isDialog = [&](xcb_window_t window) { return IsDialog(server, window); };
    if (std::any_of(shown.begin(), shown.end(), isDialog)) return CloseRequest::Asking;
    CloseRequest result = CloseRequest::Refused;
    for (const xcb_window_t window : shown) {
        if (!AcceptsClose(server, window)) continue;
        server.SendClose(window);
        result = CloseRequest::Sent;
    }
    server.Finish();
    return result;
}

}  // namespace

CloseRequest RequestClose(const std::function<bool(pid_t)>& isProgram) {
    constexpr int kMaxMilliseconds = 5'000;
    const auto result = CallWithin(kMaxMilliseconds, [&isProgram] {
        return static_cast<uint8_t>(RequestCloseNow(isProgram));
    });
    return result ? static_cast<CloseRequest>(*result) : CloseRequest::NoAnswer;
}

}  // namespace dunvey
