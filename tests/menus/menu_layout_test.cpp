#include "platform/menus/menu_layout.h"

#include "menus/main_menu_bar.h"
#include "support/menu_world.h"

namespace dunvey {
namespace {

class MenuLayout : public test::MenuWorld {
 protected:
    static std::string Shown(const MenuBar& bar, bool hasApplicationMenu) {
        std::string text;
        for (const MenuOnScreen& menu : MenusOnScreen(bar, hasApplicationMenu)) {
            text += MarkedMenuCaption(*menu.menu) + ":";
            for (const Ref<MenuItem>& item : menu.items)
                text += " " + MarkedCaption(*item);
            text += "\n";
        }
        return text;
    }
};

TEST_F(MenuLayout, EveryMenuHasAKeyAndAboutStandsWhereItIsLookedFor) {
    EXPECT_EQ(Shown(MainMenuBar(), false),
              "&File: Close - Quit\n"
              "&Edit: &Undo Redo - Cut Copy Paste Delete Select All\n"
              "&Window: Minimize Zoom - Bring All to Front\n"
              "&Help: About\n");
    EXPECT_EQ(Shown(MainMenuBar(), true).substr(0, 27), "&File: Close About - Quit\n&");
    EXPECT_EQ(Shown(MainMenuBar(), true).find("Help"), std::string::npos) << "an empty menu";
    setenv("LC_ALL", "ja_JP.UTF-8", 1);
    EXPECT_EQ(Shown(MainMenuBar(), false),
              "ファイル(&F): 閉じる - Quit\n"
              "編集(&E): &Undo Redo - カット コピー ペースト 削除 すべてを選択\n"
              "ウインドウ(&W): しまう 拡大／縮小 - すべてを手前に移動\n"
              "ヘルプ(&H): About\n");
}

TEST_F(MenuLayout, WhatIsHiddenOrMissingLeavesNoTrace) {
    MainMenuBar bar;
    bar.Append(nullptr);
    bar.Find("FileMenu")->Append(nullptr);
    bar.Find("EditMenu")->Visible = false;
    bar.Find("FileClose")->Visible = false;
    bar.Find("FileAbout")->Visible = false;
    EXPECT_EQ(Shown(bar, false), "&File: Quit\n&Window: Minimize Zoom - Bring All to Front\n");
    MenuBar small;
    small.Append(New<MenuItem>("Only", "Only"));
    EXPECT_EQ(Shown(small, false), "");
    small.Item(0)->Append(New<ApplicationMenuItem>("About", "About"));
    EXPECT_EQ(Shown(small, false), "&Only: About\n") << "there is no menu to move it to";
}

TEST_F(MenuLayout, EveryOtherAmpersandIsDoubled) {
    EXPECT_EQ(MarkedCaption(MenuItem("", "&a && &b")), "&a &&&& &&b");
    EXPECT_EQ(MarkedMenuCaption(MenuItem("", "日本")), "日本");
    EXPECT_EQ(MarkedMenuCaption(MenuItem("Menu", "F&ile")), "F&ile");
}

}  // namespace
}  // namespace dunvey
