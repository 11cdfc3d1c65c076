#include "platform/linux/helpers/bundle_executable.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>

#include "platform/bundles/bundle_properties.h"
#include "platform/files/file_descriptor.h"
#include "platform/processes/error_line.h"

namespace dunvey {
namespace {

constexpr std::string_view kExtension = ".app";

std::string NameOf(const Bundle& bundle, const std::string& declared) {
    if (!declared.empty()) return declared;
    std::string_view name = bundle.Name();
    if (name.ends_with(kExtension)) name.remove_suffix(kExtension.size());
    return std::string(name);
}

bool IsFileName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

std::string ProblemWith(const std::string& path, const std::string& propertyList) {
    struct stat status;
    if (Uninterrupted([&] { return stat(path.c_str(), &status); }) != 0) {
        if (errno != ENOENT)
            return Quoted(path) + " can't be reached: " + std::strerror(errno) + ".";
        return "the executable " + Quoted(path) +
               " is missing. Put the program or a start script there, or name another one under "
               "CFBundleExecutable in " +
               Quoted(propertyList) + ".";
    }
    if (!S_ISREG(status.st_mode)) {
        return Quoted(path) +
               " is no file that could be started. Put the program or a start script"
               " in its place.";
    }
    if (access(path.c_str(), X_OK) == 0) return {};
    return Quoted(path) + " may not be executed: " + std::strerror(errno) +
           ". Allow it with chmod +x.";
}

}  // namespace

BundleExecutable ExecutableOf(const Bundle& bundle) {
    const std::string contents = bundle.Path() + "/Contents";
    const std::string propertyList = contents + "/Info.plist";
    const std::string name = NameOf(bundle, ReadBundleProperties(FolderItem(contents)).executable);
    if (!IsFileName(name)) {
        return {{},
                "CFBundleExecutable in " + Quoted(propertyList) + " is " + Quoted(name) +
                    ", which is no name of a file. Write the plain name of a file in " +
                    Quoted(bundle.Programs()) + "."};
    }
    std::string path = bundle.Programs() + "/" + name;
    std::string problem = ProblemWith(path, propertyList);
    if (!problem.empty()) path.clear();
    return {std::move(path), std::move(problem)};
}

}  // namespace dunvey
