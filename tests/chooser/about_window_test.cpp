#include "chooser/about_window.h"

#include "chooser/chooser.h"
#include "menus/main_menu_bar.h"
#include "support/user.h"

namespace dunvey {
namespace {

class About : public test::Chooser {
 protected:
    About() {
        app_->SetMenuBar(MainMenuBar::Instance());
        Application::Register(app_);
        FileAbout()->Action = [this] { return app_->_FileAbout_Action(); };
    }
    ~About() override { MainMenuBar::Instance()->Find("FileAbout")->Action = nullptr; }

    void ChooseAbout() const { EXPECT_TRUE(FileAbout()->Choose(test::User::ByUser())); }

    const Ref<App> app_ = New<App>();
};

TEST_F(About, ShowsNameAndVersionInASingleWindow) {
    user_->ExpectWindow("", {});
    ChooseAbout();
    const Ref<AboutWindow> window = AboutWindow::Instance();
    EXPECT_EQ(window->LabelName()->Text(), "chooser_tests");
    EXPECT_EQ(window->LabelVersion()->Text(), "Version 1.0.0 (10000)");
    EXPECT_EQ(window->LabelCopyright()->Text(), Application::LongVersion());
    ChooseAbout();
    EXPECT_EQ(AboutWindow::Instance(), window);
    EXPECT_TRUE(user_->Escape(*window));
    EXPECT_TRUE(window->IsClosed());

    user_->ExpectWindow("", {});
    ChooseAbout();
    const Ref<AboutWindow> next = AboutWindow::Instance();
    EXPECT_FALSE(next == window);
    EXPECT_EQ(next->LabelName()->Text(), "chooser_tests") << "a new window is filled again";
    next->Close();
}

}  // namespace
}  // namespace dunvey
