#include "platform/qt/qt_icon_source.h"

#include <QApplication>
#include <QBuffer>
#include <QIcon>
#include <QImageReader>
#include <algorithm>
#include <memory>

#include "platform/pictures/icon_family.h"
#include "platform/qt/qt_bitmap.h"

namespace dunvey {
namespace {

// Icons have at most 1,024 pixels on a side. What says it has more isn't decoded, so a small file
// can't ask for much memory.
constexpr int kLongestSide = 2048;

/// A larger picture is unpacked at once: fitted into its size it takes less.
constexpr size_t kKeptPacked = 64 * 1024;

Ref<Bitmap> DecodePng(std::string_view bytes) {
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<int>(bytes.size()));
    QBuffer buffer(&data);
    QImageReader reader(&buffer, "png");
    // Otherwise the toolkit loads what it has for other formats first.
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (std::max(size.width(), size.height()) > kLongestSide) return nullptr;
    const QImage image = reader.read();
    return image.isNull() ? nullptr : New<Bitmap>(BitmapOf(image));
}

/// The pixels that are asked for, whatever the screen's scale is.
QImage ImageOf(const QIcon& icon, const QSize& size) {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QImage image = icon.pixmap(size).toImage();
#else
    QImage image = icon.pixmap(size, 1).toImage();
#endif
    image.setDevicePixelRatio(1);
    return image;
}

/// Fitted into the size; without pixels for nil.
Bitmap FittedInto(const QSize& size, const Ref<Bitmap>& bitmap) {
    return bitmap ? FittedBitmapOf(ImageOf(*bitmap), size) : Bitmap();
}

}  // namespace

IconSource IconFileSource(const std::string& path) {
    return [path, family = std::make_shared<IconFamily>(path)](const QSize& size) -> CGImage {
        const int pixels = std::max(size.width(), size.height());
        const Ref<PackedIcon> packed = family->Packed(pixels);
        if (!packed) return [] { return Bitmap(); };
        if (packed->Size() > kKeptPacked) {
            return
                [bitmap = FittedInto(size, family->Image(pixels, &DecodePng))] { return bitmap; };
        }
        return [path, pixels, size, packed] {
            const Ref<Bitmap> bitmap = packed->Unpack(&DecodePng);
            // Another picture of the file may be sound.
            return FittedInto(size, bitmap ? bitmap : IconFamily(path).Image(pixels, &DecodePng));
        };
    };
}

IconSource ThemeSource(const QString& name) {
    return [name](const QSize& size) -> CGImage {
        return [name, size] { return FittedBitmapOf(ThemeImage(name, size), size); };
    };
}

QImage ThemeImage(const QString& name, const QSize& size) {
    return ImageOf(QIcon::fromTheme(name), size);
}

}  // namespace dunvey
