#pragma once

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/desktop.h"
#include "platform/message_dialog.h"

namespace dunvey::headless {

/// The test's script and what the program did don't agree. No code of the program catches it.
class ScriptFault : public std::logic_error {
 public:
    using std::logic_error::logic_error;
};

/// A desktop whose user is a script. It is strict: a dialog that isn't expected, a press on a
/// button that isn't there, or a loop in which nothing can ever happen again raises ScriptFault,
/// and Finish tells of expectations that are left over.
class ScriptedDesktop final : public Desktop {
 public:
    enum class Answer { Action, AlternateAction, Cancel, Dismiss };

    /// The next dialog must have this message; `look` may check the rest; then the user answers.
    void ExpectMessage(std::string message, Answer answer = Answer::Action,
                       std::function<void(const MessageDialog&)> look = {});
    /// Something that happens while the loop waits, in the order given, when nothing else is due.
    void Later(std::function<void()> step) { steps_.push_back(std::move(step)); }

    /// Raises ScriptFault if an expectation or a step is left over.
    void Finish() const;

    int timesInFront() const { return timesInFront_; }

    void RunLoop() override;
    void LeaveLoop() override;
    void Wake() override {}
    void BringToFront() override { ++timesInFront_; }
    std::unique_ptr<Shown> Show(MessageDialog& dialog, Window* parent) override;

 private:
    struct Expectation {
        std::string message;
        Answer answer;
        std::function<void(const MessageDialog&)> look;
    };
    class OpenDialog;

    void Turn();
    void AnswerDialog();

    std::deque<Expectation> expected_;
    std::deque<std::function<void()>> steps_;
    std::vector<MessageDialog*> open_;
    std::vector<bool> left_;
    int timesInFront_ = 0;
};

}  // namespace dunvey::headless
