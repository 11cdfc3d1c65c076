#include "platform/qt/display.h"

namespace dunvey {

bool CanReachDisplay() {
    return true;
}

}  // namespace dunvey
