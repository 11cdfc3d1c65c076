#pragma once

#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <QLabel>
#include <QTableView>

#include "platform/controls/listbox.h"
#include "platform/qt/qt_controls.h"

namespace dunvey {

/// The Qt model of a Listbox. It stores only the row count of the last Read.
class ListRows final : public QAbstractTableModel {
 public:
    explicit ListRows(Ref<Listbox> list) : list_(std::move(list)) {}

    /// Signals what has changed since the last call.
    void Read();
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// The columns' names for a screen reader: the headers are hidden.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
    Ref<Listbox> list_;
    int count_ = 0;
    int64_t generation_ = 0;
};

/// A Listbox on the screen.
class QtList final : public QTableView {
 public:
    QtList(Ref<Listbox> list, QWidget* parent, RunInput run);

    /// Reads the list once at the next turn of the event loop.
    void ReadSoon();
    void keyboardSearch(const QString& text) override;

 protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void updateGeometries() override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

 private:
    void Read();
    void ReadIfChanged();
    void ReadLook();
    void ReadSelection();
    void ReadNote();
    void SetColumnWidths();

    Ref<Listbox> list_;
    RunInput run_;
    ListRows rows_;
    bool isChanged_ = false;
    /// While true, selection changes don't come from the user.
    bool isReading_ = true;
    /// Over the rows, at the bottom or the top.
    QLabel note_{this};
    QString searched_;
    QElapsedTimer sinceKey_;
};

}  // namespace dunvey
