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

std::array<Ref<MessageDialogButton>, 3> MessageDialog::Buttons() const {
    return {ActionButton, AlternateActionButton, CancelButton};
}

void MessageDialog::Press(UserAction, const Ref<MessageDialogButton>& button) {
    if (!button->Visible || pressed_) return;
    pressed_ = button;
    loop_.Leave();
}

void MessageDialog::Dismiss(UserAction key) {
    if (CancelButton->Visible) {
        Press(key, CancelButton);
    } else if (!AlternateActionButton->Visible) {
        Press(key, ActionButton);
    }
}

void MsgBox(const std::string& message) {
    MessageDialog dialog;
    dialog.Message = message;
    dialog.ShowModal();
}

}  // namespace dunvey
