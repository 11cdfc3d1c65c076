#include "register/application_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "platform/files/file_descriptor.h"
#include "register/application_text.h"
#include "register/message.h"
#include "register/request.h"

namespace dunvey {
namespace {

constexpr mode_t kReadable = 0644;
constexpr mode_t kExecutable = 0755;

[[noreturn]] void Refuse(const std::string& path, const char* what, int error) {
    throw Refusal{Quoted(path) + " can't be " + what + ": " + std::strerror(error) + "."};
}

mode_t Mask() {
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

/// Returns 0 or the errno.
int Fill(FileDescriptor& file, std::string_view bytes, mode_t mode) {
    if (const int error = WriteFully(file.Get(), bytes)) return error;
    if (fchmod(file.Get(), mode & ~Mask()) != 0 || fsync(file.Get()) != 0) return errno;
    return file.Close();
}

/// Under another name first, so that a fault leaves the old file or none, never half of one.
void WriteFile(const std::string& path, std::string_view bytes, mode_t mode) {
    const size_t name = path.rfind('/') + 1;
    std::string temporary = path.substr(0, name) + ".dunvey-register-XXXXXX";
    FileDescriptor file(mkstemp(temporary.data()));
    if (!file) Refuse(path, "written", errno);
    int error = Fill(file, bytes, mode);
    if (error == 0 && rename(temporary.c_str(), path.c_str()) != 0) error = errno;
    if (error == 0) return;
    unlink(temporary.c_str());
    Refuse(path, "written", error);
}

void RemoveFile(const std::string& path) {
    if (unlink(path.c_str()) != 0 && errno != ENOENT) Refuse(path, "removed", errno);
}

}  // namespace

ApplicationFiles::ApplicationFiles(const std::string& folder, const std::string& name)
    : bundle(folder + "/" + name + ".app"),
      contents(bundle + "/Contents"),
      programs(contents + "/MacOS"),
      resources(contents + "/Resources"),
      propertyList(contents + "/Info.plist"),
      wrapper(programs + "/" + name),
      icon(resources + "/" + kIconName) {}

bool IsThere(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0;
}

bool IsFolder(const std::string& path) {
    struct stat status;
    return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

void MakeFolder(const std::string& path) {
    if (mkdir(path.c_str(), 0777) != 0 && errno != EEXIST) Refuse(path, "made", errno);
}

void WriteApplication(const ApplicationFiles& files, const ApplicationContents& contents) {
    MakeFolder(files.bundle);
    MakeFolder(files.contents);
    MakeFolder(files.programs);
    WriteFile(files.wrapper, WrapperText(contents.command), kExecutable);
    if (!contents.icon.empty()) {
        MakeFolder(files.resources);
        WriteFile(files.icon, contents.icon, kReadable);
    }
    const std::string list =
        PropertyListText(contents.name, contents.version, contents.command, IsThere(files.icon));
    WriteFile(files.propertyList, list, kReadable);
}

bool RemoveApplication(const ApplicationFiles& files) {
    RemoveFile(files.wrapper);
    RemoveFile(files.icon);
    RemoveEmptyFolder(files.programs);
    RemoveEmptyFolder(files.resources);
    RemoveFile(files.propertyList);
    RemoveEmptyFolder(files.contents);
    return RemoveEmptyFolder(files.bundle);
}

bool RemoveEmptyFolder(const std::string& path) {
    if (rmdir(path.c_str()) == 0 || errno == ENOENT) return true;
    if (errno == ENOTEMPTY || errno == EEXIST) return false;
    Refuse(path, "removed", errno);
}

}  // namespace dunvey
