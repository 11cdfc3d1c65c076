#include "platform/qt/qt_icons.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <algorithm>

namespace dunvey {
namespace {

/// The image in the middle of a bitmap of that size, as large as fits.
Bitmap Fitted(const QImage& image, const QSize& size) {
    if (image.size() == size) {
        const QImage same = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
        const auto* first = reinterpret_cast<const uint32_t*>(same.constBits());
        return {size.width(), size.height(), {first, first + same.sizeInBytes() / 4}};
    }
    std::vector<uint32_t> pixels(static_cast<size_t>(size.width()) *
                                 static_cast<size_t>(size.height()));
    QImage fitted(reinterpret_cast<uchar*>(pixels.data()), size.width(), size.height(),
                  size.width() * 4, QImage::Format_ARGB32_Premultiplied);
    QRect place(QPoint(), image.size().scaled(size, Qt::KeepAspectRatio));
    place.moveCenter(fitted.rect().center());
    QPainter(&fitted).drawImage(place.topLeft(), image.scaled(place.size(), Qt::IgnoreAspectRatio,
                                                              Qt::SmoothTransformation));
    return {size.width(), size.height(), std::move(pixels)};
}

class QtImage final : public NSImage {
 public:
    explicit QtImage(IconSource source) : source_(std::move(source)) {}

    Bitmap CGImageForProposedRect(const PixelRectangle& rectangle) const override {
        const QSize size(static_cast<int>(rectangle.Width), static_cast<int>(rectangle.Height));
        if (size.isEmpty()) return {};
        QImage image;
        if (source_.file) image = source_.file(std::max(size.width(), size.height()));
        if (image.isNull()) {
            // The search in the icon theme makes thousands of system calls.
            if (icon_.isNull()) icon_ = source_.icon();
            image = icon_.pixmap(size).toImage();
            image.setDevicePixelRatio(1);
        }
        return Fitted(image, size);
    }

 private:
    IconSource source_;
    mutable QIcon icon_;
};

}  // namespace

std::function<QIcon()> StandardIcon(QStyle::StandardPixmap icon) {
    return [icon] { return QApplication::style()->standardIcon(icon); };
}

Ref<NSImage> QtIconForFile(const std::string& path) {
    return New<QtImage>(SystemIcon(QString::fromStdString(path)));
}

Ref<NSImage> QtIconForFileType(const std::string& type) {
    if (type == "'caut'")
        return New<QtImage>(IconSource{{}, StandardIcon(QStyle::SP_MessageBoxWarning)});
    return New<QtImage>(SystemIcon(QStringLiteral("file.") + QString::fromStdString(type)));
}

}  // namespace dunvey
