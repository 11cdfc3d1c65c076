#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/rect_control.h"
#include "platform/loop/user_action.h"
#include "platform/pictures/graphics.h"
#include "platform/pictures/picture.h"
#include "platform/values/variant.h"

namespace dunvey {

/// A list of rows in columns, of which one row at most is selected. Rows and columns count from 0;
/// a row or column that isn't there raises OutOfBoundsException.
class Listbox : public RectControl {
 public:
    enum : int { kSortDescending = -1, kSortNone = 0, kSortAscending = 1 };
    enum : int { kAlignDefault = 0, kAlignLeft = 1, kAlignCentre = 2, kAlignRight = 3 };

    /// What a screen reader calls the list.
    const std::string& SpokenName() const { return spokenName_; }
    void SetSpokenName(const std::string& name) { Put(spokenName_, name); }
    /// A line shown below the rows, such as what the list waits for. Empty for none.
    const std::string& Note() const { return note_; }
    void SetNote(const std::string& note) { Put(note_, note); }

    int64_t ColumnCount() const { return static_cast<int64_t>(columns_.size()); }
    void SetColumnCount(int64_t count);
    /// The columns' widths in points, separated by commas; "*" or none takes what the others leave.
    void SetColumnWidths(std::string widths) { columnWidths_ = std::move(widths); }
    /// The columns' widths in a list of that width, in points.
    std::vector<int64_t> ColumnWidthsIn(int64_t width) const;
    int ColumnAlignment(int64_t column) const { return Column(column).alignment; }
    void SetColumnAlignment(int64_t column, int alignment);
    /// The column's name, which only a screen reader gets: the list shows no headings.
    const std::string& Heading(int64_t column) const { return Column(column).heading; }
    void SetHeading(int64_t column, const std::string& heading);
    void SetColumnSortDirection(int64_t column, int direction);
    int64_t DefaultRowHeight() const { return rowHeight_; }
    void SetDefaultRowHeight(int64_t height) { Put(rowHeight_, height); }

    void AddRow(const std::string& text) { AddRow(std::vector<std::string>{text}); }
    /// Adds a row at the end, one text for each column from the first on.
    void AddRow(const std::vector<std::string>& texts);
    /// The row last added, -1 for none.
    int64_t LastIndex() const { return lastIndex_; }
    int64_t ListCount() const { return static_cast<int64_t>(rows_.size()); }
    /// Throws all rows away. If one was selected, Change fires.
    void DeleteAllRows();
    /// How often the rows were thrown away: whoever walks them sees from it that they are new ones.
    int64_t Filling() const { return filling_; }

    const std::string& Cell(int64_t row, int64_t column) const { return At(row, column).text; }
    void SetCell(int64_t row, int64_t column, const std::string& text);
    const Variant& CellTag(int64_t row, int64_t column) const { return At(row, column).tag; }
    void SetCellTag(int64_t row, int64_t column, Variant tag);
    const Ref<Picture>& RowPicture(int64_t row) const { return Row(row).picture; }
    void SetRowPicture(int64_t row, const Ref<Picture>& picture);
    /// What is worth knowing of the row besides its texts: shown as tool tip, and the description
    /// that a screen reader gets. Empty for none.
    const std::string& RowHelpTag(int64_t row) const { return Row(row).helpTag; }
    void SetRowHelpTag(int64_t row, const std::string& helpTag);

    /// The selected row, -1 for none.
    int64_t ListIndex() const { return listIndex_; }
    /// Selects the row, none for a row that isn't there. Fires Change even if it was selected
    /// before.
    void SetListIndex(int64_t row);
    bool Selected(int64_t row) const { return row == listIndex_; }

    int64_t SortedColumn() const { return sortedColumn_; }
    void SetSortedColumn(int64_t column) { sortedColumn_ = column; }
    /// Sorts by the column of SortedColumn in that column's direction; equal rows keep their order.
    /// The selection stays with its row, and nothing fires.
    void Sort();
    /// Has a cell painted anew; -1 for all rows or columns.
    void InvalidateCell(int64_t row, int64_t column);

    /// The first row from `start` on, the list taken as a ring, in which a word of any cell begins
    /// a text with `text`, letter case ignored; -1 for none.
    int64_t RowWithWord(std::string_view text, int64_t start) const;

    /// The user selects a row, -1 for none. Change fires if it is another one.
    void Select(UserAction, int64_t row);
    /// The user double-clicks the selected row.
    void DoubleClick(UserAction);

    std::function<void(Listbox&)> Open;
    std::function<void(Listbox&)> Change;
    std::function<void(Listbox&)> DoubleClickHandler;
    std::function<bool(Listbox&, Graphics&, int64_t row, int64_t column, int64_t x, int64_t y)>
        CellTextPaint;

    // The defaults call the joined handlers.
    void Event_Open() override;
    virtual void Event_Change();
    virtual void Event_DoubleClick();
    /// Fired before a cell's text is drawn in the surface's ForeColor, at x and y. True if the text
    /// has been drawn.
    virtual bool Event_CellTextPaint(Graphics& graphics, int64_t row, int64_t column, int64_t x,
                                     int64_t y);
    /// Fired before a cell is drawn. True if the list's own background isn't wanted.
    virtual bool Event_CellBackgroundPaint(Graphics& graphics, int64_t row, int64_t column);
    /// Fired by Sort. True if `result` holds the order of the rows: negative, zero or positive.
    virtual bool Event_CompareRows(int64_t row1, int64_t row2, int64_t column, int64_t& result);

 private:
    struct CellContent {
        std::string text;
        Variant tag;
    };
    struct RowContent {
        std::vector<CellContent> cells;
        Ref<Picture> picture;
        std::string helpTag;
    };
    struct ColumnSettings {
        std::string heading;
        int alignment = kAlignDefault;
        int sortDirection = kSortNone;
    };

    const RowContent& Row(int64_t row) const;
    const CellContent& At(int64_t row, int64_t column) const;
    CellContent& At(int64_t row, int64_t column);
    const ColumnSettings& Column(int64_t column) const;
    int64_t Compare(int64_t row1, int64_t row2);

    std::vector<ColumnSettings> columns_ = std::vector<ColumnSettings>(1);
    std::vector<RowContent> rows_;
    std::string columnWidths_;
    std::string spokenName_;
    std::string note_;
    int64_t rowHeight_ = 20;
    int64_t lastIndex_ = -1;
    int64_t listIndex_ = -1;
    int64_t sortedColumn_ = 0;
    int64_t filling_ = 0;
};

}  // namespace dunvey
