#include "platform/pictures/picture.h"

#include <algorithm>
#include <utility>

namespace dunvey {

Picture::Picture(int64_t width, int64_t height)
    : width_(std::max<int64_t>(0, width)),
      height_(std::max<int64_t>(0, height)),
      pixels_{width_, height_, std::vector<uint32_t>(static_cast<size_t>(width_ * height_))} {}

Picture::Picture(int64_t width, int64_t height, std::vector<Ref<Picture>> images)
    : width_(width), height_(height), images_(std::move(images)) {}

const Bitmap& Picture::PixelsFor(double scale) const {
    if (images_.empty()) return pixels_;
    const double wanted = static_cast<double>(width_) * scale;
    const auto enough =
        std::find_if(images_.begin(), images_.end(), [wanted](const Ref<Picture>& image) {
            return static_cast<double>(image->Width()) >= wanted;
        });
    return (enough == images_.end() ? images_.back() : *enough)->pixels_;
}

}  // namespace dunvey
