#include "platform/qt/display.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <xcb/xcb.h>

#include <QCoreApplication>
#include <QDir>
#include <QLibrary>
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "platform/files/file_descriptor.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

std::shared_ptr<void> ConnectToX11() {
    const std::shared_ptr<void> connection(xcb_connect(nullptr, nullptr), xcb_disconnect);
    const bool failed =
        xcb_connection_has_error(static_cast<xcb_connection_t*>(connection.get())) != 0;
    return failed ? nullptr : connection;
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

/// Whether Qt has a plug-in for the platform that can be loaded with all its libraries.
bool HasPlugin(const std::string& platform) {
    const QString name = QStringLiteral("libq") + QString::fromStdString(platform);
    const auto isUsable = [&name](const QFileInfo& file) {
        const bool isNamed = file.fileName() == name + QStringLiteral(".so") ||
                             file.fileName().startsWith(name + QLatin1Char('-'));
        return isNamed && QLibrary(file.filePath()).load();
    };
    const QStringList folders = QCoreApplication::libraryPaths();
    return std::any_of(folders.begin(), folders.end(), [&](const QString& folder) {
        const QFileInfoList files = QDir(folder + QStringLiteral("/platforms")).entryInfoList();
        return std::any_of(files.begin(), files.end(), isUsable);
    });
}

/// `wanted` is a name as in QT_QPA_PLATFORM, such as "xcb", "wayland-egl" or "offscreen:options".
std::optional<Display> Reach(const std::string& wanted) {
    const std::string name = Lowercase(NthField(wanted, ":", 1));
    Display display{wanted, nullptr};
    if (name == "xcb") {
        display.connection = ConnectToX11();
        if (!display.connection) return {};
    } else if (name.starts_with("wayland")) {
        if (!ReachesWayland()) return {};
    } else if (name != "offscreen" && name != "minimal" && name != "vnc") {
        // Other platforms draw directly on the screen and show one window at a time.
        return {};
    }
    return HasPlugin(name) ? std::optional(display) : std::nullopt;
}

}  // namespace

std::optional<Display> ReachDisplay() {
    std::vector<std::string> names;
    if (const char* wanted = std::getenv("QT_QPA_PLATFORM")) names = SplitB(wanted, ";");
    // A remote login may inherit a platform that its display doesn't support.
    names.insert(names.end(), {"xcb", "wayland"});
    for (const std::string& name : names) {
        if (std::optional<Display> display = Reach(name)) return display;
    }
    return {};
}

}  // namespace dunvey
