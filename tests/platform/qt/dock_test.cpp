#include "platform/qt/dock.h"

#include <QDragEnterEvent>
#include <QLabel>
#include <QMimeData>

#include "menus/main_menu_bar.h"
#include "qt_test.h"
#include "support/temporary_folder.h"

namespace dunvey::test {
namespace {

QWidget* ShownDock() {
    for (QWidget* each : QApplication::topLevelWidgets())
        if (each->isVisible() && dynamic_cast<WindowWidget*>(each) != nullptr) return each;
    return nullptr;
}

/// Takes so many documents and quits.
class Taker final : public LogApplication {
 public:
    explicit Taker(int count) : wanted(count) { SetMenuBar(New<MainMenuBar>()); }
    void Event_OpenDocument(const Ref<FolderItem>& document) override {
        EXPECT_EQ(ShownDock(), nullptr) << "it is closed before the first document";
        LogApplication::Event_OpenDocument(document);
        if (--wanted == 0) Quit(5);
    }
    std::vector<std::string> DocumentExtensions() const override { return {"doc"}; }
    int wanted;
};

class DockOnScreenTest : public QtTest {
 protected:
    void SetUp() override {
        if (HasApplicationMenu()) GTEST_SKIP() << "the Mac has a dock of its own";
    }

    /// Starts without documents; the user takes the steps once the dock is shown.
    int Run(const Ref<Taker>& app, const std::vector<Steps::Step>& steps) {
        Application::Register(app_ = app);
        steps_.When([] { return ShownDock() != nullptr; }, steps);
        return loop_.Run(*app_);
    }
    static QString Line() { return ShownDock()->findChild<QLabel*>("line")->text(); }
    /// Sends a drag of these addresses; returns whether the dock takes a copy.
    template <typename Event>
    static bool Send(const QByteArray& uris) {
        QMimeData data;
        data.setData("text/uri-list", uris);
        Event event({50, 90}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(ShownDock(), &event);
        return event.isAccepted() && event.dropAction() == Qt::CopyAction;
    }
    QByteArray Uri(const std::string& name) {
        return QByteArray::fromStdString("file://" + folder_.Write(name, "")) + "\r\n";
    }

    TemporaryFolder folder_;
};

TEST_F(DockOnScreenTest, ADropIsOneRunOfTheDocumentsInIt) {
    const QByteArray foreign = Uri("a.png");
    const QByteArray mixed =
        "# made by hand\r\n" + Uri("a.doc") + foreign + "http://b.org/b.doc\r\n" + Uri("b.doc");
    const auto drop = [&] {
        const QString before = Line();
        EXPECT_FALSE(Send<QDragEnterEvent>("http://b.org/b.doc\r\n"));
        EXPECT_FALSE(Send<QDragEnterEvent>(foreign));
        EXPECT_NE(Line(), before) << "it says why";
        EXPECT_TRUE(Send<QDragEnterEvent>(mixed));
        EXPECT_EQ(Line(), before);
        Send<QDropEvent>(mixed);
    };
    EXPECT_EQ(Run(New<Taker>(2), {drop}), 5);
    EXPECT_EQ(app_->log, "a.doc b.doc close ");
}

}  // namespace
}  // namespace dunvey::test
