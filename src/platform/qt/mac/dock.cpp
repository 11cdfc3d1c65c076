#include "platform/qt/dock.h"

namespace dunvey {

bool HasApplicationMenu() {
    return true;
}

std::unique_ptr<QtDock> QtDock::Show(UserAction) {
    return nullptr;
}

}  // namespace dunvey
