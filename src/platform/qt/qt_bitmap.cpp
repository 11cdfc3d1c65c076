#include "platform/qt/qt_bitmap.h"

#include <algorithm>

namespace dunvey {

Bitmap BitmapOf(const QImage& image) {
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    Bitmap bitmap{pixels.width(), pixels.height(), {}};
    bitmap.Pixels.reserve(static_cast<size_t>(bitmap.Width * bitmap.Height));
    for (int row = 0; row < pixels.height(); ++row) {
        const auto* line = reinterpret_cast<const uint32_t*>(pixels.constScanLine(row));
        bitmap.Pixels.insert(bitmap.Pixels.end(), line, line + pixels.width());
    }
    return bitmap;
}

QImage ImageOf(const Bitmap& bitmap) {
    const auto width = static_cast<int>(bitmap.Width);
    return {reinterpret_cast<const uchar*>(bitmap.Pixels.data()), width,
            static_cast<int>(bitmap.Height), width * 4, QImage::Format_ARGB32_Premultiplied};
}

}  // namespace dunvey
