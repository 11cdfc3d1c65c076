#include <QFileIconProvider>
#include <QIcon>

#include "platform/qt/qt_bitmap.h"
#include "platform/qt/qt_icon_source.h"

namespace dunvey {

IconSource SystemSource(const QString& path) {
    return [path](const QSize& size) -> CGImage {
        // The toolkit asks the workspace.
        const QImage image = QFileIconProvider().icon(QFileInfo(path)).pixmap(size).toImage();
        return [bitmap = FittedBitmapOf(image, size)] { return bitmap; };
    };
}

}  // namespace dunvey
