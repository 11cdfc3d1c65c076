#include "desktop/scripted_desktop.h"

#include <algorithm>
#include <utility>

#include "platform/loop/clock.h"
#include "platform/loop/event_loop.h"

namespace dunvey::headless {

/// A dialog or window on the screen; the last of all is in front.
class ScriptedDesktop::OpenOne final : public Shown {
 public:
    OpenOne(std::list<Open>& all, Open open)
        : all_(all), place_(all.insert(all.end(), std::move(open))) {}
    ~OpenOne() override { all_.erase(place_); }
    void Raise() override { all_.splice(all_.end(), all_, place_); }

 private:
    std::list<Open>& all_;
    std::list<Open>::iterator place_;
};

void ScriptedDesktop::ExpectMessage(std::string message, Answer answer,
                                    std::function<void(const MessageDialog&)> look) {
    expected_.emplace_back(ExpectedMessage{std::move(message), answer, std::move(look)});
}

void ScriptedDesktop::ExpectWindow(std::string title, std::vector<Step> steps) {
    expected_.emplace_back(
        ExpectedWindow{std::move(title), std::deque<Step>(steps.begin(), steps.end())});
}

void ScriptedDesktop::Finish() const {
    if (!expected_.empty()) {
        const auto name = [](const auto& expected) { return expected.name; };
        throw ScriptFault("never shown: \"" + std::visit(name, expected_.front()) + "\"");
    }
    if (!turns_.empty()) throw ScriptFault("steps were left over");
    if (!open_.empty()) throw ScriptFault("a dialog or window was left open");
}

template <typename Expected>
Expected ScriptedDesktop::TakeExpected(const std::string& shown) {
    if (expected_.empty() || !std::holds_alternative<Expected>(expected_.front())) {
        throw ScriptFault("not expected: \"" + shown + "\"");
    }
    auto expected = std::get<Expected>(std::move(expected_.front()));
    expected_.pop_front();
    if (expected.name == shown) return expected;
    throw ScriptFault("expected \"" + expected.name + "\", shown \"" + shown + "\"");
}

void ScriptedDesktop::RunLoop() {
    left_.push_back(false);
    while (!left_.back())
        RunOneEvent();
    left_.pop_back();
}

void ScriptedDesktop::LeaveLoop() {
    if (!left_.empty()) left_.back() = true;
}

void ScriptedDesktop::RunOneEvent() {
    EventLoop& loop = EventLoop::Current();
    const std::optional<Clock::Time> wait = loop.UntilNext();
    if (wait == Clock::Time::zero()) {
        loop.Enter([&loop] { loop.ServeNext(); });
    } else if (!open_.empty()) {
        loop.Enter([this] { ActOnTheFront(); });
    } else if (wait) {
        Clock::SleepUntil(Clock::Now() + *wait);
    } else {
        loop.Enter([] { throw ScriptFault("the loop would wait forever"); });
    }
}

void ScriptedDesktop::Turn() {
    EventLoop& loop = EventLoop::Current();
    loop.Enter([&loop] { loop.ServeNext(); });
    if (turns_.empty()) return;
    const auto step = std::move(turns_.front());
    turns_.pop_front();
    loop.Enter(step);
}

void ScriptedDesktop::ActOnTheFront() {
    if (auto* window = std::get_if<OpenWindow>(&open_.back())) return TakeStep(*window);
    AnswerDialog(*std::get<MessageDialog*>(open_.back()));
}

void ScriptedDesktop::TakeStep(OpenWindow& open) {
    if (open.steps.empty()) throw ScriptFault("left open: \"" + open.window->Title() + "\"");
    const Step step = std::move(open.steps.front());
    open.steps.pop_front();
    step(*open.window);
}

void ScriptedDesktop::AnswerDialog(MessageDialog& dialog) {
    const auto expectation = TakeExpected<ExpectedMessage>(dialog.Message);
    if (expectation.look) expectation.look(dialog);
    const Ref<MessageDialogButton> buttons[] = {dialog.ActionButton, dialog.AlternateActionButton,
                                                dialog.CancelButton, dialog.PressedByEscape()};
    const Ref<MessageDialogButton>& button = buttons[static_cast<size_t>(expectation.answer)];
    if (!button->Visible) throw ScriptFault("a button that isn't visible was to be pressed");
    dialog.Press(ByUser(), button);
}

std::unique_ptr<Shown> ScriptedDesktop::Show(MessageDialog& dialog, Window* parent) {
    if (parent != nullptr) Touch(*parent);
    return std::make_unique<OpenOne>(open_, &dialog);
}

std::unique_ptr<Shown> ScriptedDesktop::Show(Window& window, bool modal) {
    auto expectation = TakeExpected<ExpectedWindow>(window.Title());
    if (!modal && !expectation.steps.empty()) {
        throw ScriptFault("no loop runs the steps of a window that isn't modal");
    }
    window.Confine(ByUser(), {32000, 32000});
    return std::make_unique<OpenOne>(open_, OpenWindow{&window, std::move(expectation.steps)});
}

void ScriptedDesktop::Press(PushButton& button) {
    CheckReach(button);
    button.Press(ByUser());
}

void ScriptedDesktop::Select(Listbox& list, int64_t row) {
    CheckReach(list);
    if (row < -1 || row >= list.ListCount()) throw ScriptFault("there is no such row");
    list.Select(ByUser(), row);
}

void ScriptedDesktop::DoubleClick(Listbox& list, int64_t row) {
    Select(list, row);
    list.DoubleClick(ByUser());
}

void ScriptedDesktop::Toggle(CheckBox& box) {
    CheckReach(box);
    box.Toggle(ByUser());
}

Window& ScriptedDesktop::Touch(Window& window) const {
    if (Front() != &window) throw ScriptFault("not in front: \"" + window.Title() + "\"");
    return window;
}

const Window* ScriptedDesktop::Front() const {
    const auto* front = open_.empty() ? nullptr : std::get_if<OpenWindow>(&open_.back());
    return front != nullptr ? front->window : nullptr;
}

void ScriptedDesktop::CheckReach(const RectControl& control) const {
    const Window* front = Front();
    if (front == nullptr) throw ScriptFault("no window in front: " + control.Name());
    const auto& controls = front->Controls();
    const bool inside =
        std::any_of(controls.begin(), controls.end(),
                    [&control](const Ref<RectControl>& each) { return each.Get() == &control; });
    if (!inside) throw ScriptFault("not in the window in front: " + control.Name());
    if (!control.Enabled()) throw ScriptFault("can't be used: " + control.Name());
}

}  // namespace dunvey::headless
