#pragma once

#include <QImage>

namespace dunvey {

/// What the program draws itself where neither a file nor the theme has a picture.
enum class IconDrawing { Page, Folder, Application, Caution };

/// The drawing as large as it fits into the size, which isn't empty.
QImage DrawIcon(IconDrawing drawing, const QSize& size);

}  // namespace dunvey
