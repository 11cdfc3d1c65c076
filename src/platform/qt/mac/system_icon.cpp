#include <QFileIconProvider>
#include <QIcon>

#include "platform/qt/qt_icon_source.h"

namespace dunvey {

IconSource SystemSource(const QString& path) {
    return [path](const QSize& size) {
        // The toolkit asks the workspace.
        return QFileIconProvider().icon(QFileInfo(path)).pixmap(size).toImage();
    };
}

}  // namespace dunvey
