#include "platform/controls/listbox.h"

#include <algorithm>
#include <numeric>

#include "platform/text/number_text.h"
#include "platform/text/text.h"
#include "platform/values/array.h"

namespace dunvey {

void Listbox::SetColumnCount(int64_t count) {
    columns_.resize(static_cast<size_t>(count));
    for (RowContent& row : rows_)
        row.cells.resize(columns_.size());
    Changed();
}

std::vector<int64_t> Listbox::ColumnWidthsIn(int64_t width) const {
    std::vector<int64_t> widths(columns_.size(), -1);
    const std::vector<std::string> texts = SplitB(columnWidths_, ",");
    int64_t left = width;
    int64_t flexible = 0;
    for (size_t column = 0; column < widths.size(); ++column) {
        if (column < texts.size() && !texts[column].empty() && texts[column] != "*") {
            widths[column] = static_cast<int64_t>(Val(texts[column]));
            left -= widths[column];
        } else {
            ++flexible;
        }
    }
    for (int64_t& each : widths) {
        if (each != -1) continue;
        each = std::max<int64_t>(0, left / flexible);
        left -= each;
        --flexible;
    }
    return widths;
}

void Listbox::SetColumnAlignment(int64_t column, int alignment) {
    Column(column);
    Put(columns_[static_cast<size_t>(column)].alignment, alignment);
}

void Listbox::SetHeading(int64_t column, const std::string& heading) {
    Column(column);
    Put(columns_[static_cast<size_t>(column)].heading, heading);
}

void Listbox::SetColumnSortDirection(int64_t column, int direction) {
    Column(column);
    columns_[static_cast<size_t>(column)].sortDirection = direction;
}

void Listbox::AddRow(const std::vector<std::string>& texts) {
    RowContent row;
    row.cells.resize(columns_.size());
    for (size_t column = 0; column < std::min(texts.size(), row.cells.size()); ++column)
        row.cells[column].text = texts[column];
    rows_.push_back(std::move(row));
    lastIndex_ = ListCount() - 1;
    Changed();
}

void Listbox::DeleteAllRows() {
    rows_.clear();
    lastIndex_ = -1;
    ++generation_;
    const bool wasSelected = std::exchange(listIndex_, -1) != -1;
    Changed();
    if (wasSelected) Event_Change();
}

void Listbox::SetCell(int64_t row, int64_t column, const std::string& text) {
    Put(At(row, column).text, text);
}

void Listbox::SetCellTag(int64_t row, int64_t column, Variant tag) {
    Put(At(row, column).tag, std::move(tag));
}

void Listbox::SetRowPicture(int64_t row, const Ref<Picture>& picture) {
    Row(row);
    Put(rows_[static_cast<size_t>(row)].picture, picture);
}

void Listbox::SetRowHelpTag(int64_t row, const std::string& helpTag) {
    Row(row);
    Put(rows_[static_cast<size_t>(row)].helpTag, helpTag);
}

void Listbox::SetListIndex(int64_t row) {
    Put(listIndex_, row >= 0 && row < ListCount() ? row : -1);
    Event_Change();
}

bool Listbox::Selected(int64_t row) const {
    Row(row);
    return row == listIndex_;
}

int64_t Listbox::Compare(int64_t row1, int64_t row2) {
    int64_t result = 0;
    if (Event_CompareRows(row1, row2, sortedColumn_, result)) return result;
    return Cell(row1, sortedColumn_).compare(Cell(row2, sortedColumn_));
}

void Listbox::Sort() {
    if (Column(sortedColumn_).sortDirection == kSortNone) return;
    // Event_CompareRows takes indexes, so the rows are moved only after the sort.
    std::vector<int64_t> order(rows_.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [this](int64_t row1, int64_t row2) { return Compare(row1, row2) < 0; });
    std::vector<RowContent> sorted;
    sorted.reserve(rows_.size());
    for (const int64_t row : order)
        sorted.push_back(std::move(rows_[static_cast<size_t>(row)]));
    rows_ = std::move(sorted);
    if (listIndex_ != -1) listIndex_ = IndexOf(order, listIndex_);
    Changed();
}

void Listbox::InvalidateCell(int64_t, int64_t) {
    Changed();
}

int64_t Listbox::RowWithWord(std::string_view text) const {
    const std::string wanted = " " + Lowercase(text);
    int64_t partial = -1;
    for (int64_t step = 0; step < ListCount(); ++step) {
        const int64_t row = (std::max<int64_t>(0, listIndex_) + step) % ListCount();
        for (const CellContent& cell : Row(row).cells) {
            const std::string words = " " + Lowercase(cell.text);
            if (words.ends_with(wanted)) return row;
            if (partial == -1 && words.find(wanted) != std::string::npos) partial = row;
        }
    }
    return partial;
}

void Listbox::Select(UserAction, int64_t row) {
    if (!Enabled() || row >= ListCount() || row == listIndex_) return;
    const auto alive = KeepAlive();
    SetListIndex(row);
}

void Listbox::DoubleClick(UserAction) {
    if (!Enabled()) return;
    const auto alive = KeepAlive();
    Event_DoubleClick();
}

const Listbox::RowContent& Listbox::Row(int64_t row) const {
    return dunvey::At(rows_, row);
}

const Listbox::CellContent& Listbox::At(int64_t row, int64_t column) const {
    return dunvey::At(Row(row).cells, column);
}

Listbox::CellContent& Listbox::At(int64_t row, int64_t column) {
    return const_cast<CellContent&>(std::as_const(*this).At(row, column));
}

const Listbox::ColumnSettings& Listbox::Column(int64_t column) const {
    return dunvey::At(columns_, column);
}

}  // namespace dunvey
