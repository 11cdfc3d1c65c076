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

/// A list of rows in columns with at most one selected row. Rows and columns count from 0; an index
/// out of range raises OutOfBoundsException.
class Listbox : public RectControl {
 public:
    enum : int { kSortNone = 0, kSortAscending = 1 };
    enum : int { kAlignDefault = 0, kAlignCentre = 2 };

    /// The name for screen readers.
    const std::string& SpokenName() const { return spokenName_; }
    void SetSpokenName(const std::string& name) { Put(spokenName_, name); }
    /// A line shown over the rows, such as what is being waited for. Empty for none.
    const std::string& Note() const { return note_; }
    void SetNote(const std::string& note) { Put(note_, note); }

    int64_t ColumnCount() const { return static_cast<int64_t>(columns_.size()); }
    void SetColumnCount(int64_t count);
    /// Widths in points, separated by commas. Columns with "*" or no width share the rest equally.
    void SetColumnWidths(std::string widths) { columnWidths_ = std::move(widths); }
    /// The widths in points of the columns in a list of that width.
    std::vector<int64_t> ColumnWidthsIn(int64_t width) const;
    int ColumnAlignment(int64_t column) const { return Column(column).alignment; }
    void SetColumnAlignment(int64_t column, int alignment);
    /// The column's name for screen readers; the list shows no headings.
    const std::string& Heading(int64_t column) const { return Column(column).heading; }
    void SetHeading(int64_t column, const std::string& heading);
    void SetColumnSortDirection(int64_t column, int direction);
    int64_t DefaultRowHeight() const { return rowHeight_; }
    void SetDefaultRowHeight(int64_t height) { Put(rowHeight_, height); }

    void AddRow(const std::string& text) { AddRow(std::vector<std::string>{text}); }
    /// Adds a row at the end with the texts of its first columns.
    void AddRow(const std::vector<std::string>& texts);
    /// The row last added, -1 for none.
    int64_t LastIndex() const { return lastIndex_; }
    int64_t ListCount() const { return static_cast<int64_t>(rows_.size()); }
    /// Change fires if a row was selected.
    void DeleteAllRows();
    /// The number of DeleteAllRows calls: tells a loop over the rows that they were replaced.
    int64_t Generation() const { return generation_; }

    const std::string& Cell(int64_t row, int64_t column) const { return At(row, column).text; }
    void SetCell(int64_t row, int64_t column, const std::string& text);
    const Variant& CellTag(int64_t row, int64_t column) const { return At(row, column).tag; }
    void SetCellTag(int64_t row, int64_t column, Variant tag);
    const Ref<Picture>& RowPicture(int64_t row) const { return Row(row).picture; }
    void SetRowPicture(int64_t row, const Ref<Picture>& picture);
    /// The row's tool tip, which is also its description for screen readers. Empty for none.
    const std::string& RowHelpTag(int64_t row) const { return Row(row).helpTag; }
    void SetRowHelpTag(int64_t row, const std::string& helpTag);

    /// The selected row, -1 for none.
    int64_t ListIndex() const { return listIndex_; }
    /// Selects the row, or none if it is out of range. Change fires even for the selected row.
    void SetListIndex(int64_t row);
    bool Selected(int64_t row) const;

    int64_t SortedColumn() const { return sortedColumn_; }
    void SetSortedColumn(int64_t column) { sortedColumn_ = column; }
    /// Sorts by SortedColumn if that column's direction is ascending; equal rows keep their order.
    /// The selection stays with its row; no event fires.
    void Sort();
    /// Repaints a cell; -1 for all rows or columns.
    void InvalidateCell(int64_t row, int64_t column);

    /// Type-ahead: the row with a cell that ends with `text` as whole words, else one with a word
    /// that begins with it. The search starts at the selected row and wraps around; letter case is
    /// ignored. -1 for none.
    int64_t RowWithWord(std::string_view text) const;

    /// The user selects a row, -1 for none. Change fires if the selection changes.
    void Select(UserAction, int64_t row);
    /// The user double-clicks the selected row.
    void DoubleClick(UserAction);

    std::function<void(Listbox&)> Open;
    std::function<void(Listbox&)> Change;
    std::function<void(Listbox&)> DoubleClickHandler;
    std::function<bool(Listbox&, Graphics&, int64_t row, int64_t column, int64_t x, int64_t y)>
        CellTextPaint;

    // The defaults call the handlers.
    void Event_Open() override {
        if (Open) Open(*this);
    }
    virtual void Event_Change() {
        if (Change) Change(*this);
    }
    virtual void Event_DoubleClick() {
        if (DoubleClickHandler) DoubleClickHandler(*this);
    }
    /// Fired before a cell's text is drawn in the ForeColor; x is its left edge and y its baseline.
    /// True if the handler has drawn the text.
    virtual bool Event_CellTextPaint(Graphics& graphics, int64_t row, int64_t column, int64_t x,
                                     int64_t y) {
        return CellTextPaint && CellTextPaint(*this, graphics, row, column, x, y);
    }
    /// Fired before a cell is drawn. True if the list must not paint its own background; the
    /// highlight of the selected row is painted in any case.
    virtual bool Event_CellBackgroundPaint(Graphics&, int64_t /*row*/, int64_t /*column*/) {
        return false;
    }
    /// Fired by Sort. True if `result` is set: negative, zero or positive.
    virtual bool Event_CompareRows(int64_t /*row1*/, int64_t /*row2*/, int64_t /*column*/,
                                   int64_t& /*result*/) {
        return false;
    }

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
    int64_t generation_ = 0;
};

}  // namespace dunvey
