#pragma once

#include <QImage>

#include "platform/pictures/picture.h"

namespace dunvey {

/// The pixels of an image.
Bitmap BitmapOf(const QImage& image);

/// The image as a bitmap of that size, as large as it fits, in the middle. Without pixels where
/// nothing can be seen of it.
Bitmap FittedBitmapOf(const QImage& image, const QSize& size);

/// The same pixels as an image of the toolkit. They are not copied: the bitmap must live as long.
QImage ImageOf(const Bitmap& bitmap);

}  // namespace dunvey
