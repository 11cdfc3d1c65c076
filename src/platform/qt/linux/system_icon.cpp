#include <QFileInfo>
#include <QMimeDatabase>

#include "platform/qt/qt_bitmap.h"
#include "platform/qt/qt_icon_source.h"

namespace dunvey {
namespace {

/// By the name alone: a look into the file could wait for ever.
Bitmap BitmapByName(const QString& file, const QSize& size) {
    for (const QMimeType& type : QMimeDatabase().mimeTypesForFileName(file)) {
        for (const QString& name : {type.iconName(), type.genericIconName()}) {
            const QImage image = ThemeImage(name, size);
            if (!image.isNull()) return FittedBitmapOf(image, size);
        }
    }
    return {};
}

}  // namespace

IconSource SystemSource(const QString& path) {
    const QFileInfo file(path);
    if (file.isDir()) return ThemeSource(QStringLiteral("folder"));
    return [name = file.fileName()](const QSize& size) -> CGImage {
        return [name, size] { return BitmapByName(name, size); };
    };
}

}  // namespace dunvey
