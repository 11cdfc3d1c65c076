// Without the fuzzer: feeds each file of a folder to the target, once. Usage: TARGET FOLDER
#include <dirent.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/fuzz.h"

namespace {

std::vector<std::string> FilesOf(const std::string& folder) {
    std::vector<std::string> files;
    DIR* listing = opendir(folder.c_str());
    if (listing == nullptr) return files;
    while (const dirent* entry = readdir(listing)) {
        if (entry->d_name[0] != '.') files.push_back(folder + "/" + entry->d_name);
    }
    closedir(listing);
    std::sort(files.begin(), files.end());
    return files;
}

}  // namespace

int main(int count, char** words) {
    const std::vector<std::string> files = FilesOf(count > 1 ? words[1] : "");
    for (const std::string& path : files) {
        std::fprintf(stderr, "%s\n", path.c_str());
        std::ifstream file(path, std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(file)), {});
        if (!file) return 1;
        dunvey::fuzz::TryInput({});
        dunvey::fuzz::TryInput(bytes);
    }
    return files.empty() ? 1 : 0;
}
