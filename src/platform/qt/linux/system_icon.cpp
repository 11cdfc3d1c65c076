#include <QFileInfo>
#include <QMimeDatabase>

#include "platform/qt/qt_icon_source.h"

namespace dunvey {
namespace {

/// By the name alone: a look into the file could wait for ever.
QImage ImageByName(const QString& file, const QSize& size) {
    for (const QMimeType& type : QMimeDatabase().mimeTypesForFileName(file)) {
        for (const QString& name : {type.iconName(), type.genericIconName()}) {
            QImage image = ThemeSource(name)(size)();
            if (!image.isNull()) return image;
        }
    }
    return {};
}

}  // namespace

IconSource SystemSource(const QString& path) {
    const QFileInfo file(path);
    if (file.isDir()) return ThemeSource(QStringLiteral("folder"));
    return [name = file.fileName()](const QSize& size) -> PackedImage {
        return [name, size] { return ImageByName(name, size); };
    };
}

}  // namespace dunvey
