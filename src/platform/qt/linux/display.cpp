#include "platform/qt/display.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/file_descriptor.h"
#include "platform/text.h"

namespace dunvey {
namespace {

bool ReachesX11() {
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const bool reached = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return reached;
}

bool ReachesWayland() {
    const char* name = std::getenv("WAYLAND_DISPLAY");
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    if (name == nullptr || *name == '\0') return false;
    const std::string path =
        name[0] == '/' ? name : std::string(folder == nullptr ? "" : folder) + "/" + name;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return socket &&
           connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

/// Whether the toolkit was told by name to use platforms that need no server, such as "offscreen".
/// Sessions name the ones that do as well, and a remote login inherits that.
bool AsksForNoServer() {
    const char* names = std::getenv("QT_QPA_PLATFORM");
    if (names == nullptr || *names == '\0') return false;
    for (const std::string& name : SplitB(names, ";")) {
        if (name.starts_with("xcb") || name.starts_with("wayland")) return false;
    }
    return true;
}

}  // namespace

bool CanReachDisplay() {
    return AsksForNoServer() || ReachesX11() || ReachesWayland();
}

}  // namespace dunvey
