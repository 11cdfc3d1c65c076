#include "menus/main_menu_bar.h"

#include <set>
#include <typeindex>

#include "menus/cocoa_menu.h"
#include "platform/menus/menu_caption.h"
#include "support/menu_world.h"

namespace dunvey {
namespace {

class MainMenu : public test::MenuWorld {};

struct Row {
    int depth;
    const char* name;
    std::type_index type;
    const char* caption;
    const char* shortcut = "";
};

/// The descendants of the menu, depth first.
void Collect(const MenuItem& menu, int depth, std::vector<std::pair<int, Ref<MenuItem>>>& items) {
    for (const Ref<MenuItem>& item : menu.Items()) {
        items.emplace_back(depth, item);
        Collect(*item, depth + 1, items);
    }
}

TEST_F(MainMenu, IsThisTree) {
    using namespace CocoaMenu;
    const std::type_index plain = typeid(MenuItem);
    const std::type_index application = typeid(ApplicationMenuItem);
    const Row kRows[] = {
        {0, "FileMenu", plain, "File"},
        {1, "FileClose", typeid(CocoaMenuItemClose), "Close", "Cmd+W"},
        {1, "FileAbout", application, "About"},
        {1, "FileSeparator1", application, "-"},
        {1, "FileQuit", typeid(QuitMenuItem), "Quit", "Cmd+Q"},
        {0, "EditMenu", plain, "Edit"},
        {1, "EditUndo", typeid(CocoaMenuItemUndo), "&Undo", "Cmd+Z"},
        {1, "EditRedo", typeid(CocoaMenuItemRedo), "Redo", "Cmd+Shift+Z"},
        {1, "UntitledSeparator", plain, "-"},
        {1, "EditCut", plain, "Cut", "Cmd+X"},
        {1, "EditCopy", plain, "Copy", "Cmd+C"},
        {1, "EditPaste", plain, "Paste", "Cmd+V"},
        {1, "EditClear", plain, "Delete"},
        {1, "EditSelectAll", typeid(CocoaMenuItemSelectAll), "Select All", "Cmd+A"},
        {0, "WindowMenu0", plain, "Window"},
        {1, "UntitledSeparator2", plain, "-"},
        {1, "UntitledSeparator3", plain, "-"},
        {1, "WindowMinimize", typeid(MenuItemMinimize), "Minimize", "Cmd+M"},
        {1, "WindowZoom", typeid(MenuItemZoom), "Zoom"},
        {1, "WindowSeparator1", plain, "-"},
        {1, "WindowBringAlltoFront", typeid(MenuItemBringAllToFront), "Bring All to Front"},
        {1, "UntitledSeparator0", plain, "-"},
        {1, "UntitledSeparator1", plain, "-"},
        {0, "HelpMenu", plain, "Help"},
    };
    std::vector<std::pair<int, Ref<MenuItem>>> items;
    Collect(MainMenuBar(), 0, items);
    ASSERT_EQ(items.size(), std::size(kRows));
    for (size_t index = 0; index < items.size(); ++index) {
        const Row& row = kRows[index];
        const auto& [depth, item] = items[index];
        const MenuItem& found = *item;
        EXPECT_EQ(found.Name, row.name);
        EXPECT_EQ(depth, row.depth) << row.name;
        EXPECT_EQ(std::type_index(typeid(found)), row.type) << row.name;
        EXPECT_EQ(found.Text, row.caption) << row.name;
        EXPECT_EQ(found.KeyboardShortcut, row.shortcut) << row.name;
        EXPECT_TRUE(found.AutoEnable && found.Visible) << row.name;
        EXPECT_EQ(ParseKeyboardShortcut(row.shortcut).has_value(), *row.shortcut != '\0');
    }
}

TEST_F(MainMenu, NoTwoItemsOfAMenuShareATitle) {
    // Native items are found by their titles.
    for (const char* locale : {"C", "ja_JP.UTF-8"}) {
        setenv("LC_ALL", locale, 1);
        const MainMenuBar bar;
        for (const Ref<MenuItem>& menu : bar.Items()) {
            std::set<std::string> titles;
            for (const Ref<MenuItem>& item : menu->ItemsShown())
                EXPECT_TRUE(item->IsSeparator() || titles.insert(item->Text).second) << item->Name;
        }
    }
}

}  // namespace
}  // namespace dunvey
