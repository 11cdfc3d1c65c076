#include "version/booting_apps.h"

#include "platform/controls/reg_ex_xojo.h"
#include "platform/files/path.h"
#include "platform/files/special_folder.h"
#include "platform/processes/shell.h"
#include "platform/text/text.h"
#include "platform/values/array.h"

namespace dunvey::InDesign {
namespace {

constexpr const char* kProcessPath =
    "/Applications/Adobe InDesign .+?/Adobe InDesign .+?.app/Contents/MacOS/"
    "Adobe InDesign [^/]+$";
constexpr const char* kBundleInPath =
    "/Applications/Adobe InDesign .+?/(Adobe InDesign .+?.app)/Contents/MacOS/"
    "Adobe InDesign .+";

constexpr const char* kStart = "/Applications/Adobe InDesign ";

/// The paths that `ps` may show for the applications folder: its own, and with links resolved.
std::vector<std::string> ApplicationsPaths() {
    const std::string path = SpecialFolder::Applications()->NativePath();
    return {path, RealPath(path)};
}

/// The line with the applications folder replaced by /Applications, as the patterns have it; empty
/// for a process outside of it. The patterns aren't anchored: text before a match would stay in the
/// name.
std::string NormalizedPath(const std::string& line, const std::vector<std::string>& folders) {
    for (const std::string& folder : folders) {
        if (folder.empty() || !line.starts_with(folder + "/")) continue;
        const std::string seen = "/Applications" + line.substr(folder.size());
        return seen.starts_with(kStart) ? seen : std::string();
    }
    return {};
}

}  // namespace

std::vector<std::string> BootingAppNames;

void GetBootingAppNames() {
    BootingAppNames.clear();
    Shell shell;
    shell.Execute("ps -ax -o comm");
    const std::vector<std::string> folders = ApplicationsPaths();
    for (const std::string& entry : SplitB(shell.Result(), EndOfLine::UNIX)) {
        const std::string line = NormalizedPath(entry, folders);
        if (RegExXojo::Mach(line, kProcessPath, 0, true)) {
            BootingAppNames.push_back(RegExXojo::Replace(line, kBundleInPath, "\\1", 0, true));
        }
    }
}

bool IsBootedDiffApp(const Ref<FolderItem>& application) {
    GetBootingAppNames();
    if (BootingAppNames.empty()) return false;
    return IndexOf(BootingAppNames, application->Name()) == -1;
}

}  // namespace dunvey::InDesign
