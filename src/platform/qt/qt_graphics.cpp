#include "platform/qt/qt_graphics.h"

#include <algorithm>

#include "platform/qt/qt_bitmap.h"
#include "platform/qt/qt_text.h"

namespace dunvey {
namespace {

QRect ToQRect(int64_t x, int64_t y, int64_t width, int64_t height) {
    return {static_cast<int>(x), static_cast<int>(y), static_cast<int>(width),
            static_cast<int>(height)};
}

}  // namespace

void DrawPictureAt(QPainter& painter, const Picture& picture, const QPoint& place) {
    const double scale = painter.device()->devicePixelRatioF();
    const Bitmap& bitmap = picture.PixelsFor(scale);
    if (bitmap.Pixels.empty()) return;
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(ToQRect(place.x(), place.y(), picture.Width(), picture.Height()),
                      ImageOf(bitmap));
}

void QtGraphics::FillRect(int64_t x, int64_t y, int64_t width, int64_t height) {
    painter_.fillRect(ToQRect(x, y, width, height), ToQColor(ForeColor));
}

void QtGraphics::DrawLine(int64_t fromX, int64_t fromY, int64_t toX, int64_t toY) {
    if (fromX == toX || fromY == toY) {
        // An upright line as a box has the same width at every scale.
        return FillRect(std::min(fromX, toX), std::min(fromY, toY), std::abs(toX - fromX) + 1,
                        std::abs(toY - fromY) + 1);
    }
    painter_.setPen(ToQColor(ForeColor));
    painter_.drawLine(static_cast<int>(fromX), static_cast<int>(fromY), static_cast<int>(toX),
                      static_cast<int>(toY));
}

void QtGraphics::DrawPicture(const Picture& picture, int64_t x, int64_t y) {
    DrawPictureAt(painter_, picture, {static_cast<int>(x), static_cast<int>(y)});
}

}  // namespace dunvey
