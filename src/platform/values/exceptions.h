#pragma once

#include <exception>
#include <string>
#include <utility>

namespace dunvey {

/// The base of all exceptions that a failure raises. `what()` is the message.
class RuntimeException : public std::exception {
 public:
    /// The place is that of the caller, which raises it.
    explicit RuntimeException(std::string message = {}, int errorNumber = 0,
                              const char* file = __builtin_FILE(), int line = __builtin_LINE())
        : Message(std::move(message)), ErrorNumber(errorNumber), file_(file), line_(line) {}

    const char* what() const noexcept override { return Message.c_str(); }
    /// The class's own name, for the report of an exception that nothing catches.
    virtual const char* Name() const noexcept { return "RuntimeException"; }

    /// Where it was raised, such as "src/platform/streams.cpp:21".
    std::string Origin() const { return std::string(file_) + ":" + std::to_string(line_); }

    std::string Message;
    int ErrorNumber;

 private:
    const char* file_;
    int line_;
};

/// Declares a named exception that adds nothing to RuntimeException but its name.
#define DUNVEY_NAMED_EXCEPTION(name)                                 \
    class name : public RuntimeException {                           \
     public:                                                         \
        using RuntimeException::RuntimeException;                    \
        const char* Name() const noexcept override { return #name; } \
    }

/// A reference that is nil was used.
DUNVEY_NAMED_EXCEPTION(NilObjectException);
/// A position outside an array or a list.
DUNVEY_NAMED_EXCEPTION(OutOfBoundsException);
/// A key that a dictionary doesn't hold.
DUNVEY_NAMED_EXCEPTION(KeyNotFoundException);
/// A value of a type that the operation can't take.
DUNVEY_NAMED_EXCEPTION(TypeMismatchException);
/// An object that isn't of the class asked for.
DUNVEY_NAMED_EXCEPTION(IllegalCastException);
/// A stream failed; ErrorNumber is the system's errno.
DUNVEY_NAMED_EXCEPTION(IOException);
/// A pattern that can't be compiled.
DUNVEY_NAMED_EXCEPTION(RegExException);

/// Unwinds the call stack after Quit. It is no failure and no RuntimeException, so that code that
/// catches failures lets it pass.
class EndException : public std::exception {
 public:
    explicit EndException(int exitCode) : ExitCode(exitCode) {}
    const char* what() const noexcept override { return "the program ends"; }

    int ExitCode;
};

}  // namespace dunvey
