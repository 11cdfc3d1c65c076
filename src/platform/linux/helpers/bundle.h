#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dunvey {

/// Whether the absolute path, as text, names a file in the Contents/MacOS of some bundle. Only such
/// paths of other processes may be looked up on disk: any other may be on a network mount that
/// doesn't answer.
bool IsInBundle(std::string_view path);

/// The path with the links of its folder resolved. The last component stays: a bundle's program may
/// be a link to a program elsewhere. The path itself if its folder can't be reached.
std::string WithRealFolder(const std::string& path);

/// An application: a folder with its programs in Contents/MacOS.
class Bundle {
 public:
    /// The bundle at the path. nullopt if its Contents/MacOS can't be reached; errno says why.
    static std::optional<Bundle> At(const std::string& path);

    /// The absolute path, as it was given, without slashes at the end.
    const std::string& Path() const { return path_; }
    /// The last component of the path.
    std::string_view Name() const;
    /// The folder of its programs.
    std::string Programs() const { return path_ + "/Contents/MacOS"; }
    /// The same without links.
    const std::string& RealPrograms() const { return realPrograms_; }

    /// Whether a path, the links of its folder resolved, is in the folder of programs or below.
    bool HasProgram(std::string_view path) const;

 private:
    std::string path_;
    std::string realPrograms_;
};

}  // namespace dunvey
