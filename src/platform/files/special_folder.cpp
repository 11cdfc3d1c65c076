#include "platform/files/special_folder.h"

#include "platform/files/path.h"

namespace dunvey::SpecialFolder {

std::vector<std::string> ApplicationsPaths() {
    std::vector<std::string> paths = {Applications()->NativePath()};
    const std::string real = RealPath(paths[0]);
    if (!real.empty() && real != paths[0]) paths.push_back(real);
    return paths;
}

}  // namespace dunvey::SpecialFolder
