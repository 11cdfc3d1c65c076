// The least that any program must do for a run: the shell commands, one list of processes for each
// document and one launch, with posix_spawn and nothing else. Words: the helpers' folder, the
// application, the documents.
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
