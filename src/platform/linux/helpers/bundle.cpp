#include "platform/linux/helpers/bundle.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>

#include "platform/files/file_descriptor.h"

namespace dunvey {
namespace {

using OwnedText = std::unique_ptr<char, decltype(&std::free)>;

bool IsBelow(std::string_view path, std::string_view folder) {
    return path.size() > folder.size() + 1 && path.starts_with(folder) &&
           path[folder.size()] == '/';
}

}  // namespace

std::string AbsolutePath(const std::string& path) {
    if (path.starts_with('/')) return path;
    const OwnedText folder(getcwd(nullptr, 0), &std::free);
    if (!folder || folder.get()[0] != '/') return {};
    return std::string(folder.get()) + "/" + path;
}

std::optional<Bundle> Bundle::At(const std::string& path) {
    Bundle bundle;
    bundle.path_ = AbsolutePath(path);
    while (bundle.path_.ends_with('/'))
        bundle.path_.pop_back();
    const OwnedText real(realpath(bundle.Programs().c_str(), nullptr), &std::free);
    if (!real) return std::nullopt;
    bundle.realPrograms_ = real.get();
    struct stat status;
    if (Uninterrupted([&] { return stat(real.get(), &status); }) != 0) return std::nullopt;
    if (S_ISDIR(status.st_mode)) return bundle;
    errno = ENOTDIR;
    return std::nullopt;
}

std::string_view Bundle::Name() const {
    return std::string_view(path_).substr(path_.rfind('/') + 1);
}

bool Bundle::HasProgram(std::string_view path) const {
    return IsBelow(path, realPrograms_);
}

}  // namespace dunvey
