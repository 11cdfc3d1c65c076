#include <algorithm>
#include <cstdlib>

#include "fuzz/fuzz.h"
#include "platform/processes/shell.h"
#include "version/booting_apps.h"

namespace dunvey {
namespace {

std::string listed;

}  // namespace

/// Replaces the library's: the process list is the input.
void Shell::Execute(const std::string& command, const std::function<void()>&) {
    fuzz::Check(command == "ps -ax -o comm", "the process list is asked for");
    result_ = listed;
}

namespace fuzz {
namespace {

using Names = std::vector<std::string>;

constexpr std::string_view kLine =
    "/Applications/Adobe InDesign CS6/Adobe InDesign CS6.app/Contents/MacOS/Adobe InDesign CS6";

const Names& NamesIn(std::string_view list) {
    listed = list;
    InDesign::GetBootingAppNames();
    return InDesign::BootingAppNames;
}

bool IsBundleName(const std::string& name) {
    return name.starts_with("Adobe InDesign ") && name.ends_with("app") &&
           name.find('\n') == name.npos;
}

}  // namespace

void TryInput(std::string_view bytes) {
    setenv("HOME", "/", 1);  // so that the applications folder is /Applications
    const Names names = NamesIn(bytes);
    Check(std::all_of(names.begin(), names.end(), &IsBundleName), "each is a bundle's name");
    Names separate;
    for (size_t begin = 0; begin <= bytes.size();) {
        const size_t end = std::min(bytes.find('\n', begin), bytes.size());
        const std::string_view line = bytes.substr(begin, end - begin);
        begin = end + 1;
        const Names& own = NamesIn(line);
        Check(own.size() <= 1, "a line is one process", line);
        Check(own.empty() || line.starts_with("/Applications/Adobe InDesign "),
              "only the applications folder counts", line);
        Check(own.empty() || line.find("/" + own[0] + "/Contents/MacOS/") != line.npos,
              "the name is that of a bundle in the line", line);
        separate.insert(separate.end(), own.begin(), own.end());
    }
    Check(separate == names, "each line counts for itself, in order");
    Names more = names;
    more.emplace_back("Adobe InDesign CS6.app");
    Check(NamesIn(std::string(bytes) + "\n" + std::string(kLine)) == more,
          "no line hides a running application behind it");
}

}  // namespace fuzz
}  // namespace dunvey
