#include "chooser/about_window.h"

#include "chooser/chooser.h"
#include "menus/main_menu_bar.h"
#include "platform/pictures/native_image.h"
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

TEST_F(About, TellsTheProgramsNameAndVersionAndIsTheOnlyOne) {
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
    EXPECT_EQ(next->LabelName()->Text(), "chooser_tests") << "it is filled anew";
    next->Close();
}

TEST_F(About, DrawsTheBundlesOwnIconAtTheSmallerSide) {
    class Surface final : public Graphics {
     public:
        int64_t Width() const override { return 64; }
        int64_t Height() const override { return 40; }
        void FillRect(int64_t, int64_t, int64_t, int64_t) override {}
        void DrawLine(int64_t, int64_t, int64_t, int64_t) override {}
        void DrawPicture(const Picture& picture, int64_t x, int64_t y) override {
            EXPECT_EQ(x, 0);
            EXPECT_EQ(y, 0);
            size = picture.Width();
            pixel = picture.PixelsFor(1).Pixels.at(0);
        }
        int64_t size = 0;
        uint32_t pixel = 0;
    } surface;
    AboutWindow window;
    window.CanvasAppIcon()->Event_Paint(surface);
    EXPECT_EQ(surface.size, 40);
    const std::string executable = Application::ExecutableFile()->NativePath();
    const std::string bundle = executable.substr(0, executable.rfind("/Contents/"));
    const Bitmap expected = user_->IconForFile(bundle)->CGImageForProposedRect({0, 0, 1, 1});
    EXPECT_EQ(surface.pixel, expected.Pixels.at(0));
}

TEST_F(About, ComesUpOverTheChooserAndOutlivesIt) {
    Installed("CS6", "8.0.1");
    headless::TheMachine().commandKey = true;
    Expect({[this](Window1& chooser) {
        chooser.Show();
        user_->ExpectWindow("", {});
        ChooseAbout();
        EXPECT_TRUE(user_->Escape(*AboutWindow::Instance()));
        EXPECT_FALSE(chooser.IsClosed());
        user_->ExpectWindow("", {});
        ChooseAbout();
        chooser.Close();
    }});
    loop_.PostOpenDocument(Document("a.indd", 8));
    EXPECT_EQ(loop_.Run(*app_), 0);
    const Ref<AboutWindow> window = AboutWindow::Instance();
    EXPECT_FALSE(window->IsClosed());
    EXPECT_TRUE(user_->Escape(*window));
}

}  // namespace
}  // namespace dunvey
