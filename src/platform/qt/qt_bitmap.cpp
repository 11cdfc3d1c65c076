#include "platform/qt/qt_bitmap.h"

#include <QPainter>
#include <algorithm>

namespace dunvey {
namespace {

bool IsBlank(const Bitmap& bitmap) {
    return std::all_of(bitmap.Pixels.begin(), bitmap.Pixels.end(),
                       [](uint32_t pixel) { return pixel == 0; });
}

QImage Fitted(const QImage& image, const QSize& size) {
    const QSize inside = image.size().scaled(size, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    const QImage scaled = image.scaled(inside, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QImage fitted(size, QImage::Format_ARGB32_Premultiplied);
    fitted.fill(Qt::transparent);
    QPainter(&fitted).drawImage((size.width() - inside.width()) / 2,
                                (size.height() - inside.height()) / 2, scaled);
    return fitted;
}

}  // namespace

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

Bitmap FittedBitmapOf(const QImage& image, const QSize& size) {
    Bitmap bitmap = BitmapOf(image);
    if (IsBlank(bitmap)) return {};
    return image.size() == size ? bitmap : BitmapOf(Fitted(image, size));
}

QImage ImageOf(const Bitmap& bitmap) {
    const auto width = static_cast<int>(bitmap.Width);
    return {reinterpret_cast<const uchar*>(bitmap.Pixels.data()), width,
            static_cast<int>(bitmap.Height), width * 4, QImage::Format_ARGB32_Premultiplied};
}

}  // namespace dunvey
