#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files/file_descriptor.h"
#include "platform/files/folder_item.h"
#include "platform/values/reference.h"

namespace dunvey {

/// Byte-wise reading of a regular file.
class BinaryStream {
 public:
    /// Opens the file, with `readWrite` for writing too. Raises IOException if it can't be opened
    /// or is no regular file. Never blocks on a FIFO or a device.
    static Ref<BinaryStream> Open(const Ref<FolderItem>& file, bool readWrite = false);

    /// The size of the file in bytes. Raises IOException.
    int64_t Length() const;
    /// The next `count` bytes, fewer at the end of the file. Raises IOException.
    std::string Read(int64_t count);
    /// Locks the file against a TextOutputStream until this stream is closed. Raises IOException if
    /// the lock isn't free within half a second.
    void LockForReading() const;
    void Close() { file_.Close(); }
    const std::string& Path() const { return path_; }

    BinaryStream(FileDescriptor file, std::string path)
        : file_(std::move(file)), path_(std::move(path)) {}

 private:
    FileDescriptor file_;
    std::string path_;
};

/// The size of the largest text file that is read, in bytes.
inline constexpr size_t kTextFileLimit = 64 * 1024 * 1024;

/// Reads a whole text file.
class TextInputStream {
 public:
    /// Raises IOException as BinaryStream::Open does.
    static Ref<TextInputStream> Open(const Ref<FolderItem>& file);

    /// All bytes of the file, with no conversion; locks the file. Raises IOException, also beyond
    /// kTextFileLimit.
    std::string ReadAll();
    void Close() { stream_->Close(); }

    explicit TextInputStream(Ref<BinaryStream> stream) : stream_(std::move(stream)) {}

 private:
    Ref<BinaryStream> stream_;
};

/// Writes a text file in place when it is closed: appends what exceeds the old size, overwrites the
/// old text, then truncates. A full disk leaves the old text, and no failure leaves an empty file.
/// A failed overwrite is retried once. The file is locked meanwhile; IOException is raised if the
/// lock isn't free within half a second.
class TextOutputStream {
 public:
    /// Creates the file or opens an existing one. Raises IOException.
    static Ref<TextOutputStream> Create(const Ref<FolderItem>& file);

    void Write(std::string_view text) { text_ += text; }
    /// Writes the text. Raises IOException; a file that Create made is then removed. The destructor
    /// closes an open stream and raises nothing.
    void Close();

    TextOutputStream(FileDescriptor file, std::string path, bool created)
        : file_(std::move(file)), path_(std::move(path)), created_(created) {}
    ~TextOutputStream();

 private:
    /// All return 0 or the errno.
    int Finish();
    int WriteInPlace();
    int WriteAt(off_t place, std::string_view text);
    int Cut(off_t size);

    FileDescriptor file_;
    std::string path_;
    bool created_;
    std::string text_;
};

}  // namespace dunvey
