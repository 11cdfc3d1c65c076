#include "platform/linux/dock_window.h"

#include "app/app.h"
#include "support/user.h"
#include "support/world.h"

namespace dunvey {
namespace {

class DockTest : public test::World {
 protected:
    DockTest() { Application::Register(app_); }
    ~DockTest() override { Application::Register(nullptr); }

    Ref<DockWindow> Shown() {
        const Ref<DockWindow> dock = New<DockWindow>();
        user_->ExpectWindow(dock->Title(), {});
        dock->Show();
        return dock;
    }

    const Ref<App> app_ = New<App>();
};

TEST_F(DockTest, AMixedDropIsOneRunOfItsDocuments) {
    Installed("CS6", "8.0.1");
    std::vector<std::string> words = {folder_.Path(), folder_.Write("picture.png", "")};
    for (int i = 0; i < 1000; ++i)
        words.push_back(Document(std::to_string(i) + ".indd", 8)->NativePath());
    user_->Later([&] {
        const Ref<DockWindow> dock = Shown();
        dock->Take(test::User::ByUser(), words);
        EXPECT_TRUE(dock->IsClosed()) << "it goes at once";
        dock->Take(test::User::ByUser(), words);
    });
    EXPECT_EQ(loop_.Run(*app_), 0);
    ASSERT_EQ(OpenCalls().size(), 2U) << "the start, and the version that runs";
    EXPECT_EQ(OpenCalls()[0].size(), 1002U);
}

}  // namespace
}  // namespace dunvey
