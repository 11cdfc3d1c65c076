#pragma once

#include <map>
#include <string>
#include <vector>

namespace dunvey {

/// The bundles in the applications folder, FOLDER/NAME.app, which may be links to bundles
/// elsewhere.
class InstalledBundles {
 public:
    /// The paths of a program in the applications folder, one for each name that its bundle is
    /// installed under, else the path itself. The links of the path's folder must be resolved.
    std::vector<std::string> NamesOf(const std::string& program);

 private:
    void Read();

    bool isRead_ = false;
    /// The Contents/MacOS folders by their path with links resolved.
    std::multimap<std::string, std::string> programs_;
};

}  // namespace dunvey
