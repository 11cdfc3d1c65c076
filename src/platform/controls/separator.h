#pragma once

#include "platform/controls/rect_control.h"

namespace dunvey {

/// A line between two parts of a window, along its longer side.
class Separator : public RectControl {};

}  // namespace dunvey
