#pragma once

#include <QIcon>
#include <QImageReader>
#include <QString>
#include <QStyle>
#include <functional>
#include <string>
#include <vector>

#include "platform/pictures/native_image.h"
#include "platform/values/reference.h"

namespace dunvey {

/// The icon of the file or folder at an absolute path.
Ref<NSImage> QtIconForFile(const std::string& path);
/// The icon of a file type: an extension, or a four-letter code in single quotes.
Ref<NSImage> QtIconForFileType(const std::string& type);

/// An icon file (.icns), empty for none, and the icon that is used without it.
struct IconSource {
    QString file;
    std::function<QIcon()> icon;
};

/// An icon of the style.
std::function<QIcon()> StandardIcon(QStyle::StandardPixmap icon);
/// The icon of a file or folder on this operating system. The path may be a plain file name.
IconSource SystemIcon(const QString& path);
/// Sets the icon of the program's windows. Does nothing on macOS.
void SetWindowIcon();

/// An icon file (.icns). Qt's reader takes longer to list its parts than to read one of them.
class IconFile {
 public:
    explicit IconFile(const QString& path);
    /// The part that suits `side` pixels: the smallest that has at least as many, else the largest;
    /// unreadable ones are skipped. A null image if there is none.
    QImage Read(int side);

 private:
    QImageReader reader_;
    std::vector<int> sides_;  ///< of the parts, in pixels
};

}  // namespace dunvey
