#pragma once

#include <QMessageBox>

#include "platform/controls/message_dialog.h"
#include "platform/loop/desktop.h"
#include "platform/loop/user_action.h"

namespace dunvey {

/// A message dialog on the screen: a sheet of `parent`, or where that is nullptr a window of its
/// own that blocks the whole program.
class QtMessageDialog final : public Shown {
 public:
    QtMessageDialog(MessageDialog& dialog, UserAction key, QWidget* parent);
    ~QtMessageDialog() override;

 private:
    void AddButton(const Ref<MessageDialogButton>& button, QMessageBox::ButtonRole role);
    void Finish();

    MessageDialog& dialog_;
    UserAction key_;
    QMessageBox box_;
    std::vector<std::pair<QAbstractButton*, Ref<MessageDialogButton>>> buttons_;
};

}  // namespace dunvey
