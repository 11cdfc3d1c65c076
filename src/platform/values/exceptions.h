#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace dunvey {

/// A place in the source code. `SourcePlace place = SourcePlace::Here()` as the last parameter of a
/// function gives it the place of the call.
struct SourcePlace {
    const char* file;
    int line;

    static constexpr SourcePlace Here(const char* file = __builtin_FILE(),
                                      int line = __builtin_LINE()) {
        return {file, line};
    }
};

/// The base of all exceptions that a failure raises. `what()` is the message.
class RuntimeException : public std::exception {
 public:
    explicit RuntimeException(std::string message = {}, int errorNumber = 0,
                              SourcePlace place = SourcePlace::Here());

    const char* what() const noexcept override { return Message.c_str(); }
    /// The name of the class, for the report of an exception that nothing catches.
    virtual const char* Name() const noexcept { return "RuntimeException"; }

    /// Where the fault is, such as "src/platform/files/streams.cpp:21".
    const std::string& Origin() const { return origin_; }

    std::string Message;
    int ErrorNumber;

 protected:
    RuntimeException(std::string message, std::string origin);

 private:
    std::string origin_;
};

/// Declares an exception that adds nothing to RuntimeException but its name.
#define DUNVEY_NAMED_EXCEPTION(name)                                 \
    class name : public RuntimeException {                           \
     public:                                                         \
        using RuntimeException::RuntimeException;                    \
        const char* Name() const noexcept override { return #name; } \
    }

/// A nil reference was used.
class NilObjectException : public RuntimeException {
 public:
    /// `address` is that of the code that used it. Origin() gives the program file and the offset
    /// in it, as addr2line takes it, such as "Dunvey+0x1a2b3"; the function too where its name is
    /// exported.
    explicit NilObjectException(const void* address);
    const char* Name() const noexcept override { return "NilObjectException"; }
};
/// A position outside an array or a list.
DUNVEY_NAMED_EXCEPTION(OutOfBoundsException);
/// A key that a dictionary doesn't hold.
DUNVEY_NAMED_EXCEPTION(KeyNotFoundException);
/// A value of a type that the operation can't take.
DUNVEY_NAMED_EXCEPTION(TypeMismatchException);
/// An object that isn't of the requested class.
DUNVEY_NAMED_EXCEPTION(IllegalCastException);
/// More memory than a block may have.
DUNVEY_NAMED_EXCEPTION(OutOfMemoryException);
/// A stream failed; ErrorNumber is the errno.
DUNVEY_NAMED_EXCEPTION(IOException);
/// A pattern that can't be compiled.
DUNVEY_NAMED_EXCEPTION(RegExException);

/// Unwinds the call stack after Quit. It isn't a RuntimeException, so that handlers of failures
/// don't catch it.
class EndException : public std::exception {
 public:
    explicit EndException(int exitCode) : ExitCode(exitCode) {}
    const char* what() const noexcept override { return "the program ends"; }

    int ExitCode;
};

}  // namespace dunvey
