#include "fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    dunvey::fuzz::TryInput({reinterpret_cast<const char*>(data), size});
    return 0;
}
