#pragma once

#include <functional>
#include <string>

#include "platform/controls/listbox.h"

namespace dunvey {

/// A list with stripes and hair lines, sorted in the order of the system's file manager.
class myListBox : public Listbox {
 public:
    /// The owner's share in a cell's background; its result is the list's.
    std::function<bool(Listbox&, Graphics&, int64_t row, int64_t column)> CellBackgroundPaint;

    /// A selected row keeps the highlight alone.
    bool Event_CellBackgroundPaint(Graphics& graphics, int64_t row, int64_t column) override;
    bool Event_CompareRows(int64_t row1, int64_t row2, int64_t column, int64_t& result) override;
    /// Compares as the user's language orders names, digits by their value: negative, zero or
    /// positive. Raises DesktopUnavailableException without a screen.
    int64_t FinderCompare(const std::string& text1, const std::string& text2);
};

}  // namespace dunvey
