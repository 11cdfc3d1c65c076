#include "platform/linux/helpers/process_folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dunvey {
namespace {

/// The path of a process's file in the folder.
class ProcessPath {
 public:
    ProcessPath(pid_t id, Slice name) {
        char* place = path_ + kMostDigits;
        memcpy(place, name.data, name.size + 1);
        for (; id > 0; id /= 10)
            *--place = static_cast<char>('0' + id % 10);
        begin_ = place;
    }
    ProcessPath(const ProcessPath&) = delete;
    ProcessPath& operator=(const ProcessPath&) = delete;

    const char* Text() const { return begin_; }

 private:
    static constexpr size_t kMostDigits = 10;
    char path_[kMostDigits + sizeof "/cmdline"];
    const char* begin_;
};

/// The id that an entry of the folder is named after; 0 if it is another's.
pid_t IdOf(const char* name) {
    constexpr size_t kMostDigits = 9;
    pid_t id = 0;
    for (size_t i = 0; name[i] != '\0'; ++i) {
        if (name[i] < '0' || name[i] > '9' || i == kMostDigits) return 0;
        id = 10 * id + (name[i] - '0');
    }
    return id;
}

}  // namespace

ProcessFolder::ProcessFolder() : folder_(OpenFile("/proc", O_RDONLY | O_DIRECTORY)) {}

ssize_t ProcessFolder::NextIds(IdsBuffer& ids) const {
    constexpr size_t kSmallestEntry = 24;
    alignas(dirent64) char entries[kMostIds * kSmallestEntry];
    ssize_t count = 0;
    while (count == 0) {
        const ssize_t size = ReadEntries(entries, sizeof entries);
        if (size <= 0) {
            const off_t begin = lseek(folder_.Get(), 0, SEEK_SET);
            return size < 0 ? size : begin;
        }
        for (ssize_t place = 0; place < size;) {
            const auto* entry = reinterpret_cast<const dirent64*>(entries + place);
            const pid_t id = IdOf(entry->d_name);
            if (id != 0) ids[count++] = id;
            place += entry->d_reclen;
        }
    }
    return count;
}

ssize_t ProcessFolder::ReadEntries(char* buffer, size_t size) const {
    const auto read = [&] {
        return getdents64(folder_.Get(), reinterpret_cast<dirent64*>(buffer), size);
    };
    const ssize_t count = Uninterrupted(read);
    // What hinders the reading is often over at once.
    return count < 0 ? Uninterrupted(read) : count;
}

Slice ProcessFolder::Link(pid_t id, const char* name, PathBuffer& buffer) const {
    const ProcessPath path(id, name);
    const ssize_t length = readlinkat(folder_.Get(), path.Text(), buffer, sizeof buffer);
    if (length <= 0 || static_cast<size_t>(length) == sizeof buffer) return {};
    buffer[length] = '\0';
    return {buffer, static_cast<size_t>(length)};
}

bool ProcessFolder::IsExecutable(pid_t id, const char* path) const {
    struct stat running;
    struct stat named;
    return fstatat(folder_.Get(), ProcessPath(id, "/exe").Text(), &running, 0) == 0 &&
           stat(path, &named) == 0 && running.st_dev == named.st_dev &&
           running.st_ino == named.st_ino;
}

Slice ProcessFolder::Words(pid_t id, WordsBuffer& buffer) const {
    Slice words = Read(id, "/cmdline", '\0', buffer, sizeof buffer);
    while (!words.IsEmpty() && words.end()[-1] != '\0')
        --words.size;  // the last one doesn't fit
    return words;
}

Slice ProcessFolder::Name(pid_t id, NameBuffer& buffer) const {
    const Slice line = Read(id, "/comm", '\n', buffer, sizeof buffer);
    return line.UpTo(line.FirstOf("\n"));
}

Slice ProcessFolder::Read(pid_t id, const char* name, char end, char* buffer, size_t size) const {
    const ProcessPath path(id, name);
    const FileDescriptor file(
        Uninterrupted([&] { return openat(folder_.Get(), path.Text(), O_RDONLY | O_CLOEXEC); }));
    size_t count = 0;
    while (file && count < size && (count == 0 || buffer[count - 1] != end)) {
        const ssize_t got =
            Uninterrupted([&] { return read(file.Get(), buffer + count, size - count); });
        if (got <= 0) break;
        count += static_cast<size_t>(got);
    }
    return {buffer, count};
}

}  // namespace dunvey
