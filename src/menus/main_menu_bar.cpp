#include "menus/main_menu_bar.h"

#include "menus/cocoa_menu.h"
#include "menus/localized.h"

namespace dunvey {
namespace {

void Build(MenuItem& item, const char* name, std::string caption, const char* shortcut) {
    item.Name = name;
    item.AutoEnable = true;
    item.Text = std::move(caption);
    item.Visible = true;
    if (!item.IsSeparator()) item.KeyboardShortcut = shortcut;
}

void AddMenu(MenuBar& bar, const char* name, std::string caption) {
    const Ref<MenuItem> menu = New<MenuItem>();
    Build(*menu, name, std::move(caption), "");
    bar.Append(menu);
}

template <typename Item>
void Add(MenuBar& bar, const char* parent, const char* name, std::string caption,
         const char* shortcut = "") {
    const Ref<Item> item = New<Item>();
    Build(*item, name, std::move(caption), shortcut);
    bar.Find(parent)->Append(item);
}

}  // namespace

MainMenuBar::MainMenuBar() {
    MainMenuBar::Untitled0();
    MainMenuBar::Untitled1();
    MainMenuBar::Untitled2();
    MainMenuBar::Untitled3();
}

const Ref<MainMenuBar>& MainMenuBar::Instance() {
    static const Ref<MainMenuBar> instance = New<MainMenuBar>();
    return instance;
}

void MainMenuBar::Untitled0() {
    AddMenu(*this, "FileMenu", LocalizedMenu::kFile(""));
    Add<CocoaMenu::CocoaMenuItemClose>(*this, "FileMenu", "FileClose",
                                       LocalizedMenu::kFileClose(""), "Cmd+W");
    Add<ApplicationMenuItem>(*this, "FileMenu", "FileAbout", "About");
    Add<ApplicationMenuItem>(*this, "FileMenu", "FileSeparator1", "-");
    Add<QuitMenuItem>(*this, "FileMenu", "FileQuit", "Quit", "Cmd+Q");
}

void MainMenuBar::Untitled1() {
    using namespace CocoaMenu;
    AddMenu(*this, "EditMenu", LocalizedMenu::kEdit(""));
    Add<CocoaMenuItemUndo>(*this, "EditMenu", "EditUndo", "&Undo", "Cmd+Z");
    Add<CocoaMenuItemRedo>(*this, "EditMenu", "EditRedo", "Redo", "Cmd+Shift+Z");
    Add<MenuItem>(*this, "EditMenu", "UntitledSeparator", "-");
    Add<MenuItem>(*this, "EditMenu", "EditCut", LocalizedMenu::kCut(""), "Cmd+X");
    Add<MenuItem>(*this, "EditMenu", "EditCopy", LocalizedMenu::kCopy(""), "Cmd+C");
    Add<MenuItem>(*this, "EditMenu", "EditPaste", LocalizedMenu::kPaste(""), "Cmd+V");
    Add<MenuItem>(*this, "EditMenu", "EditClear", LocalizedMenu::kDelete(""));
    Add<CocoaMenuItemSelectAll>(*this, "EditMenu", "EditSelectAll", LocalizedMenu::kSelectAll(""),
                                "Cmd+A");
}

void MainMenuBar::Untitled2() {
    using namespace CocoaMenu;
    AddMenu(*this, "WindowMenu0", LocalizedMenu::kWindow(""));
    Add<MenuItem>(*this, "WindowMenu0", "UntitledSeparator2", "-");
    Add<MenuItem>(*this, "WindowMenu0", "UntitledSeparator3", "-");
    Add<MenuItemMinimize>(*this, "WindowMenu0", "WindowMinimize", LocalizedMenu::kMinimize(""),
                          "Cmd+M");
    Add<MenuItemZoom>(*this, "WindowMenu0", "WindowZoom", LocalizedMenu::kZoom(""));
    Add<MenuItem>(*this, "WindowMenu0", "WindowSeparator1", "-");
    Add<MenuItemBringAllToFront>(*this, "WindowMenu0", "WindowBringAlltoFront",
                                 LocalizedMenu::kBringAllToFront(""));
    Add<MenuItem>(*this, "WindowMenu0", "UntitledSeparator0", "-");
    Add<MenuItem>(*this, "WindowMenu0", "UntitledSeparator1", "-");
}

void MainMenuBar::Untitled3() {
    AddMenu(*this, "HelpMenu", LocalizedMenu::kHelp(""));
}

}  // namespace dunvey
