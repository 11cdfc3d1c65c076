#pragma once

#include <QIcon>
#include <QImage>
#include <QString>
#include <QStyle>
#include <functional>
#include <string>

#include "platform/pictures/native_image.h"
#include "platform/values/reference.h"

namespace dunvey {

/// The icon of the file or folder at an absolute path.
Ref<NSImage> QtIconForFile(const std::string& path);
/// The icon of a file type: an extension, or a four-letter code in single quotes.
Ref<NSImage> QtIconForFileType(const std::string& type);

/// Where an icon comes from.
struct IconSource {
    /// The image of an icon file for so many pixels on a side; null if it has none. Empty without
    /// an icon file.
    std::function<QImage(int side)> file;
    std::function<QIcon()> icon;  ///< what is used where there is no image
};

/// An icon of the style.
std::function<QIcon()> StandardIcon(QStyle::StandardPixmap icon);
/// The icon of a file or folder on this operating system. The path may be a plain file name.
IconSource SystemIcon(const QString& path);
/// Sets the icon of the program's windows. Does nothing on macOS.
void SetWindowIcon();

}  // namespace dunvey
