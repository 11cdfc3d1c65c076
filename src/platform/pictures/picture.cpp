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

void Picture::DrawWhenSeen(std::function<void(Bitmap&)> drawing) {
    drawings_.push_back(std::move(drawing));
}

const Bitmap& Picture::Pixels() const {
    while (!drawings_.empty()) {
        const auto draw = std::move(drawings_.front());
        drawings_.erase(drawings_.begin());
        draw(pixels_);
    }
    return pixels_;
}

Bitmap& Picture::Pixels() {
    static_cast<void>(std::as_const(*this).Pixels());
    return pixels_;
}

const Bitmap& Picture::PixelsFor(double scale) const {
    if (images_.empty()) return Pixels();
    const double wanted = static_cast<double>(width_) * scale;
    const auto enough =
        std::find_if(images_.begin(), images_.end(), [wanted](const Ref<Picture>& image) {
            return static_cast<double>(image->Width()) >= wanted;
        });
    const Picture& image = enough == images_.end() ? *images_.back() : **enough;
    return image.Pixels();
}

}  // namespace dunvey
