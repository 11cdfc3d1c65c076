#include "app/process_start.h"

#include "app/app.h"
#include "menus/main_menu_bar.h"
#include "support/menu_world.h"

namespace dunvey {
namespace {

class AboutApp final : public App {
 public:
    bool _FileAbout_Action() override { return ++shown > 0; }
    int shown = 0;
};

class ProcessStart : public test::MenuWorld {};

TEST_F(ProcessStart, GivesTheApplicationTheOneMenuBarAndJoinsItsAboutItem) {
    _NewAppInstance();
    ASSERT_TRUE(App::Instance());
    EXPECT_EQ(App::Instance()->MenuBar(), MainMenuBar::Instance());
    FileAbout()->Action = nullptr;
    EXPECT_FALSE(Choose(FileAbout()));
    const Ref<AboutApp> app = New<AboutApp>();
    app->SetMenuBar(MainMenuBar::Instance());
    Application::Register(app);
    _ApplicationAddMenuHandlers();
    EXPECT_TRUE(Choose(FileAbout()));
    EXPECT_EQ(app->shown, 1);
}

}  // namespace
}  // namespace dunvey
