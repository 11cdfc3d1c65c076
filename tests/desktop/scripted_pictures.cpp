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

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The digits from `place` on without leading zeros; moves `place` after them.
std::string DigitsAt(const std::string& text, size_t& place) {
    std::string digits;
    for (; place < text.size() && IsDigit(text[place]); ++place)
        if (!digits.empty() || text[place] != '0') digits += text[place];
    return digits;
}

}  // namespace

Ref<NSImage> ScriptedDesktop::IconForFile(const std::string& path) {
    return ImageOf(path);
}

Ref<NSImage> ScriptedDesktop::IconForFileType(const std::string& type) {
    return ImageOf(type);
}

int64_t ScriptedDesktop::CompareTexts(const std::string& text1, const std::string& text2) {
    size_t place1 = 0;
    size_t place2 = 0;
    while (place1 < text1.size() && place2 < text2.size()) {
        if (!IsDigit(text1[place1]) || !IsDigit(text2[place2])) {
            if (text1[place1] != text2[place2]) return text1[place1] < text2[place2] ? -1 : 1;
            ++place1;
            ++place2;
            continue;
        }
        const std::string digits1 = DigitsAt(text1, place1);
        const std::string digits2 = DigitsAt(text2, place2);
        if (digits1.size() != digits2.size()) return digits1.size() < digits2.size() ? -1 : 1;
        if (digits1 != digits2) return digits1.compare(digits2);
    }
    return text1.compare(text2);
}

}  // namespace dunvey::headless
