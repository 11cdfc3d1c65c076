#pragma once

#include <QImage>

#include "platform/picture.h"

namespace dunvey {

/// The pixels of an image.
Bitmap BitmapOf(const QImage& image);

/// The same pixels as an image of the toolkit. They are not copied: the bitmap must live as long.
QImage ImageOf(const Bitmap& bitmap);

}  // namespace dunvey
