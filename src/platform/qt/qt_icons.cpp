#include "platform/qt/qt_icons.h"

#include <QApplication>
#include <QFileInfo>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <climits>
#include <map>
#include <string_view>

namespace dunvey {
namespace {

/// Pixels on a side of an icon file's part, by its type; 1 for an unknown type. The types are
/// listed in https://en.wikipedia.org/wiki/Apple_Icon_Image_format.
int SideOf(const QByteArray& type) {
    static constexpr std::pair<int, std::string_view> kTypes[] = {
        {16, "is32 icp4 ic04"}, {32, "il32 icp5 ic05 ic11"}, {48, "ih32"},       {64, "icp6 ic12"},
        {128, "it32 ic07"},     {256, "ic08 ic13"},          {512, "ic09 ic14"}, {1024, "ic10"}};
    for (const auto& [side, types] : kTypes)
        if (types.find(type.left(4).constData()) != types.npos) return side;
    return 1;
}

/// The image in the middle of a bitmap of that size, as large as fits.
Bitmap Fitted(const QImage& image, const QSize& size) {
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
    explicit QtImage(const IconSource& source) : file_(source.file), source_(source.icon) {}

    Bitmap CGImageForProposedRect(const PixelRectangle& rectangle) const override {
        const QSize size(static_cast<int>(rectangle.Width), static_cast<int>(rectangle.Height));
        if (size.isEmpty()) return {};
        QImage image = file_.Read(std::max(size.width(), size.height()));
        if (image.isNull()) {
            // The search in the icon theme makes thousands of system calls.
            if (icon_.isNull()) icon_ = source_();
            image = icon_.pixmap(size).toImage();
            image.setDevicePixelRatio(1);
        }
        return Fitted(image, size);
    }

 private:
    mutable IconFile file_;
    std::function<QIcon()> source_;
    mutable QIcon icon_;
};

}  // namespace

std::function<QIcon()> StandardIcon(QStyle::StandardPixmap icon) {
    return [icon] { return QApplication::style()->standardIcon(icon); };
}

IconFile::IconFile(const QString& path) {
    // Opening a FIFO could block.
    if (!QFileInfo(path).isFile()) return;
    reader_.setFileName(path);
    reader_.setFormat("icns");
    for (int part = 0; part < reader_.imageCount() && reader_.jumpToImage(part); ++part)
        sides_.push_back(SideOf(reader_.subType()));
}

QImage IconFile::Read(int side) {
    // In the order in which they are tried: too small ones last, the largest of them first.
    std::multimap<int, int> parts;
    int part = 0;
    for (const int partSide : sides_)
        parts.emplace(partSide >= side ? partSide : INT_MAX - partSide, part++);
    for (const auto& [order, number] : parts) {
        reader_.jumpToImage(number);
        const QImage image = reader_.read();
        if (!image.isNull()) return image;
    }
    return {};
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
