#include "platform/values/exceptions.h"

#include <cxxabi.h>
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

#include "platform/values/array.h"
#include "platform/values/reference.h"

namespace dunvey {
namespace {

std::string PlaceOf(const void* address) {
    // A return address is that of the next instruction, which may be another function's.
    const char* code = static_cast<const char*>(address) - 1;
    Dl_info info{};
    if (dladdr(code, &info) == 0) return "unknown place";
    const std::string path = info.dli_fname;
    char offset[32];
    std::snprintf(offset, sizeof offset, "+%#tx", code - static_cast<const char*>(info.dli_fbase));
    const std::string place = path.substr(path.rfind('/') + 1) + offset;
    if (info.dli_sname == nullptr) return place;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(info.dli_sname, nullptr, nullptr, nullptr), &std::free);
    return place + ", " + (name ? name.get() : info.dli_sname);
}

}  // namespace

RuntimeException::RuntimeException(std::string message, int errorNumber, SourcePlace place)
    : Message(std::move(message)),
      ErrorNumber(errorNumber),
      origin_(place.file + (":" + std::to_string(place.line))) {}

RuntimeException::RuntimeException(std::string message, std::string origin)
    : Message(std::move(message)), ErrorNumber(0), origin_(std::move(origin)) {}

NilObjectException::NilObjectException(const void* address)
    : RuntimeException("A nil reference was used.", PlaceOf(address)) {}

void* RaiseNilObject() {
    throw NilObjectException(__builtin_return_address(0));
}

void RaiseOutOfBounds(int64_t position, SourcePlace place) {
    throw OutOfBoundsException("There is no element at position " + std::to_string(position) + ".",
                               0, place);
}

}  // namespace dunvey
