#pragma once

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "platform/bundles/executable_path.h"
#include "platform/files/file_descriptor.h"

namespace dunvey::test {

/// The resource folder of the test programs' bundle, for one test at a time: tests of several
/// processes run side by side. The imported icons are gone before and after.
class OwnResources {
 public:
    OwnResources()
        : folder_(dunvey::OwnResources()),
          lock_(open(folder_->NativePath().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        while (flock(lock_.Get(), LOCK_EX) != 0) {
            if (errno != EINTR) throw std::runtime_error("the resource folder can't be locked");
        }
        Clear();
    }
    ~OwnResources() { Clear(); }

    std::string operator/(const std::string& name) const {
        return folder_->Child(name)->NativePath();
    }
    void Write(const std::string& name, const std::string& bytes) const {
        std::ofstream(*this / name, std::ios::binary) << bytes;
    }
    /// The bytes of both icons, the document's first.
    std::string Icons() const {
        std::ostringstream bytes;
        for (const char* name : {kDocument, kBook}) {
            std::ifstream file(*this / name, std::ios::binary);
            if (file.peek() != EOF) bytes << file.rdbuf();
        }
        return bytes.str();
    }

    static constexpr const char* kDocument = "ID_Document_Icon.icns";
    static constexpr const char* kBook = "ID_Book_Icon.icns";

 private:
    /// The icons are files or, where a test wants a copy to fail, folders of one level.
    void Clear() const {
        for (const char* name : {kDocument, kBook}) {
            folder_->Child(name)->Child(name)->Delete();
            folder_->Child(name)->Delete();
        }
    }

    Ref<FolderItem> folder_;
    FileDescriptor lock_;
};

}  // namespace dunvey::test
