#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace dunvey {

/// An absolute form of a path: a relative one taken from the current directory, links not resolved.
/// Empty if there is no current directory any more.
std::string AbsolutePath(const std::string& path);

/// An application: a folder with its programs in Contents/MacOS.
class Bundle {
 public:
    /// The bundle at the path. None if Contents/MacOS isn't there or can't be reached; errno says
    /// why.
    static std::optional<Bundle> At(const std::string& path);

    /// The absolute path, as it was given, without slashes at the end.
    const std::string& Path() const { return path_; }
    /// The last element of the path.
    std::string_view Name() const;
    /// The folder of its programs.
    std::string Programs() const { return path_ + "/Contents/MacOS"; }

    /// Whether a path, the links of its folders resolved, lies in the real folder of programs or
    /// below.
    bool HasProgram(std::string_view path) const;

 private:
    std::string path_;
    std::string realPrograms_;
};

}  // namespace dunvey
