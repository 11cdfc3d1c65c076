#include <QFileIconProvider>

#include "platform/qt/qt_icons.h"

namespace dunvey {

IconSource SystemIcon(const QString& path) {
    // Qt gets the icon from the workspace.
    return {{}, [path] { return QFileIconProvider().icon(QFileInfo(path)); }};
}

// The Dock shows the bundle's icon.
void SetWindowIcon() {}

}  // namespace dunvey
