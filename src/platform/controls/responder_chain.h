#pragma once

#include <memory>

#include "platform/controls/responder.h"

namespace dunvey {

/// Finds the responder of a command without a fixed target: the window in front, then the
/// application. Windows in the background are never asked.
class ResponderChain {
 public:
    struct Entry {
        Responder* responder;
    };
    struct Remover {
        void operator()(Entry* entry) const;
    };
    /// An entry of the chain, removed when this is destroyed. It must not outlive its responder.
    using Place = std::unique_ptr<Entry, Remover>;

    /// Adds a shown window in front of the others.
    [[nodiscard]] static Place AddWindow(Responder& window);
    /// Adds a dialog in front of all windows: while it is open none of them is asked.
    [[nodiscard]] static Place AddDialog();
    /// Moves a window to the front. Does nothing while a dialog is in front.
    static void BringToFront(const Place& window);

    /// nullptr if neither takes the command.
    static Responder* FirstThatTakes(const Selector& action);
};

}  // namespace dunvey
