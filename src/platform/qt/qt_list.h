#pragma once

#include <QAbstractTableModel>
#include <QElapsedTimer>
#include <QTableView>

#include "platform/controls/listbox.h"
#include "platform/qt/qt_controls.h"

namespace dunvey {

/// The rows of a Listbox for the toolkit; it keeps nothing but how many there were when it was last
/// read.
class ListRows final : public QAbstractTableModel {
 public:
    explicit ListRows(Ref<Listbox> list) : list_(std::move(list)) {}

    /// Tells the toolkit that the rows are other ones.
    void Read();
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// The columns' names for a screen reader: the headers are hidden.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
    Ref<Listbox> list_;
    int count_ = 0;
    int64_t filling_ = 0;
};

/// A Listbox on the screen.
class QtList final : public QTableView {
 public:
    QtList(Ref<Listbox> list, QWidget* parent, UserDoor door);

    /// Reads the list anew at the toolkit's next turn, however often it is asked for until then.
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
    void SetColumnWidths();

    Ref<Listbox> list_;
    UserDoor door_;
    ListRows rows_;
    bool isChanged_ = false;
    /// What changes on the screen is the list's own doing, not the user's.
    bool isReading_ = true;
    QString searched_;
    QElapsedTimer sinceKey_;
};

}  // namespace dunvey
