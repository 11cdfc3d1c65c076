#pragma once

#include <cstdint>

#include "platform/values/variant_types.h"

namespace dunvey {

class Picture;

/// A drawing surface. Coordinates are points from its top left corner.
class Graphics {
 public:
    virtual ~Graphics() = default;

    /// The colour of rectangles, lines and texts.
    Color ForeColor;

    virtual int64_t Width() const = 0;
    virtual int64_t Height() const = 0;
    virtual void FillRect(int64_t x, int64_t y, int64_t width, int64_t height) = 0;
    /// A horizontal or vertical line one point wide, both ends included.
    virtual void DrawLine(int64_t fromX, int64_t fromY, int64_t toX, int64_t toY) = 0;
    /// Draws the picture at its own size; x and y are its top left corner.
    virtual void DrawPicture(const Picture& picture, int64_t x, int64_t y) = 0;
};

}  // namespace dunvey
