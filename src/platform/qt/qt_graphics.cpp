#include "platform/qt/qt_graphics.h"

#include <algorithm>

#include "platform/qt/qt_text.h"

namespace dunvey {

void DrawPictureAt(QPainter& painter, const Picture& picture, const QPoint& place) {
    const Bitmap& bitmap = picture.PixelsFor(painter.device()->devicePixelRatioF());
    if (bitmap.Pixels.empty()) return;
    const auto width = static_cast<int>(bitmap.Width);
    const QImage image(reinterpret_cast<const uchar*>(bitmap.Pixels.data()), width,
                       static_cast<int>(bitmap.Height), width * 4,
                       QImage::Format_ARGB32_Premultiplied);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(
        QRect(place, QSize(static_cast<int>(picture.Width()), static_cast<int>(picture.Height()))),
        image);
}

void QtGraphics::FillRect(int64_t x, int64_t y, int64_t width, int64_t height) {
    painter_.fillRect(static_cast<int>(x), static_cast<int>(y), static_cast<int>(width),
                      static_cast<int>(height), ToQColor(ForeColor));
}

void QtGraphics::DrawLine(int64_t fromX, int64_t fromY, int64_t toX, int64_t toY) {
    // A rectangle has the same width at every scale, a pen hasn't.
    FillRect(std::min(fromX, toX), std::min(fromY, toY), std::abs(toX - fromX) + 1,
             std::abs(toY - fromY) + 1);
}

void QtGraphics::DrawPicture(const Picture& picture, int64_t x, int64_t y) {
    DrawPictureAt(painter_, picture, {static_cast<int>(x), static_cast<int>(y)});
}

}  // namespace dunvey
