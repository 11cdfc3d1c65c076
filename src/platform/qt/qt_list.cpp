#include "platform/qt/qt_list.h"

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTimer>

#include "platform/qt/qt_cells.h"
#include "platform/qt/qt_text.h"

namespace dunvey {

void ListRows::Read() {
    const int count = static_cast<int>(list_->ListCount());
    if (count == count_ && list_->Generation() == generation_) {
        if (count > 0) Q_EMIT dataChanged(index(0, 0), index(count - 1, columnCount() - 1));
        return;
    }
    beginResetModel();
    count_ = count;
    generation_ = list_->Generation();
    endResetModel();
}

int ListRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count_;
}

int ListRows::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_->ColumnCount());
}

QVariant ListRows::data(const QModelIndex& index, int role) const {
    // The list may have changed since Read.
    if (index.row() >= list_->ListCount()) return {};
    switch (role) {
        case Qt::DisplayRole:
            return LineOf(list_->Cell(index.row(), index.column()));
        case Qt::AccessibleDescriptionRole:
            return index.column() == 0 ? LineOf(list_->RowHelpTag(index.row())) : QString();
        default:
            return {};
    }
}

QVariant ListRows::headerData(int section, Qt::Orientation orientation, int role) const {
    const bool isHeading = orientation == Qt::Horizontal && section < list_->ColumnCount();
    if (!isHeading || role != Qt::DisplayRole) return {};
    return LineOf(list_->Heading(section));
}

QtList::QtList(Ref<Listbox> list, QWidget* parent, RunInput run)
    : QTableView(parent), list_(std::move(list)), run_(std::move(run)), rows_(list_) {
    setModel(&rows_);
    setItemDelegate(new CellPainter(list_, this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setWordWrap(false);
    setFrameShape(QFrame::Box);
    setFrameShadow(QFrame::Plain);
    note_.setWordWrap(true);
    note_.setAutoFillBackground(true);
    note_.setAlignment(Qt::AlignCenter);
    note_.setMargin(3);
    note_.hide();
    horizontalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(0);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        run_([&](UserAction key) {
            if (list_->Selected(index.row())) list_->DoubleClick(key);
        });
    });
    isReading_ = false;
}

void QtList::ReadSoon() {
    if (std::exchange(isChanged_, true)) return;
    QTimer::singleShot(0, this, [this] { ReadIfChanged(); });
}

void QtList::ReadIfChanged() {
    if (std::exchange(isChanged_, false)) Read();
}

void QtList::Read() {
    const QScopedValueRollback<bool> reading(isReading_, true);
    ReadLook();
    rows_.Read();
    SetColumnWidths();
    ReadSelection();
    ReadNote();
    viewport()->update();
}

void QtList::ReadLook() {
    // The stripes are light, so the text is dark under every theme.
    QPalette look = QApplication::palette(this);
    look.setColor(QPalette::Base, Qt::white);
    look.setColor(QPalette::AlternateBase, QColor(0xF1, 0xF2, 0xF2));
    look.setColor(QPalette::Text, Qt::black);
    look.setColor(QPalette::WindowText, QColor(0xB4, 0xB4, 0xB4));
    setPalette(look);
    look.setColor(QPalette::Window, QColor(0xFF, 0xFF, 0xDC));
    look.setColor(QPalette::WindowText, Qt::black);
    note_.setPalette(look);
    const int height = static_cast<int>(list_->DefaultRowHeight());
    verticalHeader()->setDefaultSectionSize(height);
    setFont(QApplication::font(this));
    setAccessibleName(LineOf(list_->SpokenName()));
}

void QtList::ReadSelection() {
    const QModelIndex selected = rows_.index(static_cast<int>(list_->ListIndex()), 0);
    if (!selected.isValid()) {
        clearSelection();
        selectionModel()->clearCurrentIndex();
        return;
    }
    setCurrentIndex(selected);
    scrollTo(selected);
}

void QtList::ReadNote() {
    const QString note = LineOf(list_->Note());
    setAccessibleDescription(note);
    note_.setText(note);
    note_.setHidden(note.isEmpty());
    const QRect room = viewport()->geometry();
    QRect place(room.topLeft(), QSize(room.width(), note_.heightForWidth(room.width())));
    place.moveBottom(room.bottom());
    // Never over the selected row.
    if (place.intersects(visualRect(currentIndex()))) place.moveTop(room.top());
    note_.setGeometry(place);
}

void QtList::SetColumnWidths() {
    const std::vector<int64_t> widths = list_->ColumnWidthsIn(viewport()->width());
    for (size_t column = 0; column < widths.size(); ++column)
        setColumnWidth(static_cast<int>(column), static_cast<int>(widths[column]));
}

void QtList::keyboardSearch(const QString& text) {
    if (!sinceKey_.isValid() || sinceKey_.elapsed() >= QApplication::keyboardInputInterval()) {
        searched_.clear();
    }
    sinceKey_.start();
    if (text.isEmpty() || !text.at(0).isPrint()) return;
    if (searched_.isEmpty() && text.at(0).isSpace()) return;
    searched_ += text;
    const int64_t found = list_->RowWithWord(searched_.toStdString());
    if (found != -1) setCurrentIndex(rows_.index(static_cast<int>(found), 0));
}

void QtList::mousePressEvent(QMouseEvent* event) {
    ReadIfChanged();
    if (!indexAt(event->pos()).isValid()) clearSelection();
    QTableView::mousePressEvent(event);
}

void QtList::mouseDoubleClickEvent(QMouseEvent* event) {
    ReadIfChanged();
    if (event->button() == Qt::LeftButton) QTableView::mouseDoubleClickEvent(event);
}

void QtList::keyPressEvent(QKeyEvent* event) {
    ReadIfChanged();
    // Without a selection the keys start at the top; Qt would start after the first row.
    if (list_->ListIndex() == -1) selectionModel()->clearCurrentIndex();
    QTableView::keyPressEvent(event);
}

void QtList::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    SetColumnWidths();
    ReadNote();
}

void QtList::showEvent(QShowEvent* event) {
    ReadIfChanged();
    QTableView::showEvent(event);
}

void QtList::updateGeometries() {
    QTableView::updateGeometries();
    // No scroll bar if only a hair line is hidden.
    const bool allSeen = verticalScrollBar()->maximum() <= 2 * frameWidth();
    if (allSeen) verticalScrollBar()->setRange(0, 0);
    setVerticalScrollBarPolicy(allSeen ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAlwaysOn);
}

QModelIndex QtList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action == MoveEnd) return rows_.index(rows_.rowCount() - 1, 0);
    if (action == MoveHome) return rows_.index(0, 0);
    return QTableView::moveCursor(action, modifiers);
}

QItemSelectionModel::SelectionFlags QtList::selectionCommand(const QModelIndex& index,
                                                             const QEvent* event) const {
    // Modifier keys have another meaning here, so they never deselect.
    const bool isRelease = event != nullptr && event->type() == QEvent::MouseButtonRelease;
    if (isRelease || !index.isValid()) return QItemSelectionModel::NoUpdate;
    return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}

void QtList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (isReading_) return;
    const QModelIndexList rows = selectionModel()->selectedRows();
    const int row = rows.isEmpty() ? -1 : rows.first().row();
    run_([&](UserAction key) { list_->Select(key, row); });
    // The handler may have changed the selection.
    ReadSoon();
}

}  // namespace dunvey
