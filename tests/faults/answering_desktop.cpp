// The desktop of a patient user, as a plug-in of the program: every alert gets the answer that goes
// on, every chooser a tick in its first box and Return. Where that doesn't close it, the user picks
// the running version and presses Return, then the button that opens, then Escape. What was shown
// is written to the file that DUNVEY_SHOWN names. With DUNVEY_SCREEN_LOST_AT the screen goes away
// ahead of the event of that number, counted from 1, and the process is ended from below.
#include <cstdlib>
#include <fstream>
#include <list>
#include <map>
#include <stdexcept>
#include <variant>
#include <vector>

#include "platform/controls/check_box.h"
#include "platform/controls/label.h"
#include "platform/controls/listbox.h"
#include "platform/controls/message_dialog.h"
#include "platform/controls/push_button.h"
#include "platform/controls/window.h"
#include "platform/loop/clock.h"
#include "platform/loop/desktop.h"
#include "platform/loop/event_loop.h"
#include "platform/pictures/native_image.h"

namespace dunvey {
namespace {

class NoImage final : public NSImage {
 public:
    CGImage CGImageForProposedRect(const PixelRectangle&) const override {
        return [] { return Bitmap(); };
    }
};

void Note(const std::string& text) {
    if (const char* path = std::getenv("DUNVEY_SHOWN")) {
        std::ofstream(path, std::ios::app) << text << "\n";
    }
}

class AnsweringDesktop final : public Desktop {
 public:
    void RunLoop() override {
        left_.push_back(false);
        while (!left_.back())
            RunOneEvent();
        left_.pop_back();
    }
    void LeaveLoop() override {
        if (!left_.empty()) left_.back() = true;
    }
    void Wake() override {}
    void Turn() override {
        MayLoseScreen();
        EventLoop& loop = EventLoop::Current();
        loop.Enter([&loop] { loop.ServeNext(); });
    }
    void BringToFront() override {}
    std::unique_ptr<Shown> Show(MessageDialog& dialog, Window*) override {
        Note(dialog.Message);
        return std::make_unique<OpenOne>(open_, &dialog);
    }
    std::unique_ptr<Shown> Show(Window& window, bool) override {
        for (const Ref<RectControl>& control : window.Controls()) {
            if (const Ref<Label> label = control.As<Label>()) Note(label->Text());
        }
        answers_[&window] = 0;
        return std::make_unique<OpenOne>(open_, &window);
    }
    Ref<NSImage> IconForFile(const std::string&) override { return New<NoImage>(); }
    Ref<NSImage> IconForFileType(const std::string&) override { return New<NoImage>(); }
    int64_t CompareTexts(const std::string& text1, const std::string& text2) override {
        return text1.compare(text2);
    }

 private:
    using Open = std::variant<MessageDialog*, Window*>;
    class OpenOne final : public Shown {
     public:
        OpenOne(std::list<Open>& all, Open open) : all_(all), place_(all.insert(all.end(), open)) {}
        ~OpenOne() override { all_.erase(place_); }

     private:
        std::list<Open>& all_;
        std::list<Open>::iterator place_;
    };

    void MayLoseScreen() {
        const char* lost = std::getenv("DUNVEY_SCREEN_LOST_AT");
        if (lost != nullptr && ++events_ == std::atoi(lost)) std::exit(1);
    }

    void RunOneEvent() {
        MayLoseScreen();
        EventLoop& loop = EventLoop::Current();
        const auto wait = loop.UntilNext();
        if (wait == Clock::Time::zero()) {
            loop.Enter([&loop] { loop.ServeNext(); });
        } else if (!open_.empty()) {
            loop.Enter([this] { AnswerTheFront(); });
        } else if (wait) {
            Clock::SleepUntil(Clock::Now() + *wait);
        } else {
            loop.Enter([] { throw std::logic_error("the program waits for ever"); });
        }
    }

    void AnswerTheFront() {
        if (MessageDialog** dialog = std::get_if<MessageDialog*>(&open_.back())) {
            const auto& alternate = (*dialog)->AlternateActionButton;
            (*dialog)->Press(ByUser(), alternate->Visible ? alternate : (*dialog)->ActionButton);
            return;
        }
        const Ref<Window> window(std::get<Window*>(open_.back())->shared_from_this());
        switch (++answers_[window.Get()]) {
            case 1:
                Tick(*Control<CheckBox>(*window, "CheckBox1"));
                window->PressDefault(ByUser());
                break;
            case 2:
                SelectRunning(*Control<Listbox>(*window, "AppList"));
                window->PressDefault(ByUser());
                break;
            case 3:
                Control<PushButton>(*window, "PushButton1")->Press(ByUser());
                break;
            default:
                window->PressCancel(ByUser());
        }
    }

    void Tick(CheckBox& box) {
        if (!box.Value()) box.Toggle(ByUser());
    }
    void SelectRunning(Listbox& list) {
        for (int64_t row = 0; row < list.ListCount(); ++row) {
            if (!list.Cell(row, 2).empty()) list.Select(ByUser(), row);
        }
    }
    template <typename T>
    static Ref<T> Control(const Window& window, const std::string& name) {
        for (const Ref<RectControl>& control : window.Controls()) {
            if (control->Name() == name) return control.As<T>();
        }
        throw std::logic_error("no " + name);
    }

    std::list<Open> open_;
    std::map<const Window*, int> answers_;
    std::vector<bool> left_;
    int events_ = 0;
};

}  // namespace
}  // namespace dunvey

extern "C" __attribute__((visibility("default"))) dunvey::Desktop* DunveyMakeDesktop() {
    return new dunvey::AnsweringDesktop();
}
