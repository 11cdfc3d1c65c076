#pragma once

#include <map>
#include <string>
#include <vector>

namespace dunvey {

/// The bundles in the applications folder, FOLDER/NAME.app, which may be links to bundles
/// elsewhere.
class InstalledBundles {
 public:
    /// The paths of a program within the real applications folder, one for each name that its
    /// bundle is installed under, else the path itself. The path's folder has no links.
    std::vector<std::string> NamesOf(const std::string& program);

 private:
    void Read();

    bool isRead_ = false;
    /// The installed folders of programs by the real one.
    std::multimap<std::string, std::string> programs_;
};

}  // namespace dunvey
