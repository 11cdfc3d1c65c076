// Preloaded into a program, it ends that program as soon as a window of it has been painted for the
// first time. Small windows, such as tips, don't count.
#include <dlfcn.h>
#include <stdlib.h>
#include <unistd.h>

#include <QBackingStore>
#include <QWindow>

namespace {

constexpr int kLeastWidth = 200;

/// The toolkit may be loaded late and out of sight of others, so it is asked for by name.
template <typename Function>
Function* InToolkit(const char* symbol) {
    void* toolkit = dlopen(DUNVEY_QT_GUI, RTLD_LAZY | RTLD_NOLOAD);
    void* found = toolkit == nullptr ? nullptr : dlsym(toolkit, symbol);
    // Without it nothing can be measured.
    if (found == nullptr) _exit(125);
    return reinterpret_cast<Function*>(found);
}

/// Only the program itself is looked at, not what it starts.
__attribute__((constructor)) void StayAlone() {
    unsetenv("LD_PRELOAD");
}

}  // namespace

void QBackingStore::flush(const QRegion& region, QWindow* window, const QPoint& offset) {
    InToolkit<void(QBackingStore*, const QRegion&, QWindow*, const QPoint&)>(
        "_ZN13QBackingStore5flushERK7QRegionP7QWindowRK6QPoint")(this, region, window, offset);
    if (window == nullptr) return;
    const auto place = InToolkit<QRect(const QWindow*)>("_ZNK7QWindow8geometryEv")(window);
    if (place.width() >= kLeastWidth) _exit(0);
}
