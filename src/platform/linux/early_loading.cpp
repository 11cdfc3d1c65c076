#include "platform/early_loading.h"

#include <dlfcn.h>
#include <malloc.h>

#include <system_error>
#include <thread>

#include "platform/linux/libraries_below_toolkit.h"

namespace dunvey::EarlyLoading {
namespace {

using ReadSettings = int (*)();

/// One that isn't there is the toolkit's to complain of. All stay loaded, as it stands on them.
void* Load(const char* library) {
    return dlopen(library, RTLD_LAZY | RTLD_LOCAL);
}

class Loader {
 public:
    Loader() {
#ifdef M_ARENA_MAX
        // Else the thread takes memory from a place of its own, which only makes the process grow.
        mallopt(M_ARENA_MAX, 1);
#endif
        // Loaded here, and the others behind the settings: loading waits for whoever else loads
        // something, and that may be the toolkit by now.
        void* const fonts = Load("libfontconfig.so.1");
        void* const read = fonts == nullptr ? nullptr : dlsym(fonts, "FcInit");
        try {
            loading_ = std::jthread(&Fetch, reinterpret_cast<ReadSettings>(read));
        } catch (const std::system_error&) {
            // The toolkit does it then.
        }
    }

    void Await() {
        if (loading_.joinable()) loading_.join();
    }

 private:
    static void Fetch(ReadSettings readSettings) {
        if (readSettings != nullptr) readSettings();
        for (const char* library : kLibrariesBelowToolkit)
            Load(library);
    }

    std::jthread loading_;
};

// Made at the first use; the end of the process waits for it.
Loader& TheLoader() {
    static Loader loader;
    return loader;
}

}  // namespace

void Begin() {
    TheLoader();
}

void Await() {
    TheLoader().Await();
}

}  // namespace dunvey::EarlyLoading
