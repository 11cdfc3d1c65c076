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
    /// Opens the file. `readWrite` asks for writing too. Raises IOException if it can't be opened
    /// or is no regular file; a FIFO or a device doesn't make it wait.
    static Ref<BinaryStream> Open(const Ref<FolderItem>& file, bool readWrite = false);

    /// The size of the file in bytes. Raises IOException.
    int64_t Length() const;
    /// The next `count` bytes, fewer at the end of the file. Raises IOException.
    std::string Read(int64_t count);
    /// Keeps a TextOutputStream from changing the file until this stream is closed. Raises
    /// IOException if one holds the file for half a second.
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

/// Writes a text file. The text is gathered and put in place when the stream is closed: what goes
/// beyond the old text's end first, then the rest over the old text, then the cut. So a disk that
/// is full leaves the old text as it was, and no fault leaves an empty file where a whole one
/// stood. What one write of two can't put over the old text is written once more. The file is
/// locked meanwhile, so that two processes that end together don't mix their texts.
class TextOutputStream {
 public:
    /// Creates the file or opens the one that stands there. Raises IOException.
    static Ref<TextOutputStream> Create(const Ref<FolderItem>& file);

    void Write(std::string_view text) { text_ += text; }
    /// Raises IOException; a file that Create made is gone then. A stream that still is open in the
    /// end is closed by the destructor, which raises nothing.
    void Close();

    TextOutputStream(FileDescriptor file, std::string path, bool created)
        : file_(std::move(file)), path_(std::move(path)), created_(created) {}
    ~TextOutputStream();

 private:
    /// All return 0 or the errno.
    int Finish();
    int PutInPlace();
    int WriteAt(off_t place, std::string_view text);
    int Cut(off_t size);

    FileDescriptor file_;
    std::string path_;
    bool created_;
    std::string text_;
};

}  // namespace dunvey
