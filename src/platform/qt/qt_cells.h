#pragma once

#include <QStyledItemDelegate>

#include "platform/controls/listbox.h"

namespace dunvey {

/// Paints the cells of a Listbox and fires its paint events.
class CellPainter final : public QStyledItemDelegate {
 public:
    CellPainter(Ref<Listbox> list, QObject* parent)
        : QStyledItemDelegate(parent), list_(std::move(list)) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// Shows the whole text of a shortened cell and the help tag of the row.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

 private:
    void PaintBackground(QPainter& painter, const QStyleOptionViewItem& option, int64_t row,
                         int64_t column) const;
    void PaintText(QPainter& painter, const QStyleOptionViewItem& option, int64_t row,
                   int64_t column) const;
    QRect TextRoom(const QSize& cell, int64_t row, int64_t column) const;

    Ref<Listbox> list_;
};

}  // namespace dunvey
