#include "platform/loop/early_loading.h"

#include <dlfcn.h>
#include <malloc.h>

#include <exception>
#include <thread>

#include "platform/linux/libraries_below_toolkit.h"

namespace dunvey::EarlyLoading {
namespace {

using ReadSettings = int (*)();

/// One that isn't there, or lacks something, is the toolkit's to complain of, so it is bound as the
/// toolkit has it. All stay loaded, as it stands on them.
void* Load(const char* library) {
    return dlopen(library, RTLD_NOW | RTLD_LOCAL);
}

class Loader {
 public:
    explicit Loader(bool hasLibraries) {
#ifdef M_ARENA_MAX
        // Else the thread takes memory from a place of its own, which only makes the process grow.
        mallopt(M_ARENA_MAX, 1);
#endif
        // Not on the thread: loading waits for whoever else loads something.
        void* const fonts = Load("libfontconfig.so.1");
        void* const read = fonts == nullptr ? nullptr : dlsym(fonts, "FcInit");
        try {
            loading_ = std::jthread(&Fetch, hasLibraries, reinterpret_cast<ReadSettings>(read));
        } catch (const std::exception&) {
            // The toolkit does it then.
        }
    }

    void Await() {
        if (loading_.joinable()) loading_.join();
    }

 private:
    static void Fetch(bool hasLibraries, ReadSettings readSettings) {
        if (hasLibraries) {
            for (const char* library : kLibrariesBelowToolkit)
                Load(library);
        }
        if (readSettings != nullptr) readSettings();
    }

    std::jthread loading_;
};

// Made at the first use; the end of the process waits for it.
Loader& TheLoader(bool hasLibraries) {
    static Loader loader(hasLibraries);
    return loader;
}

}  // namespace

void Begin() {
    TheLoader(true);
}

void BeginWithoutLibraries() {
    TheLoader(false);
}

void Await() {
    TheLoader(false).Await();
}

}  // namespace dunvey::EarlyLoading
