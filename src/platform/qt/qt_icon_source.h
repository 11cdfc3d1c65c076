#pragma once

#include <QImage>
#include <QString>
#include <functional>
#include <string>

namespace dunvey {

/// A picture in its own size, unpacked by the call, or a null image where there is none.
using PackedImage = std::function<QImage()>;

/// One place where an icon may come from: gives the picture that suits the size best.
using IconSource = std::function<PackedImage(const QSize&)>;

/// The pictures of an icon file. It is opened now, and what it says when it is asked for a size
/// counts; one that is missing or unusable has none.
IconSource IconFileSource(const std::string& path);
/// The icon theme's picture of that name.
IconSource ThemeSource(const QString& name);
/// The operating system's picture for a file, a folder or a name with an extension. Where the
/// system goes by names the file isn't looked at.
IconSource SystemSource(const QString& path);

}  // namespace dunvey
