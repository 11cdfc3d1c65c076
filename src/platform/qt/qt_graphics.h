#pragma once

#include <QPainter>

#include "platform/pictures/graphics.h"
#include "platform/pictures/picture.h"

namespace dunvey {

/// Draws the picture at its own size, in the resolution that suits the device best.
void DrawPictureAt(QPainter& painter, const Picture& picture, const QPoint& place);

/// A drawing surface of `size` whose top left corner is the painter's origin.
class QtGraphics final : public Graphics {
 public:
    QtGraphics(QPainter& painter, const QSize& size) : painter_(painter), size_(size) {}

    int64_t Width() const override { return size_.width(); }
    int64_t Height() const override { return size_.height(); }
    void FillRect(int64_t x, int64_t y, int64_t width, int64_t height) override;
    void DrawLine(int64_t fromX, int64_t fromY, int64_t toX, int64_t toY) override;
    void DrawPicture(const Picture& picture, int64_t x, int64_t y) override;

 private:
    QPainter& painter_;
    QSize size_;
};

}  // namespace dunvey
