#include <gtest/gtest.h>
#include <sys/stat.h>

#include "menus/cocoa_menu.h"
#include "menus/general.h"
#include "menus/localized.h"
#include "menus/main_menu_bar.h"
#include "platform/controls/message_dialog.h"
#include "platform/controls/responder_chain.h"
#include "platform/controls/window.h"
#include "platform/files/folder_item.h"
#include "support/menu_world.h"
#include "support/temporary_folder.h"
#include "support/world.h"

namespace dunvey {
namespace {

using CocoaMenu::CocoaMenuItem;
using test::RecordingResponder;

class UndoManager final : public NSUndoManager {
 public:
    explicit UndoManager(bool canRedo) : canRedo_(canRedo) {}
    bool canRedo() const override { return canRedo_; }

 private:
    bool canRedo_;
};

class NativeMenus : public test::MenuWorld {
 protected:
    NativeMenus() { application_->SetMenuBar(bar_); }

    /// Whether the item is enabled once its menu has been validated.
    bool Enabled(const char* name) const {
        const Ref<MenuItem> item = bar_->Find(name);
        CocoaMenuItem::GetParentOf(item)->Validate();
        return item->Enabled;
    }

    const Ref<MenuBar> bar_ = New<MainMenuBar>();
    RecordingResponder window_;
    const ResponderChain::Place place_ = ResponderChain::AddWindow(window_);
};

TEST_F(NativeMenus, EachItemSendsItsSelector) {
    const std::tuple<const char*, const char*, const char*> kRows[] = {
        {"FileClose", "performClose:", "Close"},
        {"EditUndo", "undo:", "Undo"},
        {"EditRedo", "redo:", "Redo"},
        {"EditSelectAll", "selectAll:", "Select All"},
        {"WindowMinimize", "performMiniaturize:", "Minimize"},
        {"WindowZoom", "performZoom:", "Zoom"}};
    window_.manager = New<UndoManager>(true);
    for (const auto& [item, selector, title] : kRows) {
        window_.log.clear();
        window_.takes.clear();
        EXPECT_FALSE(Enabled(item)) << item;
        EXPECT_FALSE(Choose(bar_->Find(item))) << item;
        window_.takes = {selector, "undoManager"};
        EXPECT_TRUE(Enabled(item)) << item;
        EXPECT_TRUE(Choose(bar_->Find(item))) << item;
        EXPECT_EQ(window_.log, std::string(selector) + "(" + title + ") ");
    }
    EXPECT_TRUE(Choose(bar_->Find("WindowBringAlltoFront")));
    EXPECT_EQ(user_->timesInFront(), 1) << "the application answers if no window does";
}

TEST_F(NativeMenus, OneOfTheTwoValidationsIsEnoughAndNoneAtAllToo) {
    // Which validations the window has, what they answer, and whether the item is then enabled.
    struct Row {
        bool hasMenu, hasInterface, menu, interface, enabled;
    };
    for (const Row& row :
         {Row{false, false, false, false, true}, Row{true, false, false, true, false},
          Row{true, false, true, false, true}, Row{false, true, true, false, false},
          Row{false, true, false, true, true}, Row{true, true, false, false, false},
          Row{true, true, true, false, true}, Row{true, true, false, true, true}}) {
        window_.log.clear();
        window_.takes = {"performZoom:", row.hasMenu ? "validateMenuItem:" : "",
                         row.hasInterface ? "validateUserInterfaceItem:" : ""};
        window_.validMenuItem = row.menu;
        window_.validInterfaceItem = row.interface;
        EXPECT_EQ(Enabled("WindowZoom"), row.enabled) << row.menu << row.interface;
        EXPECT_EQ(window_.log, std::string(row.hasMenu ? "menu(performZoom:) " : "") +
                                   (row.hasInterface ? "interface(performZoom:) " : ""));
    }
}

TEST_F(NativeMenus, RedoAsksOnlyTheUndoManager) {
    const auto enabled = [&](const std::set<std::string>& takes,
                             const Ref<NSUndoManager>& manager) {
        window_.takes = takes;
        window_.manager = manager;
        return Enabled("EditRedo");
    };
    const Ref<NSUndoManager> can = New<UndoManager>(true);
    const std::set<std::string> all = {"redo:", "validateMenuItem:", "undoManager"};
    EXPECT_TRUE(enabled(all, can)) << "although the menu item's validation fails";
    EXPECT_FALSE(enabled({"undoManager"}, can));
    window_.validMenuItem = true;
    EXPECT_FALSE(enabled({"redo:", "validateMenuItem:"}, can));
    EXPECT_FALSE(enabled(all, New<UndoManager>(false)));
    EXPECT_FALSE(enabled(all, nullptr));
}

TEST_F(NativeMenus, ParentsAreFoundByIdentityAndNativeObjectsByTitle) {
    bar_->Append(nullptr);
    const Ref<MenuItem> undo = bar_->Find("EditUndo");
    const Ref<MenuItem> edit = bar_->Find("EditMenu");
    bar_->Append(New<MenuItem>("LastMenu"));
    EXPECT_EQ(CocoaMenuItem::GetParentOf(bar_->Items().back()), bar_) << "behind the nil";
    EXPECT_EQ(CocoaMenuItem::GetParentOf(edit), bar_);
    EXPECT_EQ(CocoaMenuItem::GetParentOf(undo), edit);
    for (const Ref<MenuItem>& none : {New<MenuItem>("EditUndo", "&Undo"), Ref<MenuItem>(bar_), {}})
        EXPECT_FALSE(CocoaMenuItem::GetParentOf(none));
    EXPECT_TRUE(CocoaMenuItem::GetNSMenu(bar_)->itemWithTitle("Edit"));
    EXPECT_TRUE(CocoaMenuItem::MainMenu()->itemWithTitle("Help"));
    const Ref<NSMenu> menu = CocoaMenuItem::GetNSMenu(edit);
    EXPECT_TRUE(menu->itemWithTitle("Undo"));
    EXPECT_FALSE(menu->itemWithTitle("&Undo"));
    EXPECT_FALSE(menu->itemWithTitle("Close")) << "in another menu";
    EXPECT_FALSE(CocoaMenuItem::GetNSMenu(undo)) << "not a menu";
    EXPECT_FALSE(CocoaMenuItem::GetNSMenuItem(nullptr));
    application_->SetMenuBar(nullptr);
    EXPECT_FALSE(CocoaMenuItem::GetParentOf(undo));
}

/// An item that uses every event of a subclass.
class FullItem final : public CocoaMenuItem {
 public:
    std::string Event_ActionSelectorName() override { return "full:"; }
    int64_t Event_CocoaTag() override { return 7; }
    bool Event_BeforeAction() override {
        EXPECT_EQ(GetNSMenuItem(Self())->tag(), 7) << "the tag is set first";
        return actsFirst;
    }
    using CocoaMenuItem::Event_EnableMenu;
    void Event_EnableMenu(Responder* answering) override {
        EXPECT_EQ(answering, fixed);
        EXPECT_EQ(std::exchange(Enabled, true), fixed != nullptr);
    }
    Responder* Event_Target(const Ref<NSMenuItem>&) override { return fixed; }

    bool actsFirst = false;
    Responder* fixed = nullptr;
};

TEST_F(NativeMenus, ASubclassIsAskedAtEachStep) {
    const Ref<FullItem> item = New<FullItem>();
    item->Text = "F&ull";
    bar_->Find("HelpMenu")->Append(item);
    EXPECT_FALSE(Choose(item)) << "enabled by the subclass, but nobody takes it";
    RecordingResponder target({"full:"});
    window_.takes = {"full:"};
    item->fixed = &target;
    EXPECT_TRUE(Choose(item));
    const Ref<NSMenuItem> native = CocoaMenuItem::GetNSMenuItem(item);
    EXPECT_EQ(native->target(), &target);
    EXPECT_EQ(native->action(), NSSelectorFromString("full:"));
    item->actsFirst = true;
    EXPECT_FALSE(Choose(item));
    EXPECT_EQ(target.log, "full:(Full) ");
    EXPECT_EQ(window_.log, "");
}

class WindowCommands : public test::MenuWorld {
 protected:
    WindowCommands() { application_->SetMenuBar(bar_); }

    /// The window's commands that are enabled, by their first letters: Close, Minimize, Zoom.
    std::string Enabled() const {
        std::string letters;
        for (const Ref<MenuItem>& menu : bar_->Items())
            menu->Validate();
        for (const char* name : {"FileClose", "WindowMinimize", "WindowZoom"})
            if (bar_->Find(name)->Enabled) letters += bar_->Find(name)->Text[0];
        return letters;
    }
    bool Choose(const char* name) const { return MenuWorld::Choose(bar_->Find(name)); }
    Ref<Window> Shown() {
        const Ref<Window> window = New<Window>(Size{200, 100});
        user_->ExpectWindow("", {});
        window->Show();
        return window;
    }

    const Ref<MenuBar> bar_ = New<MainMenuBar>();
};

TEST_F(WindowCommands, FollowTheTitleBarButtonsExceptClose) {
    Window window({200, 100});
    window.CloseButton = window.MinimizeButton = false;
    EXPECT_EQ(Enabled(), "");
    user_->ExpectWindow("", {[&](Window&) {
                            EXPECT_EQ(Enabled(), "C") << "also without a close button";
                            window.MinimizeButton = window.MaximizeButton = true;
                            EXPECT_EQ(Enabled(), "CMZ");
                            EXPECT_TRUE(Choose("FileClose"));
                            EXPECT_EQ(Enabled(), "") << "closed, but not yet destroyed";
                            EXPECT_FALSE(Choose("FileClose"));
                        }});
    window.ShowModal();
}

TEST_F(WindowCommands, GoToTheFrontWindowUnlessADialogIsOpen) {
    const Ref<Window> below = Shown();
    const Ref<Window> above = Shown();
    user_->ExpectMessage("asked", {}, [&](const MessageDialog&) {
        below->Show();
        EXPECT_EQ(Enabled(), "") << "the dialog stays in front";
        EXPECT_FALSE(Choose("FileClose"));
        EXPECT_TRUE(Choose("WindowBringAlltoFront"));
    });
    MsgBox("asked");
    below->Show();
    EXPECT_TRUE(Choose("FileClose"));
    EXPECT_TRUE(below->IsClosed());
    EXPECT_FALSE(above->IsClosed());
    EXPECT_TRUE(Choose("FileClose"));
    EXPECT_TRUE(above->IsClosed());
    EXPECT_FALSE(Choose("FileClose"));
}

class LocalizedTexts : public test::World {};

TEST_F(LocalizedTexts, AnExplicitLanguageSelectsTheTableAndTheWordOrder) {
    EXPECT_EQ(Localized::kLang("ja") + LocalizedMenu::kLocal("ja"), "jaja");
    EXPECT_EQ(Localized::kLang("fr") + LocalizedMenu::kLocal(""), "enen");
    EXPECT_EQ(Localized::kCapOpenWith(""), "Open with ");
}

TEST_F(LocalizedTexts, TheLocaleSelectsTheLanguage) {
    // LC_ALL, LC_MESSAGES, LANG and LANGUAGE.
    const std::pair<std::array<const char*, 4>, bool> kRows[] = {
        {{"ja_JP.UTF-8", "", "", ""}, true},
        {{"ja", "", "", ""}, true},
        {{"ja_JP.eucJP@x", "", "", ""}, true},
        {{"en_US.UTF-8", "", "", ""}, false},
        {{"C", "", "", ""}, false},
        {{"jam", "", "", ""}, false},
        {{"../ja", "", "", ""}, false},
        {{"", "ja_JP.UTF-8", "en_US.UTF-8", ""}, true},
        {{"", "", "en_US.UTF-8", ""}, false},
        {{"", "", "en_US.UTF-8", "ja:en"}, true},
        {{"", "", "en_US.UTF-8", "de:ja_JP.UTF-8"}, true},
        {{"", "", "en_US.UTF-8", "en_GB:ja"}, false},
        {{"", "", "en_US.UTF-8", "de"}, false},
        {{"", "", "C.UTF-8", "ja"}, false}};  // the C locale ignores LANGUAGE
    const char* const kNames[] = {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"};
    for (const auto& [values, isJapanese] : kRows) {
        for (size_t i = 0; i < values.size(); ++i)
            setenv(kNames[i], values[i], 1);
        EXPECT_EQ(Localized::kQuit(""), isJapanese ? "終了" : "Quit")
            << ::testing::PrintToString(values);
    }
    for (const char* name : kNames)
        unsetenv(name);
}

class CopyFileOrFolder : public ::testing::Test {
 protected:
    bool Copy(const std::string& source, const std::string& destination) {
        return General::CopyFileOrFolder(New<FolderItem>(folder_ / source),
                                         New<FolderItem>(folder_ / destination));
    }
    test::TemporaryFolder folder_;
};

TEST_F(CopyFileOrFolder, CopiesAFolderIntoTheDestinationUntilTheFirstFailure) {
    for (const char* name : {"from/sub/empty", "to", "stopped"})
        folder_.MakeFolder(name);
    for (const char* name : {"from/a", "from/sub/b", "from/z"})
        folder_.Write(name, name);
    EXPECT_TRUE(Copy("from", "to"));
    for (const char* name : {"from/a", "from/sub/b", "from/z"})
        EXPECT_EQ(folder_.Read(std::string("to/") + name), name);
    EXPECT_TRUE(FolderItem(folder_ / "to/from/sub/empty").Directory());
    EXPECT_FALSE(Copy("from", "to")) << "the first file exists";
    EXPECT_FALSE(Copy("from", "missing"));
    EXPECT_FALSE(Copy("from", "from/a")) << "the destination is a file";
    folder_.Write("to/sub", "a file instead of the folder");
    EXPECT_FALSE(Copy("from/sub", "to"));
    ASSERT_EQ(mkfifo((folder_ / "from/m").c_str(), 0600), 0);
    EXPECT_FALSE(Copy("from", "stopped"));
    EXPECT_EQ(folder_.Read("stopped/from/a"), "from/a");
    EXPECT_FALSE(FolderItem(folder_ / "stopped/from/z").Exists());
}

}  // namespace
}  // namespace dunvey
