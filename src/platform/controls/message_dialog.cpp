#include "platform/controls/message_dialog.h"

#include "platform/controls/responder_chain.h"
#include "platform/loop/desktop.h"

namespace dunvey {

Ref<MessageDialogButton> MessageDialog::ShowModalWithin(Window* parent) {
    pressed_ = nullptr;
    loop_ = ModalLoop();
    const std::unique_ptr<Shown> shown = Desktop::Current().Show(*this, parent);
    const ResponderChain::Place place = ResponderChain::AddDialog();
    loop_.Run();
    return pressed_;
}

void MessageDialog::Press(UserAction, const Ref<MessageDialogButton>& button) {
    if (!button->Visible || pressed_) return;
    pressed_ = button;
    loop_.Leave();
}

Ref<MessageDialogButton> MessageDialog::PressedByEscape() const {
    if (DismissButton) return DismissButton;
    return CancelButton->Visible ? CancelButton : ActionButton;
}

void MsgBox(const std::string& message) {
    MessageDialog dialog;
    dialog.Message = message;
    dialog.ShowModal();
}

}  // namespace dunvey
