#include "platform/qt/qt_desktop.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>

#include "platform/controls/message_dialog.h"
#include "platform/loop/application.h"
#include "platform/loop/event_loop.h"

namespace dunvey {
namespace {

class Recorder final : public Application {
 public:
    void Event_Close() override { log += "close "; }
    void Event_OpenDocument(const Ref<FolderItem>& document) override {
        log += document->Name() + " ";
    }
    void Event_Open() override { open(); }

    std::function<void()> open = [] {};
    std::string log;
};

/// The toolkit's application can be made once in a process, and must be gone before its end.
class OneDesktop : public ::testing::Environment {
 public:
    void SetUp() override {
        Desktop::Install(std::make_unique<QtDesktop>());
        // The user of these tests answers at once.
        QApplication::setDoubleClickInterval(0);
    }
    void TearDown() override { Desktop::Install(nullptr); }
};
const auto* const kDesktop = ::testing::AddGlobalTestEnvironment(new OneDesktop);

QMessageBox* OpenBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

class QtDesktopTest : public ::testing::Test {
 protected:
    QtDesktopTest() { Application::Register(app_); }
    ~QtDesktopTest() override { Application::Register(nullptr); }

    /// What the user does as soon as the dialog stands there.
    static void User(const std::function<void(QMessageBox&)>& act) {
        QTimer::singleShot(0, qApp, [act] {
            if (OpenBox() == nullptr) return User(act);
            act(*OpenBox());
        });
    }
    static void Key(Qt::Key key) {
        User([key](QMessageBox& box) { QTest::keyClick(&box, key); });
    }
    static void Click(const QString& caption) {
        User([caption](QMessageBox& box) {
            for (QAbstractButton* button : box.buttons()) {
                if (button->text().remove(QLatin1Char('&')) == caption) {
                    QTest::mouseClick(button, Qt::LeftButton);
                }
            }
        });
    }

    static MessageDialog& Prepare(MessageDialog& dialog, bool alternate, bool cancel) {
        dialog.Message = "message";
        dialog.AlternateActionButton->Caption = "Other";
        dialog.AlternateActionButton->Visible = alternate;
        dialog.CancelButton->Visible = cancel;
        return dialog;
    }

    EventLoop loop_;
    Ref<Recorder> app_ = New<Recorder>();
};

TEST_F(QtDesktopTest, ReturnEscapeAndClicksPressTheirButtons) {
    MessageDialog three;
    Prepare(three, true, true);
    Key(Qt::Key_Return);
    EXPECT_EQ(three.ShowModal(), three.ActionButton);
    Key(Qt::Key_Escape);
    EXPECT_EQ(three.ShowModal(), three.CancelButton);
    Click("Other");
    EXPECT_EQ(three.ShowModal(), three.AlternateActionButton);
    Click("Cancel");
    EXPECT_EQ(three.ShowModal(), three.CancelButton);
    User([](QMessageBox& box) { box.close(); });
    EXPECT_EQ(three.ShowModal(), three.CancelButton) << "the window manager's close";
}

TEST_F(QtDesktopTest, EscapeAndClosePressTheDismissButton) {
    MessageDialog one;
    Prepare(one, false, false);
    Key(Qt::Key_Escape);
    EXPECT_EQ(one.ShowModal(), one.ActionButton);
    MessageDialog two;
    Prepare(two, true, false);
    Key(Qt::Key_Escape);
    EXPECT_EQ(two.ShowModal(), two.ActionButton);
    two.DismissButton = two.AlternateActionButton;
    User([](QMessageBox& box) {
        EXPECT_FALSE(box.windowFlags() & Qt::WindowCloseButtonHint);
        box.close();
    });
    EXPECT_EQ(two.ShowModal(), two.AlternateActionButton);
}

TEST_F(QtDesktopTest, TheBoxShowsWhatTheDialogSays) {
    MessageDialog dialog;
    Prepare(dialog, false, false);
    dialog.Icon = MessageDialog::kCaution;
    dialog.Message = "one\rtwo & <b>three</b>";
    dialog.Explanation = "日本語 <img src=x>";
    User([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.text(), QString("one\ntwo & <b>three</b>"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.informativeText(), QString("日本語 <img src=x>"));
        for (const QLabel* label : box.findChildren<QLabel*>()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << "no text is taken for markup";
        }
        EXPECT_EQ(box.buttons().size(), 1);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    dialog.ShowModal();
}

TEST_F(QtDesktopTest, DocumentsAndTimersAreServedInsideADialog) {
    class Closer final : public Timer {
        void Event_Action() override { QTest::keyClick(OpenBox(), Qt::Key_Return); }
    } closer;
    app_->open = [&] { closer.SetPeriod(20); };
    loop_.PostOpenDocument(New<FolderItem>("/early"));
    QTimer::singleShot(0, qApp, [&] {
        User([&](QMessageBox&) {
            loop_.Enter([&] {
                loop_.PostOpenDocument(New<FolderItem>("/late"));
                closer.SetMode(Timer::kOnce);
            });
        });
        loop_.Enter([&] {
            MsgBox("wait");
            app_->log += "answered ";
            Quit(4);
        });
    });
    EXPECT_EQ(loop_.Run(*app_), 4);
    EXPECT_EQ(app_->log, "early late answered close ");
}

TEST_F(QtDesktopTest, TheDesktopsWishToQuitEndsADialogAndTheProgram) {
    app_->open = [this] {
        User([](QMessageBox&) { QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit)); });
        MsgBox("asked");
        app_->log += "never ";
    };
    EXPECT_EQ(loop_.Run(*app_), 0);
    EXPECT_EQ(app_->log, "close ");
    EXPECT_EQ(OpenBox(), nullptr) << "nothing stays on the screen";
}

}  // namespace
}  // namespace dunvey
