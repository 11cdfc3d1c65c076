#include "platform/linux/helpers/installed_bundles.h"

#include "platform/files/path.h"
#include "platform/linux/applications_folder.h"
#include "platform/linux/helpers/bundle.h"
#include "platform/linux/helpers/folder_names.h"

namespace dunvey {
std::vector<std::string> InstalledBundles::NamesOf(const std::string& program) {
    if (!IsInBundle(program)) return {program};
    if (!isRead_) Read();
    isRead_ = true;
    const size_t end = program.rfind('/');
    std::vector<std::string> names;
    const auto [begin, last] = programs_.equal_range(program.substr(0, end));
    for (auto each = begin; each != last; ++each)
        names.push_back(each->second + program.substr(end));
    if (names.empty()) names.push_back(program);
    return names;
}

void InstalledBundles::Read() {
    using Names = std::vector<std::string>;
    const std::string applications = RealPath(ApplicationsPath());
    for (const std::string& folder : FolderNames(applications).value_or(Names())) {
        const std::string path = applications + "/" + folder;
        for (const std::string& name : FolderNames(path).value_or(Names())) {
            if (!name.ends_with(".app")) continue;
            const std::string programs = path + "/" + name + "/Contents/MacOS";
            programs_.emplace(RealPath(programs), programs);
        }
    }
}

}  // namespace dunvey
