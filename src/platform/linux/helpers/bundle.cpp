#include "platform/linux/helpers/bundle.h"

#include <sys/stat.h>

#include <cerrno>

#include "platform/files/path.h"

namespace dunvey {

bool IsInBundle(std::string_view path) {
    return path.starts_with('/') && path.find("/Contents/MacOS/") != path.npos;
}

std::string WithRealFolder(const std::string& path) {
    const size_t name = path.rfind('/');
    const std::string folder = RealPath(path.substr(0, name));
    return folder.empty() ? path : folder + path.substr(name);
}

std::optional<Bundle> Bundle::At(const std::string& path) {
    Bundle bundle;
    bundle.path_ = AbsolutePath(path);
    while (bundle.path_.ends_with('/'))
        bundle.path_.pop_back();
    bundle.realPrograms_ = RealPath(bundle.Programs());
    struct stat status;
    if (bundle.realPrograms_.empty() || stat(bundle.realPrograms_.c_str(), &status) != 0)
        return std::nullopt;
    if (S_ISDIR(status.st_mode)) return bundle;
    errno = ENOTDIR;
    return std::nullopt;
}

std::string_view Bundle::Name() const {
    return std::string_view(path_).substr(path_.rfind('/') + 1);
}

bool Bundle::HasProgram(std::string_view path) const {
    return path.starts_with(realPrograms_ + "/");
}

}  // namespace dunvey
