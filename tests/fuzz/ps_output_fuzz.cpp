#include <cstdlib>
#include <optional>

#include "fuzz/fuzz.h"
#include "platform/files/special_folder.h"
#include "platform/processes/shell.h"
#include "version/booting_apps.h"

namespace dunvey {
namespace {

std::string listed;

}  // namespace

/// In the place of the library's: the process list is the input.
void Shell::Execute(const std::string& command, const std::function<void()>&) {
    fuzz::Check(command == "ps -ax -o comm", "the process list is asked for");
    result_ = listed;
}

namespace fuzz {
namespace {

constexpr std::string_view kStart = "Adobe InDesign ";
// Longer lines than any real one may be given up as hostile.
constexpr size_t kLongestLine = 1000;

/// The part of the line below the applications folder; none for a process of another place.
std::optional<std::string_view> BelowApplications(std::string_view line) {
    std::vector<std::string> folders = SpecialFolder::ApplicationsPaths();
    folders.emplace_back("/Applications");
    for (const std::string& folder : folders) {
        if (line.starts_with(folder + "/")) return line.substr(folder.size() + 1);
    }
    return std::nullopt;
}

/// The bundle's name if the line is a running application: one folder, bundle and executable of the
/// names that count, none of them empty behind their beginning.
std::optional<std::string> BundleIn(std::string_view line) {
    const std::optional<std::string_view> below = BelowApplications(line);
    if (!below || !below->starts_with(kStart)) return std::nullopt;
    const size_t slash = below->rfind('/');
    if (slash == below->npos) return std::nullopt;
    const std::string_view program = below->substr(slash + 1);
    const std::string_view folders = below->substr(0, slash);
    if (!program.starts_with(kStart) || program.size() == kStart.size()) return std::nullopt;
    const size_t bundle = folders.find("/" + std::string(kStart), kStart.size() + 1);
    const std::string_view inBundle = "app/Contents/MacOS";
    if (bundle == folders.npos || !folders.ends_with(inBundle)) return std::nullopt;
    // A letter and what stands for the dot, at the least.
    const size_t end = below->find(std::string(inBundle) + "/" + std::string(kStart),
                                   bundle + 1 + kStart.size() + 2);
    if (end == below->npos) return std::nullopt;
    return std::string(below->substr(bundle + 1, end + 3 - bundle - 1));
}

}  // namespace

void TryInput(std::string_view bytes) {
    setenv("HOME", "/home/user", 1);
    listed = bytes;
    InDesign::GetBootingAppNames();
    auto name = InDesign::BootingAppNames.begin();
    const auto end = InDesign::BootingAppNames.end();
    for (size_t begin = 0; begin <= bytes.size();) {
        const size_t feed = std::min(bytes.find('\n', begin), bytes.size());
        const std::string_view line = bytes.substr(begin, feed - begin);
        begin = feed + 1;
        const std::optional<std::string> expected = BundleIn(line);
        const bool found = expected && name != end && *name == *expected;
        if (found) ++name;
        Check(found || !expected || line.size() > kLongestLine, "a running application is found",
              line);
    }
    Check(name == end, "each name is that of a running application, in order",
          name == end ? std::string_view() : *name);
}

}  // namespace fuzz
}  // namespace dunvey
