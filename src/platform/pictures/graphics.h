#pragma once

#include <cstdint>

#include "platform/values/variant_types.h"

namespace dunvey {

class Picture;

/// A drawing surface. Places are in points from its top left corner.
class Graphics {
 public:
    virtual ~Graphics() = default;

    /// What FillRect and DrawLine draw in, and texts that are drawn on the surface.
    Color ForeColor;

    virtual int64_t Width() const = 0;
    virtual int64_t Height() const = 0;
    virtual void FillRect(int64_t x, int64_t y, int64_t width, int64_t height) = 0;
    /// A line one point wide; both ends belong to it.
    virtual void DrawLine(int64_t fromX, int64_t fromY, int64_t toX, int64_t toY) = 0;
    /// Draws the picture at its own size with its top left corner there.
    virtual void DrawPicture(const Picture& picture, int64_t x, int64_t y) = 0;
};

}  // namespace dunvey
