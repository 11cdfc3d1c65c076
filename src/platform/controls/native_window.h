#pragma once

#include <array>

#include "platform/values/reference.h"

namespace dunvey {

/// A title-bar button.
class NSButton {
 public:
    void setHidden(bool hidden) { hidden_ = hidden; }
    bool isHidden() const { return hidden_; }

 private:
    bool hidden_ = false;
};

/// The native side of a window.
class NSWindow {
 public:
    enum : int { kCloseButton = 0, kMiniaturizeButton = 1, kZoomButton = 2 };

    /// The title-bar button of that kind; nil for an unknown kind.
    Ref<NSButton> standardWindowButton(int kind) const {
        if (kind < kCloseButton || kind > kZoomButton) return nullptr;
        return buttons_[static_cast<size_t>(kind)];
    }

 private:
    std::array<Ref<NSButton>, 3> buttons_{New<NSButton>(), New<NSButton>(), New<NSButton>()};
};

}  // namespace dunvey
