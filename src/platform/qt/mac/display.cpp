#include "platform/qt/display.h"

namespace dunvey {

std::optional<Display> ReachDisplay() {
    return Display();
}

}  // namespace dunvey
