#include "platform/qt/qt_desktop.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>

#include "platform/controls/message_dialog.h"
#include "platform/qt/display.h"
#include "qt_test.h"

namespace dunvey::test {
namespace {

/// The QApplication can be made once in a process, and must be destroyed before its end.
class OneDesktop : public ::testing::Environment {
 public:
    void SetUp() override {
        Desktop::Install(std::make_unique<QtDesktop>());
        // The user of these tests answers at once.
        QApplication::setDoubleClickInterval(0);
        // Without a display Qt 5 and Qt 6 have fonts of different sizes.
        QFont font = QApplication::font();
        font.setPixelSize(12);
        QApplication::setFont(font);
    }
    void TearDown() override { Desktop::Install(nullptr); }
};
const auto* const kDesktop = ::testing::AddGlobalTestEnvironment(new OneDesktop);

using QtDesktopTest = QtTest;

TEST_F(QtDesktopTest, KeysClicksAndClosePressTheirButtons) {
    MessageDialog dialog;
    dialog.AlternateActionButton->Caption = "Other";
    const auto click = [](const char* caption) {
        for (QAbstractButton* button : Box()->buttons())
            if (button->text().remove(QLatin1Char('&')) == QLatin1String(caption))
                QTest::mouseClick(button, Qt::LeftButton);
    };
    const auto escape = [] { QTest::keyClick(Box(), Qt::Key_Escape); };
    const auto close = [] { Box()->close(); };
    const auto expect = [&](const Steps::Step& act, const Ref<MessageDialogButton>& pressed) {
        AtBox(act);
        EXPECT_EQ(dialog.ShowModal(), pressed);
    };
    expect(escape, dialog.ActionButton);
    dialog.AlternateActionButton->Visible = true;
    expect(escape, dialog.ActionButton);
    dialog.DismissButton = dialog.AlternateActionButton;
    expect(
        [&] {
            EXPECT_FALSE(Box()->windowFlags() & Qt::WindowCloseButtonHint);
            close();
        },
        dialog.AlternateActionButton);
    dialog.DismissButton = nullptr;
    dialog.CancelButton->Visible = true;
    expect([] { QTest::keyClick(Box(), Qt::Key_Return); }, dialog.ActionButton);
    expect(escape, dialog.CancelButton);
    expect(close, dialog.CancelButton);
    expect([&] { click("Other"); }, dialog.AlternateActionButton);
    expect([&] { click("Cancel"); }, dialog.CancelButton);
}

TEST_F(QtDesktopTest, ADialogTakesNoAnswerBeforeItCanHaveBeenSeen) {
    MessageDialog dialog;
    dialog.CancelButton->Visible = true;
    AtBox([] {
        QPushButton* button = Box()->defaultButton();
        QApplication::setDoubleClickInterval(600'000);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space})
            QTest::keyClick(button, key);
        QTest::mouseClick(button, Qt::LeftButton);
        QApplication::setDoubleClickInterval(0);
        HoldKey(*button, Qt::Key_Return);
        ASSERT_NE(Box(), nullptr);
        QTest::keyClick(Box(), Qt::Key_Escape);
    });
    EXPECT_EQ(dialog.ShowModal(), dialog.CancelButton);
}

TEST_F(QtDesktopTest, TheBoxShowsWhatTheDialogSays) {
    MessageDialog dialog;
    dialog.Icon = MessageDialog::kCaution;
    dialog.Message = "one\rtwo & <b>three</b>";
    dialog.Explanation = "日本語 <img src=x>";
    AtBox([] {
        EXPECT_EQ(Box()->icon(), QMessageBox::Warning);
        EXPECT_EQ(Box()->text(), QString("one\ntwo & <b>three</b>"));
        EXPECT_EQ(Box()->informativeText(), QString("日本語 <img src=x>"));
        for (const QLabel* label : Box()->findChildren<QLabel*>())
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << "no text is taken for markup";
        EXPECT_EQ(Box()->buttons().size(), 1);
        QTest::keyClick(Box(), Qt::Key_Return);
    });
    dialog.ShowModal();
}

TEST_F(QtDesktopTest, TheDesktopsQuitRequestEndsADialogAndTheProgram) {
    app_->open = [this] {
        AtBox([] { QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit)); });
        MsgBox("asked");
        app_->log += "never ";
    };
    EXPECT_EQ(loop_.Run(*app_), 0);
    EXPECT_EQ(app_->log, "close ");
    EXPECT_EQ(Box(), nullptr);
}

TEST(ReachDisplayTest, TakesTheFirstPlatformThatCanShowWindows) {
    const std::string before = std::getenv("QT_QPA_PLATFORM");
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    using Row = std::pair<const char*, const char*>;
    for (const auto& [names, reached] :
         {Row{"OffScreen", "OffScreen"}, Row{"XCB;Minimal", "Minimal"},
          Row{"xcb;;offscreen:options", "offscreen:options"},
          Row{"linuxfb;eglfs;offscreen", "offscreen"}, Row{"Wayland;xcb", ""},
          Row{"none such", ""}}) {
        setenv("QT_QPA_PLATFORM", names, 1);
        const std::optional<Display> display = ReachDisplay();
        EXPECT_EQ(display ? display->platform : "", reached) << names;
        EXPECT_STREQ(std::getenv("QT_QPA_PLATFORM"), names) << "commands inherit it";
    }
    setenv("QT_QPA_PLATFORM", before.c_str(), 1);
}

}  // namespace
}  // namespace dunvey::test
