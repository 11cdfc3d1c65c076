#include <glob.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    dunvey::fuzz::TryInput({reinterpret_cast<const char*>(data), size});
    return 0;
}

#ifdef DUNVEY_CORPUS_ONLY
// Without libFuzzer: tries each file of a folder once. Usage: TARGET FOLDER
int main(int count, char** arguments) {
    glob_t files{};
    if (count != 2 || glob((std::string(arguments[1]) + "/*").c_str(), 0, nullptr, &files) != 0)
        return 1;
    dunvey::fuzz::TryInput({});
    for (size_t i = 0; i < files.gl_pathc; ++i) {
        std::fprintf(stderr, "%s\n", files.gl_pathv[i]);
        std::ifstream file(files.gl_pathv[i], std::ios::binary);
        if (!file) return 1;
        dunvey::fuzz::TryInput(std::string(std::istreambuf_iterator<char>(file), {}));
    }
    globfree(&files);
}
#endif
