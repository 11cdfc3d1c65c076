#include "platform/menus/menu_item.h"

#include "platform/controls/responder_chain.h"
#include "platform/values/exceptions.h"
#include "support/menu_world.h"

namespace dunvey {
namespace {

class MenuItems : public test::MenuWorld {
 protected:
    Ref<MenuItem> Add(const std::string& name, const std::string& text = "x") {
        menu_->Append(New<MenuItem>(name, text));
        return menu_->Items().back();
    }

    const Ref<MenuItem> menu_ = New<MenuItem>("Menu");
};

TEST_F(MenuItems, ValidateEnablesItemsThatHaveAnActionOrItems) {
    menu_->Append(nullptr);
    const Ref<MenuItem> plain = Add("Plain");
    const Ref<MenuItem> manual = Add("Manual");
    const Ref<MenuItem> served = Add("Served");
    const Ref<MenuItem> parent = Add("Parent");
    const Ref<MenuItem> quit = New<QuitMenuItem>("FileQuit", "Quit");
    menu_->Append(quit);
    served->Action = parent->Action = [] { return true; };
    parent->Append(New<MenuItem>("Child"));
    manual->AutoEnable = quit->AutoEnable = false;
    served->Enabled = parent->Enabled = quit->Enabled = false;
    menu_->Validate();
    EXPECT_FALSE(plain->Enabled);
    for (const Ref<MenuItem>& enabled : {manual, served, parent, quit})
        EXPECT_TRUE(enabled->Enabled) << enabled->Name;
    EXPECT_FALSE(Choose(plain));
    EXPECT_FALSE(Choose(parent));
    EXPECT_THROW(Choose(quit), EndException);
    EXPECT_EQ(application_->log, "close ");
    EXPECT_TRUE(Choose(quit)) << "already ending";
}

TEST_F(MenuItems, OnlyEnabledAndVisibleItemsCanBeChosen) {
    int chosen = 0;
    const Ref<MenuItem> item = Add("Item");
    item->Action = [&] { return ++chosen < 3; };
    item->Enabled = false;
    EXPECT_TRUE(Choose(item)) << "validated again";
    item->Visible = false;
    EXPECT_FALSE(Choose(item));
    item->Visible = true;
    item->AutoEnable = item->Enabled = false;
    EXPECT_FALSE(Choose(item));
    item->Enabled = true;
    EXPECT_TRUE(Choose(item));
    EXPECT_FALSE(Choose(item)) << "the handler's result";
    item->Text = "-";
    EXPECT_FALSE(Choose(item));
    EXPECT_EQ(chosen, 3);
}

TEST(ResponderChain, AsksTheFrontWindowThenTheApplication) {
    const auto first = [](const char* action) {
        return ResponderChain::FirstThatTakes(NSSelectorFromString(action));
    };
    test::RecordingResponder back({"a"});
    test::RecordingResponder front({"arrangeInFront:"});
    ResponderChain::Place backPlace = ResponderChain::AddWindow(back);
    const ResponderChain::Place frontPlace = ResponderChain::AddWindow(front);
    EXPECT_EQ(first("a"), nullptr) << "windows in the background are never asked";
    EXPECT_EQ(first("arrangeInFront:"), &front);
    ResponderChain::BringToFront(backPlace);
    EXPECT_EQ(first("a"), &back);
    EXPECT_EQ(first("arrangeInFront:"), NSApplication::sharedApplication());
    EXPECT_EQ(first(""), nullptr);
    backPlace = nullptr;
    EXPECT_EQ(first("arrangeInFront:"), &front) << "the window in front is gone";
}

}  // namespace
}  // namespace dunvey
