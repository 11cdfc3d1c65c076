#include <QFileInfo>
#include <QMimeDatabase>

#include "platform/qt/qt_icon_source.h"

namespace dunvey {

IconSource SystemSource(const QString& path) {
    return [path](const QSize& size) {
        const QFileInfo file(path);
        if (file.isDir()) return ThemeSource(QStringLiteral("folder"))(size);
        // By the name alone: a look into the file could wait for ever.
        for (const QMimeType& type : QMimeDatabase().mimeTypesForFileName(file.fileName())) {
            for (const QString& name : {type.iconName(), type.genericIconName()}) {
                QImage image = ThemeSource(name)(size);
                if (!image.isNull()) return image;
            }
        }
        return QImage();
    };
}

}  // namespace dunvey
