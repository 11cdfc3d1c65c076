#include <QFileIconProvider>
#include <QIcon>

#include "platform/qt/qt_icon_source.h"

namespace dunvey {

IconSource SystemSource(const QString& path) {
    return [path](const QSize& size) -> PackedImage {
        // The toolkit asks the workspace.
        const QImage image = QFileIconProvider().icon(QFileInfo(path)).pixmap(size).toImage();
        return [image] { return image; };
    };
}

}  // namespace dunvey
