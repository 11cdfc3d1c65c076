#include "platform/qt/display.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <xcb/xcb.h>

#include <QDir>
#include <QLibraryInfo>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/files/file_descriptor.h"
#include "platform/text/text.h"

namespace dunvey {
namespace {

std::optional<DisplayHold> ReachX11() {
    const DisplayHold connection(xcb_connect(nullptr, nullptr), xcb_disconnect);
    if (xcb_connection_has_error(static_cast<xcb_connection_t*>(connection.get())) != 0) return {};
    return connection;
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

/// Whether the toolkit has that platform at all; it aborts the process where it hasn't.
bool HasPlatform(const QString& name) {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    const QString plugins = QLibraryInfo::location(QLibraryInfo::PluginsPath);
#else
    const QString plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath);
#endif
    const QStringList files = QDir(plugins + QStringLiteral("/platforms")).entryList(QDir::Files);
    // Not asked for by a pattern: the toolkit would make a regular expression of it.
    return std::any_of(files.begin(), files.end(), [&](const QString& file) {
        return file.startsWith(QStringLiteral("libq") + name, Qt::CaseInsensitive) &&
               file.endsWith(QStringLiteral(".so"));
    });
}

/// What a platform by its name, such as "xcb" or "wayland-egl:options", can start on. Those that
/// need no server always can.
std::optional<DisplayHold> Reach(const std::string& wanted) {
    // The toolkit takes its names in any case.
    const std::string name = Lowercase(wanted);
    if (name.starts_with("xcb")) return ReachX11();
    const bool canStart = name.starts_with("wayland")
                              ? ReachesWayland() && HasPlatform(QStringLiteral("wayland"))
                              : HasPlatform(QString::fromStdString(NthField(name, ":", 1)));
    if (!canStart) return {};
    return DisplayHold();
}

/// The platforms that the toolkit was told to use, in its own order of trying.
std::vector<std::string> WantedPlatforms() {
    const char* names = std::getenv("QT_QPA_PLATFORM");
    return names == nullptr ? std::vector<std::string>() : SplitB(names, ";");
}

}  // namespace

std::optional<DisplayHold> ReachDisplay() {
    for (const std::string& name : WantedPlatforms()) {
        if (name.empty()) continue;
        if (std::optional<DisplayHold> hold = Reach(name)) return hold;
    }
    // Sessions name what they have themselves, and a remote login inherits that: any server that
    // answers will do.
    for (const char* name : {"xcb", "wayland"}) {
        std::optional<DisplayHold> hold = Reach(name);
        if (!hold) continue;
        setenv("QT_QPA_PLATFORM", name, 1);
        return hold;
    }
    return {};
}

}  // namespace dunvey
