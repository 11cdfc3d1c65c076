#pragma once

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "app/app.h"
#include "chooser/window1.h"
#include "persistence/preferences.h"
#include "support/world.h"

namespace dunvey::test {

/// Records what is drawn into an area of 90 by 26 points.
class Paper final : public Graphics {
 public:
    int64_t Width() const override { return 90; }
    int64_t Height() const override { return 26; }
    void FillRect(int64_t x, int64_t y, int64_t width, int64_t height) override {
        Draw("fill", {x, y, width, height});
    }
    void DrawLine(int64_t fromX, int64_t fromY, int64_t toX, int64_t toY) override {
        Draw("line", {fromX, fromY, toX, toY});
    }
    void DrawPicture(const Picture& picture, int64_t x, int64_t y) override {
        Draw("picture", {x, y, picture.Width(), picture.PixelsFor(1).Pixels.at(0)});
    }
    std::ostringstream drawn;

 private:
    void Draw(const char* what, std::initializer_list<int64_t> numbers) {
        drawn << what << std::hex << " " << ForeColor.RedGreenBlue << std::dec;
        for (const int64_t number : numbers)
            drawn << " " << number;
        drawn << "; ";
    }
};

/// Runs of the program that show a chooser.
class Chooser : public World {
 protected:
    using Answer = headless::ScriptedDesktop::Answer;
    using Texts = std::vector<std::string>;
    using Step = std::function<void(Window1&)>;

    Chooser() {
        Preferences::gAllowOpenHigherVersion = false;
        Preferences::gAllowQuitButtonActiveted = false;
    }
    ~Chooser() override { Application::Register(nullptr); }

    /// Expects a chooser, in which the user takes these steps, each as an event of its own.
    void Expect(const std::vector<Step>& steps) {
        std::vector<headless::ScriptedDesktop::Step> all;
        for (const Step& step : steps)
            all.emplace_back([step](Window& window) { step(dynamic_cast<Window1&>(window)); });
        user_->ExpectWindow(title_, all);
    }
    /// Runs the program on a document and cancels the chooser after the step.
    void Look(const Step& step, int major = 8, int minor = 0) {
        Expect({step, [this](Window1& window) { user_->Escape(window); }});
        EXPECT_EQ(Open({Document("a.indd", major, minor)}), 0);
        EXPECT_EQ(Opened(), Texts{});
    }

    /// Runs the program on these documents; returns the exit code.
    int Open(const std::vector<Ref<FolderItem>>& documents) {
        unlink((folder_ / "open-calls").c_str());
        Application::Register(New<App>());
        for (const auto& document : documents)
            loop_.PostOpenDocument(document);
        return loop_.Run(*Application::Current());
    }

    /// Removes all applications and installs these: pairs of suffix and version.
    void InstallOnly(const std::vector<std::pair<std::string, std::string>>& applications) {
        ASSERT_EQ(system(("rm -rf '" + (folder_ / "Applications") + "'/*").c_str()), 0);
        for (const auto& [suffix, version] : applications)
            Installed(suffix, version);
    }

    /// The documents launched, each start as "CS6: a.indd b.indd".
    Texts Opened() const {
        Texts starts;
        for (const auto& call : OpenCalls()) {
            if (call.size() < 3) continue;
            const std::string name = call[1].substr(call[1].rfind('/') + 1);
            std::string start = name.substr(15, name.size() - 15 - 4) + ":";
            for (size_t i = 2; i < call.size(); ++i)
                start += " " + call[i].substr(call[i].rfind('/') + 1);
            starts.push_back(start);
        }
        return starts;
    }

    static Texts Column(const Window1& window, int64_t column) {
        Texts texts;
        for (int64_t row = 0; row < window.AppList()->ListCount(); ++row)
            texts.push_back(window.AppList()->Cell(row, column));
        return texts;
    }

    std::string title_ = "Marlit Id - Notification";
    bool& commandKey_ = headless::TheMachine().commandKey;
};

}  // namespace dunvey::test
