#pragma once

#include "platform/rect_control.h"

namespace dunvey {

/// A line between two parts of a window, along its longer side.
class Separator : public RectControl {};

}  // namespace dunvey
