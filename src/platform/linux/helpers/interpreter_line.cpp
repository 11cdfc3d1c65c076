#include "platform/linux/helpers/interpreter_line.h"

#include <sys/stat.h>

#include "platform/processes/system_call.h"

namespace dunvey {
namespace {

constexpr Slice kBlanks = " \t";
constexpr Slice kMark = "#!";

Slice Trimmed(Slice text) {
    while (!text.IsEmpty() && kBlanks.Has(text.data[0]))
        text = text.From(1);
    while (!text.IsEmpty() && kBlanks.Has(text.end()[-1]))
        --text.size;
    return text;
}

/// Whether one of the words, with blanks between them, is such a one.
template <typename IsSuch>
bool HasWord(Slice text, IsSuch isSuch) {
    for (text = Trimmed(text); !text.IsEmpty(); text = Trimmed(text)) {
        const size_t length = text.FirstOf(kBlanks);
        if (isSuch(text.UpTo(length))) return true;
        text = text.From(length);
    }
    return false;
}

bool IsRegularFile(const char* path) {
    struct stat status;
    return Uninterrupted([&] { return stat(path, &status); }) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

InterpreterLine::InterpreterLine(const char* path) {
    // Asked ahead of the opening: to open some devices is already to act on them.
    if (!IsRegularFile(path)) return;
    int error = 0;
    const FileDescriptor file = OpenRegularFile(path, error);
    if (!file) return;
    const ssize_t count = ReadFully(file.Get(), line_, sizeof line_);
    if (count <= 0) return;
    const Slice text(line_, static_cast<size_t>(count));
    if (text.StartsWith(kMark)) size_ = text.FirstOf("\n");
}

Slice InterpreterLine::Interpreter() const {
    if (size_ == 0) return {};
    const Slice text = Trimmed(Slice(line_, size_).From(kMark.size));
    return text.UpTo(text.FirstOf(kBlanks));
}

Slice InterpreterLine::Argument() const {
    if (size_ == 0) return {};
    const Slice text = Trimmed(Slice(line_, size_).From(kMark.size));
    return Trimmed(text.From(Interpreter().size));
}

bool InterpreterLine::StartsWith(const Slice* words, size_t count) const {
    // By the last element: a search of the PATH or an own environment may lead elsewhere.
    const Slice program = words[0].LastElement();
    const auto isProgram = [&](Slice word) { return word.LastElement() == program; };
    if (!isProgram(Interpreter()) && !HasWord(Argument(), isProgram)) return false;
    for (size_t i = 1; i < count; ++i) {
        const auto isSame = [&](Slice word) { return word == words[i]; };
        if (!isSame(Argument()) && !HasWord(Argument(), isSame)) return false;
    }
    return true;
}

}  // namespace dunvey
