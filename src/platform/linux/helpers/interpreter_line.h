#pragma once

#include "platform/linux/helpers/slice.h"

namespace dunvey {

/// The first line of a script, "#!INTERPRETER ARGUMENT", where the argument may be missing. Without
/// the C++ library.
class InterpreterLine {
 public:
    /// The kernel reads no more of a file to find its interpreter.
    static constexpr size_t kLimit = 256;

    /// The line of a file; an empty one if it is no regular file, can't be read or doesn't begin
    /// with "#!". It never waits and never opens a device.
    explicit InterpreterLine(const char* path);

    /// Whether the file is a script.
    explicit operator bool() const { return !Interpreter().IsEmpty(); }
    Slice Interpreter() const;
    /// What stands behind the interpreter. The kernel hands it over as one argument, blanks and
    /// all.
    Slice Argument() const;

    /// Whether a process that was started with these words, a program and its arguments, runs the
    /// script that this is the first line of, the script being its next argument. The kernel starts
    /// the program with the argument; `env` then starts one that its argument names.
    bool StartsWith(const Slice* words, size_t count) const;

 private:
    char line_[kLimit];
    size_t size_ = 0;
};

}  // namespace dunvey
