#include <cstdlib>

#include "fuzz/fuzz.h"
#include "platform/processes/shell.h"
#include "version/booting_apps.h"

namespace dunvey {
namespace {

std::string listed;

std::vector<std::string> NamesIn(std::string_view list) {
    listed = list;
    InDesign::GetBootingAppNames();
    return InDesign::BootingAppNames;
}

}  // namespace

/// Replaces the library's: the process list is the input.
void Shell::Execute(const std::string&, const std::function<void()>&) {
    result_ = listed;
}

void fuzz::TryInput(std::string_view bytes) {
    setenv("HOME", "/", 1);  // so that the applications folder is /Applications
    std::vector<std::string> separate;
    for (size_t begin = 0; begin <= bytes.size();) {
        const size_t end = std::min(bytes.find('\n', begin), bytes.size());
        const std::string_view line = bytes.substr(begin, end - begin);
        begin = end + 1;
        for (const std::string& name : NamesIn(line)) {
            Check(line.starts_with("/Applications/Adobe InDesign "),
                  "only the applications folder counts", line);
            Check(name.starts_with("Adobe InDesign ") &&
                      line.find("/" + name + "/Contents/MacOS/") != line.npos,
                  "the name is that of a bundle in the line", line);
            separate.push_back(name);
        }
    }
    separate.emplace_back("Adobe InDesign CS6.app");
    Check(NamesIn(std::string(bytes) + "\n/Applications/Adobe InDesign CS6/Adobe InDesign "
                                       "CS6.app/Contents/MacOS/Adobe InDesign CS6") == separate,
          "each line counts for itself, in order");
}

}  // namespace dunvey
