#include "chooser/my_list_box.h"

#include "platform/loop/desktop.h"

namespace dunvey {
namespace {

constexpr Color kStripe{0xF1F2F2};
constexpr Color kHairLine{0xD5D5D5};

}  // namespace

bool myListBox::Event_CellBackgroundPaint(Graphics& graphics, int64_t row, int64_t column) {
    if (Selected(row)) return true;
    const int64_t width = graphics.Width();
    const int64_t height = graphics.Height();
    if (row % 2 == 1) {
        graphics.ForeColor = kStripe;
        graphics.FillRect(0, 0, width, height);
    }
    graphics.ForeColor = kHairLine;
    graphics.DrawLine(0, height - 1, width, height - 1);
    if (column < ColumnCount() - 1) graphics.DrawLine(width - 1, 0, width - 1, height - 1);
    return CellBackgroundPaint && CellBackgroundPaint(*this, graphics, row, column);
}

bool myListBox::Event_CompareRows(int64_t row1, int64_t row2, int64_t column, int64_t& result) {
    result = FinderCompare(Cell(row1, column), Cell(row2, column));
    return true;
}

int64_t myListBox::FinderCompare(const std::string& text1, const std::string& text2) {
    return Desktop::Current().CompareTexts(text1, text2);
}

}  // namespace dunvey
