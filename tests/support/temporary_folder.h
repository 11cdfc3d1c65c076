#pragma once

#include <fcntl.h>
#include <ftw.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace dunvey::test {

/// A temporary folder, removed by the destructor.
class TemporaryFolder {
 public:
    TemporaryFolder() {
        std::string pattern = "/tmp/dunvey-test-XXXXXX";
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path_ = pattern;
    }
    ~TemporaryFolder() {
        nftw(
            path_.c_str(),
            [](const char* path, const struct stat*, int, FTW*) { return ::remove(path); }, 16,
            FTW_DEPTH | FTW_PHYS);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::string& Path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + "/" + name; }

    /// Creates a folder and its parents, relative to this one; returns its path.
    std::string MakeFolder(const std::string& name) const {
        for (size_t end = 0; end != std::string::npos;) {
            end = name.find('/', end + 1);
            mkdir((*this / name.substr(0, end)).c_str(), 0777);
        }
        return *this / name;
    }

    /// Writes a file in this folder or in an existing one below; returns its path.
    std::string Write(const std::string& name, const std::string& bytes) const {
        std::ofstream((*this / name), std::ios::binary) << bytes;
        return *this / name;
    }

    std::string Read(const std::string& name) const {
        std::ifstream file(*this / name, std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }

 private:
    std::string path_;
};

}  // namespace dunvey::test
