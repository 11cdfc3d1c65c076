// The floor of a run: only its shell commands, one process list for each document and one launch.
// Arguments: the folder of the helpers, the application, the documents.
#include <cstdlib>
#include <string>

#include "program.h"

namespace {

std::string Escaped(const std::string& path) {
    std::string word;
    for (const char c : path)
        word += c == ' ' ? "\\ " : std::string(1, c);
    return word;
}

}  // namespace

int main(int argc, char** argv) {
    using dunvey::bench::BareShell;
    if (argc < 4) return 2;
    setenv("PATH", (std::string(argv[1]) + ":/usr/bin:/bin").c_str(), 1);
    const std::string application = Escaped(argv[2]);
    std::string files;
    for (int i = 3; i < argc; ++i) {
        BareShell("ps -ax -o comm");
        files += Escaped(argv[i]) + " ";
    }
    BareShell("open -a " + application + " " + files + " && open " + application);
    return 0;
}
