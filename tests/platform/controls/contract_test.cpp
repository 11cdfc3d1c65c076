#include "desktop/machine.h"
#include "desktop/scripted_desktop.h"
#include "support/application.h"
#include "support/contract_script.h"

namespace dunvey::test {
namespace {

/// The hands of the scripted desktop.
class ScriptedHands final : public Hands {
 public:
    ScriptedHands() {
        headless::TheMachine() = {};
        auto desktop = std::make_unique<headless::ScriptedDesktop>();
        desktop_ = desktop.get();
        Desktop::Install(std::move(desktop));
    }
    ~ScriptedHands() override {
        EXPECT_NO_THROW(desktop_->Finish());
        Desktop::Install(nullptr);
    }

    void Show(Window& window) override {
        desktop_->ExpectWindow(window.Title(), {});
        window.Show();
    }
    void WhenShown(Window& window, std::vector<Step> steps) override {
        std::vector<headless::ScriptedDesktop::Step> each;
        for (Step& step : steps)
            each.emplace_back([step = std::move(step)](Window&) { step(); });
        desktop_->ExpectWindow(window.Title(), std::move(each));
    }
    void DuringTurn(Step step) override { desktop_->DuringTurn(std::move(step)); }
    void AnswerSheet(Window&, const std::string& message) override {
        desktop_->ExpectMessage(message);
    }

    void Press(PushButton& button) override {
        if (button.Enabled()) return desktop_->Press(button);
        EXPECT_THROW(desktop_->Press(button), headless::ScriptFault);
        button.Press(User::ByUser());
    }
    void Return(Window& window) override { desktop_->Return(window); }
    void Escape(Window& window) override { desktop_->Escape(window); }
    void Select(Listbox& list, int64_t row) override { desktop_->Select(list, row); }
    void SelectNext(Listbox& list) override { desktop_->Select(list, list.ListIndex() + 1); }
    void DoubleClick(Listbox& list, int64_t row) override { desktop_->DoubleClick(list, row); }
    void Toggle(CheckBox& box) override { desktop_->Toggle(box); }
    void Resize(Window& window, Size size) override { desktop_->Resize(window, size); }
    void CloseByTheDesktop(Window& window) override { desktop_->CloseByTheDesktop(window); }

    // A window that isn't in front can't be touched.
    bool IsOnScreen(Window& window) override {
        try {
            desktop_->Resize(window, {window.Width(), window.Height()});
            return !window.IsClosed();
        } catch (const headless::ScriptFault&) {
            return false;
        }
    }
    int64_t ShownSelection(Listbox& list) override { return list.ListIndex(); }
    bool ShownValue(CheckBox& box) override { return box.Value(); }
    Bounds ShownPlace(RectControl& control) override { return control.Place(); }

 private:
    headless::ScriptedDesktop* desktop_;
};

}  // namespace

std::unique_ptr<Hands> MakeHands() {
    return std::make_unique<ScriptedHands>();
}

}  // namespace dunvey::test
