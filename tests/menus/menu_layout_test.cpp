#include "platform/menus/menu_layout.h"

#include "menus/main_menu_bar.h"
#include "support/menu_world.h"

namespace dunvey {
namespace {

class MenuLayout : public test::MenuWorld {
 protected:
    /// A line for each menu: its caption, then its items, each with its shortcut.
    static std::string Shown(const MenuBar& bar, bool hasApplicationMenu) {
        std::string text;
        for (const MenuOnScreen& menu : MenusOnScreen(bar, hasApplicationMenu)) {
            text += MarkedMenuCaption(*menu.menu) + ":";
            for (const Ref<MenuItem>& item : menu.items) {
                text += " " + MarkedCaption(*item);
                const std::string& shortcut = item->KeyboardShortcut;
                if (!shortcut.empty()) text += "(" + shortcut + ")";
            }
            text += "\n";
        }
        return text;
    }
};

TEST_F(MenuLayout, EveryMenuHasAMnemonicAndAboutFollowsThePlatform) {
    EXPECT_EQ(Shown(MainMenuBar(), false),
              "&File: Close(Cmd+W) - Quit(Cmd+Q)\n"
              "&Edit: &Undo(Cmd+Z) Redo(Cmd+Shift+Z) - Cut(Cmd+X) Copy(Cmd+C) Paste(Cmd+V) Delete "
              "Select All(Cmd+A)\n"
              "&Window: Minimize(Cmd+M) Zoom - Bring All to Front\n"
              "&Help: About\n");
    const std::string withApplicationMenu = Shown(MainMenuBar(), true);
    EXPECT_EQ(withApplicationMenu.substr(0, 36), "&File: Close(Cmd+W) About - Quit(Cmd");
    EXPECT_EQ(withApplicationMenu.find("Help"), std::string::npos) << "an empty menu";
    setenv("LC_ALL", "ja_JP.UTF-8", 1);
    EXPECT_EQ(Shown(MainMenuBar(), false),
              "ファイル(&F): 閉じる(Cmd+W) - Quit(Cmd+Q)\n"
              "編集(&E): &Undo(Cmd+Z) Redo(Cmd+Shift+Z) - カット(Cmd+X) コピー(Cmd+C) "
              "ペースト(Cmd+V) 削除 すべてを選択(Cmd+A)\n"
              "ウインドウ(&W): しまう(Cmd+M) 拡大／縮小 - すべてを手前に移動\n"
              "ヘルプ(&H): About\n");
}

}  // namespace
}  // namespace dunvey
