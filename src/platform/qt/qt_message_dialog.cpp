#include "platform/qt/qt_message_dialog.h"

#include <QLabel>
#include <QPushButton>

#include "platform/loop/event_loop.h"

namespace dunvey {
namespace {

QString Text(const std::string& text) {
    // A message may have carriage returns as line ends, as on the Mac.
    return QString::fromStdString(text).replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

}  // namespace

QtMessageDialog::QtMessageDialog(MessageDialog& dialog, UserAction key, QWidget* parent)
    : dialog_(dialog), key_(key), box_(parent) {
    static_assert(QMessageBox::Question == MessageDialog::kQuestion + 1);
    box_.setIcon(static_cast<QMessageBox::Icon>(dialog.Icon + 1));
    box_.setText(Text(dialog.Message));
    box_.setInformativeText(Text(dialog.Explanation));
    // QMessageBox::setTextFormat doesn't reach the label of the explanation.
    for (QLabel* label : box_.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    AddButton(dialog.ActionButton, QMessageBox::AcceptRole);
    AddButton(dialog.AlternateActionButton, QMessageBox::DestructiveRole);
    AddButton(dialog.CancelButton, QMessageBox::RejectRole);
    QObject::connect(&box_, &QDialog::finished, &box_, [this] { Finish(); });
    box_.setWindowModality(parent != nullptr ? Qt::WindowModal : Qt::ApplicationModal);
    // Only now: the modality resets the flags to Qt::Sheet or Qt::Dialog and adds a close button.
    const Qt::WindowFlags kind = box_.windowFlags() & Qt::WindowType_Mask;
    box_.setWindowFlags(kind | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    box_.show();
}

QtMessageDialog::~QtMessageDialog() {
    box_.disconnect();
}

void QtMessageDialog::AddButton(const Ref<MessageDialogButton>& button,
                                QMessageBox::ButtonRole role) {
    if (!button->Visible) return;
    QPushButton* shown = box_.addButton(Text(button->Caption), role);
    buttons_.emplace_back(shown, button);
    if (button == dialog_.ActionButton) box_.setDefaultButton(shown);
    if (button == dialog_.PressedByEscape()) box_.setEscapeButton(shown);
}

void QtMessageDialog::Finish() {
    EventLoop::Current().Enter([this] {
        for (const auto& [shown, button] : buttons_) {
            if (shown == box_.clickedButton()) return dialog_.Press(key_, button);
        }
        dialog_.Press(key_, dialog_.PressedByEscape());
    });
}

}  // namespace dunvey
