#include "platform/qt/dock.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMimeData>
#include <QTest>

#include "menus/main_menu_bar.h"
#include "platform/loop/application.h"
#include "platform/qt/qt_window.h"
#include "steps.h"
#include "support/temporary_folder.h"

namespace dunvey::test {
namespace {

/// Takes so many documents and quits.
class Taker final : public Application {
 public:
    void Event_Close() override { log += "close "; }
    void Event_OpenDocument(const Ref<FolderItem>& document) override {
        EXPECT_EQ(DockOnScreen(), nullptr) << "it goes at once";
        log += document->Name() + " ";
        if (--wanted == 0) Quit(5);
    }
    std::vector<std::string> DocumentExtensions() const override { return {"doc"}; }

    static QWidget* DockOnScreen() {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (each->isVisible() && dynamic_cast<WindowWidget*>(each) != nullptr) return each;
        return nullptr;
    }
    int wanted = 0;
    std::string log;
};

class DockOnScreenTest : public ::testing::Test {
 protected:
    void SetUp() override {
        if (HasApplicationMenu()) GTEST_SKIP() << "the system has a dock of its own";
        setenv("LC_ALL", "C", 1);
        app_->SetMenuBar(New<MainMenuBar>());
        Application::Register(app_);
    }
    ~DockOnScreenTest() override {
        unsetenv("LC_ALL");
        Application::Register(nullptr);
    }

    /// Starts without documents; the user takes the steps as soon as the dock stands there.
    int Run(std::vector<Steps::Step> steps) {
        steps_.When([] { return Taker::DockOnScreen() != nullptr; },
                    [this, steps] { steps_.Take(steps); });
        return loop_.Run(*app_);
    }
    static QWidget& Dock() { return *Taker::DockOnScreen(); }
    static QString Line() { return Dock().findChild<QLabel*>("line")->text(); }
    static bool Drag(const QByteArray& uris) {
        QMimeData data;
        data.setData("text/uri-list", uris);
        QDragEnterEvent event({50, 90}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&Dock(), &event);
        return event.isAccepted() && event.dropAction() == Qt::CopyAction;
    }
    static void Drop(const QByteArray& uris) {
        QMimeData data;
        data.setData("text/uri-list", uris);
        QDropEvent event({50, 90}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&Dock(), &event);
    }
    QByteArray Uri(const std::string& name) {
        return QByteArray::fromStdString("file://" + folder_.Write(name, "")) + "\r\n";
    }

    TemporaryFolder folder_;
    EventLoop loop_;
    Steps steps_;
    Ref<Taker> app_ = New<Taker>();
};

TEST_F(DockOnScreenTest, ADropIsOneRunOfTheDocumentsInIt) {
    app_->wanted = 2;
    const QByteArray foreign = Uri("a.png");
    const QByteArray mixed =
        "# made by hand\r\n" + Uri("a.doc") + foreign + "http://b.org/b.doc\r\n" + Uri("b.doc");
    EXPECT_EQ(Run({[&] {
                  const QString before = Line();
                  EXPECT_FALSE(Drag("http://b.org/b.doc\r\n"));
                  EXPECT_FALSE(Drag(foreign));
                  EXPECT_NE(Line(), before) << "it says why";
                  EXPECT_TRUE(Drag(mixed));
                  EXPECT_EQ(Line(), before);
                  Drop(mixed);
              }}),
              5);
    EXPECT_EQ(app_->log, "a.doc b.doc close ");
}

TEST_F(DockOnScreenTest, ClosingItEndsTheProgram) {
    const std::vector<Steps::Step> ways = {
        [] { Dock().close(); }, [] { QTest::keyClick(&Dock(), Qt::Key_W, Qt::ControlModifier); },
        [] { QTest::keyClick(&Dock(), Qt::Key_Q, Qt::ControlModifier); }};
    for (size_t way = 0; way < ways.size(); ++way) {
        app_ = New<Taker>();
        app_->SetMenuBar(New<MainMenuBar>());
        Application::Register(app_);
        EXPECT_EQ(Run({[] {
                           QTest::keyClick(&Dock(), Qt::Key_Escape);
                           EXPECT_TRUE(Dock().isVisible()) << "Escape is no way to quit";
                       },
                       ways[way]}),
                  0);
        EXPECT_EQ(app_->log, "close ") << way;
        EXPECT_EQ(Taker::DockOnScreen(), nullptr);
    }
}

}  // namespace
}  // namespace dunvey::test
