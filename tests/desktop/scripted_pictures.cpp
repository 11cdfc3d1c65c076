#include <algorithm>
#include <functional>

#include "desktop/scripted_desktop.h"
#include "platform/pictures/native_image.h"

namespace dunvey::headless {
namespace {

/// An image in one colour.
class PlainImage final : public NSImage {
 public:
    explicit PlainImage(uint32_t color) : color_(color) {}

    Bitmap CGImageForProposedRect(const PixelRectangle& rectangle) const override {
        const auto count = static_cast<size_t>(rectangle.Width * rectangle.Height);
        return {rectangle.Width, rectangle.Height, std::vector<uint32_t>(count, color_)};
    }

 private:
    uint32_t color_;
};

/// The colour follows from the name, so that a test can tell whose image it is.
Ref<NSImage> ImageOf(const std::string& name) {
    const auto color = static_cast<uint32_t>(std::hash<std::string>()(name));
    return New<PlainImage>(color | 0xFF000000u);
}

/// The text with leading zeros for each number, so that numbers compare by value.
std::string Padded(const std::string& text) {
    constexpr size_t kDigits = 20;
    std::string padded, digits;
    for (const char c : text + '\0') {
        if (c >= '0' && c <= '9') {
            digits += c;
            continue;
        }
        if (!digits.empty())
            padded += std::string(kDigits - std::min(kDigits, digits.size()), '0') + digits;
        digits.clear();
        padded += c;
    }
    return padded;
}

}  // namespace

Ref<NSImage> ScriptedDesktop::IconForFile(const std::string& path) {
    return ImageOf(path);
}

Ref<NSImage> ScriptedDesktop::IconForFileType(const std::string& type) {
    return ImageOf(type);
}

int64_t ScriptedDesktop::CompareTexts(const std::string& text1, const std::string& text2) {
    const int order = Padded(text1).compare(Padded(text2));
    return order != 0 ? order : text1.compare(text2);
}

}  // namespace dunvey::headless
