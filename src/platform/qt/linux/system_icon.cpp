#include <QApplication>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeDatabase>

#include "platform/bundles/bundle_icon.h"
#include "platform/bundles/executable_path.h"
#include "platform/linux/icons/icon_file.h"
#include "platform/qt/qt_icons.h"

namespace dunvey {
namespace {

std::string OwnResource(const char* name) {
    return OwnResources()->Child(name)->NativePath();
}

/// The part of that type as Qt reads it; null if it can't.
QImage ReadByQt(const IconFile& file, const IconFilePart& part) {
    QImageReader reader(QString::fromStdString(file.Path()), "icns");
    for (int i = 0; i < reader.imageCount() && reader.jumpToImage(i); ++i)
        if (reader.subType().left(4).toStdString() == part.Type) return reader.read();
    return {};
}

QImage ReadByLibpng(const IconFile& file, const IconFilePart& part) {
    const Bitmap bitmap = file.ReadPng(part);
    if (bitmap.Pixels.empty()) return {};
    const auto* pixels = reinterpret_cast<const uchar*>(bitmap.Pixels.data());
    return QImage(pixels, static_cast<int>(bitmap.Width), static_cast<int>(bitmap.Height),
                  QImage::Format_ARGB32_Premultiplied)
        .copy();
}

QImage ReadIcon(const IconFile& file, int side) {
    for (const IconFilePart& part : file.PartsFor(side)) {
        const QImage image = part.IsPng ? ReadByLibpng(file, part) : ReadByQt(file, part);
        if (!image.isNull()) return image;
    }
    return {};
}

/// What reads the icon file. An empty path gives an empty function.
std::function<QImage(int side)> ReaderOf(const std::string& path) {
    if (path.empty()) return {};
    return [file = IconFile(path)](int side) { return ReadIcon(file, side); };
}

/// The icon that was imported for documents with this extension; empty for other files.
std::string ImportedIcon(const QString& extension) {
    if (extension == QLatin1String("indb")) return OwnResource("ID_Book_Icon.icns");
    for (const char* document : {"indd", "indl", "indt"})
        if (extension == QLatin1String(document)) return OwnResource("ID_Document_Icon.icns");
    return {};
}

/// By the file name only: opening a FIFO would block.
QIcon DocumentIcon(const QString& fileName) {
    for (const QMimeType& type : QMimeDatabase().mimeTypesForFileName(fileName))
        for (const QString& name : {type.iconName(), type.genericIconName()})
            if (QIcon::hasThemeIcon(name)) return QIcon::fromTheme(name);
    return StandardIcon(QStyle::SP_FileIcon)();
}

QIcon ApplicationIcon() {
    const QIcon icon = QIcon::fromTheme(QStringLiteral("application-x-executable"));
    return icon.availableSizes().isEmpty() ? StandardIcon(QStyle::SP_FileIcon)() : icon;
}

}  // namespace

IconSource SystemIcon(const QString& path) {
    const FolderItem item(path.toStdString());
    if (IsBundle(item)) return {ReaderOf(BundleIconPath(item)), &ApplicationIcon};
    if (item.Directory()) return {{}, StandardIcon(QStyle::SP_DirIcon)};
    const QFileInfo file(path);
    return {ReaderOf(ImportedIcon(file.suffix().toLower())),
            [name = file.fileName()] { return DocumentIcon(name); }};
}

void SetWindowIcon() {
    QIcon icon;
    const IconFile file(OwnResource("Dunvey.icns"));
    for (const int side : {16, 32, 64, 128}) {
        const QImage image = ReadIcon(file, side);
        if (!image.isNull()) icon.addPixmap(QPixmap::fromImage(image));
    }
    QApplication::setWindowIcon(icon);
}

}  // namespace dunvey
