#pragma once

#include <functional>
#include <string>

#include "platform/controls/listbox.h"

namespace dunvey {

/// A list with stripes and hair lines, sorted in the order of a file manager.
class myListBox : public Listbox {
 public:
    /// Lets the owner paint the cell background; its result is returned to the list.
    std::function<bool(Listbox&, Graphics&, int64_t row, int64_t column)> CellBackgroundPaint;

    /// Paints nothing in a selected row.
    bool Event_CellBackgroundPaint(Graphics& graphics, int64_t row, int64_t column) override;
    bool Event_CompareRows(int64_t row1, int64_t row2, int64_t column, int64_t& result) override;
    /// Compares in the order of the user's language, runs of digits by value: negative, zero or
    /// positive. Raises DesktopUnavailableException without a screen.
    int64_t FinderCompare(const std::string& text1, const std::string& text2);
};

}  // namespace dunvey
