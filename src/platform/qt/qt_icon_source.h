#pragma once

#include <QImage>
#include <QString>
#include <functional>
#include <string>

#include "platform/pictures/native_image.h"

namespace dunvey {

/// One place where an icon may come from: gives the picture that suits the size best, fitted into
/// it. It has no pixels where there is none, or nothing can be seen of it.
using IconSource = std::function<CGImage(const QSize&)>;

/// The pictures of an icon file. It is opened now, and what it says when it is asked for a size
/// counts, but for a substitute of what turns out to be damaged: that comes from what then stands
/// there. One that is missing or unusable has none.
IconSource IconFileSource(const std::string& path);
/// The icon theme's picture of that name.
IconSource ThemeSource(const QString& name);
/// The same now, in its own size; a null image if there is none.
QImage ThemeImage(const QString& name, const QSize& size);
/// The operating system's picture for a file, a folder or a name with an extension. Where the
/// system goes by names the file isn't looked at.
IconSource SystemSource(const QString& path);

}  // namespace dunvey
