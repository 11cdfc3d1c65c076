#include "platform/font_settings.h"

#include <dlfcn.h>

#include <system_error>
#include <thread>

namespace dunvey::FontSettings {
namespace {

class Reader {
 public:
    Reader() {
        // Loaded here, not on the thread: loading waits for whoever else loads something. It stays
        // loaded, as the toolkit stands on it.
        void* library = dlopen("libfontconfig.so.1", RTLD_LAZY | RTLD_LOCAL);
        if (library == nullptr) return;
        auto* const read = reinterpret_cast<int (*)()>(dlsym(library, "FcInit"));
        if (read == nullptr) return;
        try {
            reading_ = std::jthread(read);
        } catch (const std::system_error&) {
            // Without a thread the toolkit reads them in its own time.
        }
    }

    void Await() {
        if (reading_.joinable()) reading_.join();
    }

 private:
    std::jthread reading_;
};

// Made at the first use; the end of the process waits for it.
Reader& TheReader() {
    static Reader reader;
    return reader;
}

}  // namespace

void ReadAhead() {
    TheReader();
}

void Await() {
    TheReader().Await();
}

}  // namespace dunvey::FontSettings
