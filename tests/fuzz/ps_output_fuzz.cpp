#include <cstdlib>
#include <sstream>

#include "fuzz/fuzz.h"
#include "platform/processes/shell.h"
#include "version/booting_apps.h"

namespace dunvey {

static std::string listed;

/// Replaces the library's: the process list is the input.
void Shell::Execute(const std::string&, const std::function<void()>&) {
    result_ = listed;
}

void fuzz::TryInput(std::string_view bytes) {
    setenv("HOME", "/", 1);  // so that the applications folder is /Applications
    const auto namesIn = [](const std::string& list) {
        listed = list;
        InDesign::GetBootingAppNames();
        return InDesign::BootingAppNames;
    };
    const std::string list(bytes);
    std::vector<std::string> separate;
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line);) {
        for (const std::string& name : namesIn(line)) {
            Check(line.starts_with("/Applications/Adobe InDesign "),
                  "only the applications folder counts", line);
            Check(name.starts_with("Adobe InDesign ") &&
                      line.find("/" + name + "/Contents/MacOS/") != line.npos,
                  "the name is that of a bundle in the line", line);
            separate.push_back(name);
        }
    }
    separate.emplace_back("Adobe InDesign CS6.app");
    Check(namesIn(list + "\n/Applications/Adobe InDesign CS6/Adobe InDesign "
                         "CS6.app/Contents/MacOS/Adobe InDesign CS6") == separate,
          "each line counts for itself, in order");
}

}  // namespace dunvey
