#pragma once

#include <deque>
#include <functional>
#include <list>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

#include "platform/controls/check_box.h"
#include "platform/controls/listbox.h"
#include "platform/controls/message_dialog.h"
#include "platform/controls/push_button.h"
#include "platform/controls/window.h"
#include "platform/loop/desktop.h"

namespace dunvey::headless {

/// The program did something else than the script expects. The program doesn't catch it.
class ScriptFault : public std::logic_error {
 public:
    using std::logic_error::logic_error;
};

/// A desktop whose user is a script. It is strict: an unexpected dialog or window, a press on a
/// hidden button, an action in a window that isn't in front, or a loop in which nothing can ever
/// happen again raises ScriptFault.
class ScriptedDesktop final : public Desktop {
 public:
    enum class Answer { Action, AlternateAction, Cancel, Dismiss };
    using Step = std::function<void(Window&)>;

    /// The next dialog must have this message; `look` may check the rest; then the user answers.
    void ExpectMessage(std::string message, Answer answer = Answer::Action,
                       std::function<void(const MessageDialog&)> look = {});
    /// The next window must have this title; the steps run one after the other, each as an event of
    /// its own, while the window is the one in front. It must have closed by the last one.
    void ExpectWindow(std::string title, std::vector<Step> steps);
    /// Something that happens in a turn (RuntimeBackgroundTask): one for each turn, in the order
    /// given.
    void DuringTurn(std::function<void()> step) { turns_.push_back(std::move(step)); }

    // What the user does.
    void Press(PushButton& button);
    void Select(Listbox& list, int64_t row);
    void DoubleClick(Listbox& list, int64_t row);
    void Toggle(CheckBox& box);
    /// False if nothing can be pressed that way.
    bool Return(Window& window) { return Touch(window).PressDefault(ByUser()); }
    bool Escape(Window& window) { return Touch(window).PressCancel(ByUser()); }
    void Resize(Window& window, Size size) { Touch(window).Resize(ByUser(), size); }
    void CloseByTheDesktop(Window& window) { Touch(window).Dismiss(ByUser()); }

    /// Raises ScriptFault if an expectation or a step is left over.
    void Finish() const;

    int timesInFront() const { return timesInFront_; }

    void RunLoop() override;
    void LeaveLoop() override;
    void Wake() override {}
    void Turn() override;
    void BringToFront() override { ++timesInFront_; }
    std::unique_ptr<Shown> Show(MessageDialog& dialog, Window* parent) override;
    std::unique_ptr<Shown> Show(Window& window, bool modal) override;
    Ref<NSImage> IconForFile(const std::string& path) override;
    Ref<NSImage> IconForFileType(const std::string& type) override;
    int64_t CompareTexts(const std::string& text1, const std::string& text2) override;

 private:
    struct ExpectedMessage {
        std::string name;
        Answer answer;
        std::function<void(const MessageDialog&)> look;
    };
    struct ExpectedWindow {
        std::string name;
        std::deque<Step> steps;
    };
    struct OpenWindow {
        Window* window;
        std::deque<Step> steps;
    };
    using Open = std::variant<MessageDialog*, OpenWindow>;
    class OpenOne;

    void RunOneEvent();
    void ActOnTheFront();
    void AnswerDialog(MessageDialog& dialog);
    void TakeStep(OpenWindow& open);
    /// Removes and returns the next expectation; a fault unless it is of this kind and has the name
    /// (message or title) of what is shown.
    template <typename Expected>
    Expected TakeExpected(const std::string& shown);
    /// The window, if it is the one in front; else a fault.
    Window& Touch(Window& window) const;
    /// The window in front; nullptr if there is none or a dialog.
    const Window* Front() const;
    /// A fault unless the control is usable and in the window in front.
    void CheckReach(const RectControl& control) const;

    std::deque<std::variant<ExpectedMessage, ExpectedWindow>> expected_;
    std::deque<std::function<void()>> turns_;
    std::list<Open> open_;
    std::vector<bool> left_;
    int timesInFront_ = 0;
};

}  // namespace dunvey::headless
