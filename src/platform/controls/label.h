#pragma once

#include <string>

#include "platform/controls/rect_control.h"
#include "platform/values/variant_types.h"

namespace dunvey {

/// A line of text that can't be edited or selected.
class Label : public RectControl {
 public:
    enum : int { kAlignLeft = 0, kAlignCentre = 1 };

    const std::string& Text() const { return text_; }
    void SetText(const std::string& text) { Put(text_, text); }
    const Color& TextColor() const { return textColor_; }
    void SetTextColor(Color color) { Put(textColor_, color); }
    int TextAlign() const { return textAlign_; }
    void SetTextAlign(int align) { Put(textAlign_, align); }
    /// In points; 0 for the default size.
    int64_t TextSize() const { return textSize_; }
    void SetTextSize(int64_t size) { Put(textSize_, size); }
    bool Bold() const { return bold_; }
    void SetBold(bool bold) { Put(bold_, bold); }

 private:
    std::string text_;
    Color textColor_;
    int textAlign_ = kAlignLeft;
    int64_t textSize_ = 0;
    bool bold_ = false;
};

}  // namespace dunvey
