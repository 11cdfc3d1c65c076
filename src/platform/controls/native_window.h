#pragma once

#include <array>

#include "platform/values/reference.h"

namespace dunvey {

/// A button in a title bar.
class NSButton {
 public:
    void setHidden(bool hidden) { hidden_ = hidden; }
    bool isHidden() const { return hidden_; }

 private:
    bool hidden_ = false;
};

/// The operating system's side of a window.
class NSWindow {
 public:
    enum : int { kCloseButton = 0, kMiniaturizeButton = 1, kZoomButton = 2 };

    /// The title bar's button of that kind; nil for another kind.
    Ref<NSButton> standardWindowButton(int kind) const {
        if (kind < kCloseButton || kind > kZoomButton) return nullptr;
        return buttons_[static_cast<size_t>(kind)];
    }

 private:
    std::array<Ref<NSButton>, 3> buttons_{New<NSButton>(), New<NSButton>(), New<NSButton>()};
};

}  // namespace dunvey
