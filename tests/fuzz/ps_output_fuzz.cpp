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

const Names& NamesIn(std::string_view list) {
    listed = list;
    InDesign::GetBootingAppNames();
    return InDesign::BootingAppNames;
}

}  // namespace

void TryInput(std::string_view bytes) {
    setenv("HOME", "/", 1);  // so that the applications folder is /Applications
    const Names names = NamesIn(bytes);
    Names separate;
    for (size_t begin = 0; begin <= bytes.size();) {
        const size_t end = std::min(bytes.find('\n', begin), bytes.size());
        const std::string_view line = bytes.substr(begin, end - begin);
        begin = end + 1;
        const Names& own = NamesIn(line);
        Check(own.size() <= 1, "a line is one process", line);
        if (own.empty()) continue;
        Check(own[0].starts_with("Adobe InDesign ") && own[0].ends_with("app"), "it is a bundle");
        Check(line.starts_with("/Applications/Adobe InDesign "),
              "only the applications folder counts", line);
        Check(line.find("/" + own[0] + "/Contents/MacOS/") != line.npos,
              "the name is that of a bundle in the line", line);
        separate.push_back(own[0]);
    }
    Check(separate == names, "each line counts for itself, in order");
    separate.emplace_back("Adobe InDesign CS6.app");
    Check(NamesIn(std::string(bytes) + "\n/Applications/Adobe InDesign CS6/Adobe InDesign "
                                       "CS6.app/Contents/MacOS/Adobe InDesign CS6") == separate,
          "no line hides the running application after it");
}

}  // namespace fuzz
}  // namespace dunvey
