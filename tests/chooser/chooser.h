#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/app.h"
#include "chooser/window1.h"
#include "persistence/preferences.h"
#include "support/world.h"

namespace dunvey::test {

/// Runs of the program in which a chooser comes up.
class Chooser : public World {
 protected:
    using Answer = headless::ScriptedDesktop::Answer;
    using Step = std::function<void(Window1&)>;

    Chooser() {
        Preferences::gAllowOpenHigherVersion = false;
        Preferences::gAllowQuitButtonActiveted = false;
    }
    ~Chooser() override { Application::Register(nullptr); }

    /// The next chooser, and what the user does with it, each step an event of its own.
    void Expect(const std::vector<Step>& steps) {
        std::vector<headless::ScriptedDesktop::Step> all;
        for (const Step& step : steps)
            all.emplace_back([step](Window& window) { step(dynamic_cast<Window1&>(window)); });
        user_->ExpectWindow("Marlit Id - Notification", all);
    }
    /// What the chooser shows; then it is cancelled.
    void Look(const Step& step) {
        Expect({step, [this](Window1& window) { user_->Escape(window); }});
    }

    /// One run of the program on these documents; returns the exit code.
    int Open(const std::vector<Ref<FolderItem>>& documents) {
        unlink((folder_ / "open-calls").c_str());
        Application::Register(New<App>());
        for (const auto& document : documents)
            loop_.PostOpenDocument(document);
        return loop_.Run(*Application::Current());
    }

    /// The documents that went out, each start as "CS6: a.indd b.indd".
    std::vector<std::string> Opened() const {
        std::vector<std::string> starts;
        for (const auto& call : OpenCalls()) {
            if (call.size() < 3) continue;
            std::string start = SuffixOf(call[1]) + ":";
            for (size_t i = 2; i < call.size(); ++i)
                start += " " + call[i].substr(call[i].rfind('/') + 1);
            starts.push_back(start);
        }
        return starts;
    }
    using Starts = std::vector<std::string>;

    /// "CS6" of ".../Adobe InDesign CS6.app".
    static std::string SuffixOf(const std::string& path) {
        const std::string name = path.substr(path.rfind('/') + 1);
        return name.substr(15, name.size() - 15 - 4);
    }

    static std::vector<std::string> Column(const Window1& window, int64_t column) {
        std::vector<std::string> texts;
        for (int64_t row = 0; row < window.AppList()->ListCount(); ++row)
            texts.push_back(window.AppList()->Cell(row, column));
        return texts;
    }
};

}  // namespace dunvey::test
