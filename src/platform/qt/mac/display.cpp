#include "platform/qt/display.h"

namespace dunvey {

std::optional<DisplayHold> ReachDisplay() {
    return DisplayHold();
}

}  // namespace dunvey
