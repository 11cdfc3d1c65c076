#include "platform/headless/scripted_desktop.h"

#include <utility>

#include "platform/clock.h"
#include "platform/event_loop.h"

namespace dunvey::headless {

class ScriptedDesktop::OpenDialog final : public Shown {
 public:
    OpenDialog(std::vector<MessageDialog*>& open, MessageDialog& dialog) : open_(open) {
        open_.push_back(&dialog);
    }
    ~OpenDialog() override { open_.pop_back(); }

 private:
    std::vector<MessageDialog*>& open_;
};

void ScriptedDesktop::ExpectMessage(std::string message, Answer answer,
                                    std::function<void(const MessageDialog&)> look) {
    expected_.push_back({std::move(message), answer, std::move(look)});
}

void ScriptedDesktop::Finish() const {
    if (!expected_.empty()) {
        throw ScriptFault("never shown: \"" + expected_.front().message + "\"");
    }
    if (!steps_.empty()) throw ScriptFault("steps were left over");
    if (!open_.empty()) throw ScriptFault("a dialog was left open");
}

void ScriptedDesktop::RunLoop() {
    left_.push_back(false);
    while (!left_.back())
        Turn();
    left_.pop_back();
}

void ScriptedDesktop::LeaveLoop() {
    if (!left_.empty()) left_.back() = true;
}

void ScriptedDesktop::Turn() {
    EventLoop& loop = EventLoop::Current();
    const std::optional<Clock::Time> wait = loop.UntilNext();
    if (wait == Clock::Time::zero()) {
        loop.Enter([&loop] { loop.ServeNext(); });
    } else if (!steps_.empty()) {
        const auto step = std::move(steps_.front());
        steps_.pop_front();
        loop.Enter(step);
    } else if (!open_.empty()) {
        loop.Enter([this] { AnswerDialog(); });
    } else if (wait) {
        Clock::SleepUntil(Clock::Now() + *wait);
    } else {
        loop.Enter([] { throw ScriptFault("the loop would wait for ever"); });
    }
}

void ScriptedDesktop::AnswerDialog() {
    MessageDialog& dialog = *open_.back();
    if (expected_.empty()) throw ScriptFault("not expected: \"" + dialog.Message + "\"");
    const Expectation expectation = std::move(expected_.front());
    expected_.pop_front();
    if (expectation.message != dialog.Message) {
        throw ScriptFault("expected \"" + expectation.message + "\", shown \"" + dialog.Message +
                          "\"");
    }
    if (expectation.look) expectation.look(dialog);
    if (expectation.answer == Answer::Dismiss) return dialog.Dismiss(ByUser());
    const Ref<MessageDialogButton> button =
        dialog.Buttons()[static_cast<size_t>(expectation.answer)];
    if (!button->Visible) throw ScriptFault("a button that isn't visible was to be pressed");
    dialog.Press(ByUser(), button);
}

std::unique_ptr<Shown> ScriptedDesktop::Show(MessageDialog& dialog, Window*) {
    return std::make_unique<OpenDialog>(open_, dialog);
}

}  // namespace dunvey::headless
