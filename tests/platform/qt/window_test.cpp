#include <dirent.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <map>

#include "design_window.h"
#include "platform/application.h"
#include "platform/qt/qt_graphics.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_window.h"
#include "platform/shown_text.h"
#include "steps.h"
#include "support/hostile_names.h"

namespace dunvey::test {
namespace {

class WindowTest : public ::testing::Test {
 protected:
    /// Shows the window while the user takes the steps, and closes it.
    void Show(Window& window, std::vector<Steps::Step> steps) {
        steps.emplace_back([&window] { WindowWidget::Of(&window)->close(); });
        steps_.When([&window] { return WindowWidget::Of(&window) != nullptr; },
                    [this, steps] { steps_.Take(steps); });
        window.ShowModal();
    }

    static WindowWidget& Shown() {
        return dynamic_cast<WindowWidget&>(*QApplication::activeModalWidget());
    }
    template <typename Widget = QWidget>
    static Widget& Find(const char* name) {
        return *Shown().findChild<Widget*>(QLatin1String(name));
    }
    static QTableView& List() { return Find<QTableView>("list"); }
    static QPoint CellCentre(int row, int column = 0) {
        return List().visualRect(List().model()->index(row, column)).center();
    }
    static void Type(const QString& text) {
        // The first key begins a search, however fast the keys follow; the others go on with it.
        for (const QChar key : text) {
            QTest::keyClick(&List(), key.toLatin1());
            QApplication::setKeyboardInputInterval(1000000);
        }
        QApplication::setKeyboardInputInterval(0);
    }
    static QString SpokenName(QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
    }

    EventLoop loop_;
    Steps steps_;
};

using Places = std::map<QString, QRect>;

void ExpectPlaces(const QWidget& window, const Places& places) {
    for (const auto& [name, place] : places) {
        const auto* widget = window.findChild<QWidget*>(name);
        ASSERT_NE(widget, nullptr) << name.toStdString();
        EXPECT_EQ(widget->geometry(), place) << name.toStdString();
        EXPECT_TRUE(widget->isVisible()) << name.toStdString();
    }
}

TEST_F(WindowTest, EveryControlStandsInItsPlaceAndFollows) {
    DesignWindow window(5);
    Show(window, {[] {
                      EXPECT_EQ(Shown().size(), QSize(450, 408));
                      ExpectPlaces(Shown(), {{"list", {20, 109, 410, 157}},
                                             {"open", {285, 278, 145, 20}},
                                             {"cancel", {186, 278, 90, 20}},
                                             {"quit", {20, 278, 135, 20}},
                                             {"lowLine", {20, 320, 410, 4}},
                                             {"higher", {20, 336, 409, 20}},
                                             {"quitting", {20, 368, 410, 20}},
                                             {"name", {72, 13, 358, 20}},
                                             {"version", {72, 40, 358, 24}},
                                             {"icon", {18, 13, 46, 46}},
                                             {"headLine", {20, 66, 410, 7}},
                                             {"message", {0, 78, 450, 24}},
                                             {"nameLine", {68, 33, 362, 6}},
                                             {"badge", {15, 36, 32, 32}}});
                      EXPECT_EQ(Find("icon").parentWidget()->childAt(20, 40), &Find("badge"));
                      Shown().resize(550, 458);
                  },
                  [] {
                      ExpectPlaces(Shown(), {{"list", {20, 109, 510, 207}},
                                             {"open", {385, 328, 145, 20}},
                                             {"cancel", {286, 328, 90, 20}},
                                             {"quit", {20, 328, 135, 20}},
                                             {"lowLine", {20, 370, 510, 4}},
                                             {"higher", {20, 386, 409, 20}},
                                             {"name", {72, 13, 458, 20}},
                                             {"message", {0, 78, 550, 24}},
                                             {"nameLine", {68, 33, 462, 6}}});
                      EXPECT_EQ(List().columnWidth(0) + 90 + 64, List().viewport()->width());
                      Shown().resize(10, 10);
                      EXPECT_EQ(Shown().size(), QSize(450, 408));
                  }});
}

TEST_F(WindowTest, TheTitleBarHasOnlyTheButtonsThatAreWanted) {
    DesignWindow bare(1);
    Show(bare, {[] {
             EXPECT_EQ(Shown().windowTitle(), "Notification");
             EXPECT_EQ(
                 Shown().windowFlags() & (Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint),
                 Qt::WindowFlags());
             EXPECT_TRUE(Shown().windowFlags() & Qt::CustomizeWindowHint);
         }});
    DesignWindow hidden(1);
    hidden.CloseButton = hidden.MinimizeButton = true;
    hidden.Handle()->standardWindowButton(NSWindow::kMiniaturizeButton)->setHidden(true);
    hidden.Resizeable = false;
    Show(hidden, {[] {
             EXPECT_EQ(
                 Shown().windowFlags() & (Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint),
                 Qt::WindowCloseButtonHint);
             EXPECT_EQ(Shown().minimumSize(), Shown().maximumSize());
         }});
}

TEST_F(WindowTest, WhereTheFocusedControlIsDisabledTheListHasTheFocus) {
    DesignWindow window(5);
    Show(window, {[&] {
             auto* quit = Shown().findChild<QWidget*>(QStringLiteral("quit"));
             quit->setFocus();
             window.quit->SetEnabled(false);
             EXPECT_EQ(Shown().focusWidget()->objectName(), QStringLiteral("list"));
         }});
}

TEST_F(WindowTest, TheFocusBeginsInTheListAndTabGoesInTheDeclaredOrder) {
    DesignWindow window(5);
    Show(window, {[] {
             QString order;
             for (int i = 0; i < 7; ++i) {
                 order += Shown().focusWidget()->objectName() + QLatin1Char(' ');
                 QTest::keyClick(Shown().focusWidget(), Qt::Key_Tab);
             }
             EXPECT_EQ(order, "list open cancel quit higher quitting list ");
         }});
}

TEST_F(WindowTest, TypedWordsSelectRows) {
    DesignWindow window(6);
    QApplication::setKeyboardInputInterval(0);
    const auto expect = [&](const char* text, int row) {
        Type(text);
        EXPECT_EQ(window.list->ListIndex(), row) << text;
    };
    Show(window, {[&] { expect("CS6", 2); }, [&] { expect("cc 2015", 4); },
                  [&] { expect("2016", 5); }, [&] { expect("9.0", 3); }, [&] { expect("zz", 3); },
                  [&] { expect(" ", 3); }, [&] { expect("cs", 0); }, [&] { expect("cs", 1); }});
    QApplication::setKeyboardInputInterval(400);
}

TEST_F(WindowTest, KeysAndModifiersInTheList) {
    DesignWindow window(5);
    std::string log;
    window.list->DoubleClickHandler = [&](Listbox& list) {
        log += "double" + std::to_string(list.ListIndex()) + " ";
    };
    window.list->Change = [&](Listbox& list) { log += std::to_string(list.ListIndex()) + " "; };
    const auto doubleClick = [](Qt::MouseButton button, Qt::KeyboardModifiers keys, QPoint place) {
        QTest::mouseClick(List().viewport(), button, keys, place);
        QTest::mouseDClick(List().viewport(), button, keys, place);
    };
    Show(window,
         {[] { QTest::keyClick(&List(), Qt::Key_Down); },
          [] { QTest::keyClick(&List(), Qt::Key_End); },
          [] { QTest::keyClick(&List(), Qt::Key_Home); },
          [] { QTest::keyClick(&List(), Qt::Key_Space); },
          [] {
              QTest::mouseClick(List().viewport(), Qt::LeftButton, Qt::ShiftModifier, {9, 9});
          },
          [&] { doubleClick(Qt::LeftButton, Qt::ControlModifier, CellCentre(0, 2)); },
          [&] { doubleClick(Qt::RightButton, {}, CellCentre(0)); },
          [&] {
              const QPoint below = List().viewport()->rect().bottomLeft() - QPoint(-9, 9);
              doubleClick(Qt::LeftButton, {}, below);
          },
          [] { EXPECT_TRUE(List().selectionModel()->selectedRows().isEmpty()); }});
    EXPECT_EQ(log, "0 4 0 double0 -1 ");
}

TEST_F(WindowTest, ReturnAnswersOnceAndNeverFromAKeyHeldDownBefore) {
    DesignWindow window(5);
    int presses = 0;
    window.open->SetDefault(true);
    window.open->Action = [&](PushButton&) { ++presses; };
    Show(window, {[] {
                      QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, "\r", true);
                      QApplication::sendEvent(&List(), &held);
                  },
                  [&] {
                      EXPECT_EQ(presses, 0);
                      QTest::keyClick(&Find("cancel"), Qt::Key_Return);
                      QTest::keyClick(&Find("higher"), Qt::Key_Enter, Qt::KeypadModifier);
                      EXPECT_EQ(presses, 2);
                      QTest::keyClick(&Find("quit"), Qt::Key_Space);
                      EXPECT_EQ(presses, 2);
                  }});
    EXPECT_FALSE(window.higher->Value());
}

TEST_F(WindowTest, TextsAreShownAsTheyAreAndNeverClipped) {
    DesignWindow window(5);
    window.open->SetCaption("Open with <b>R&D</b>");
    window.higher->SetCaption("Fish & &Chips");
    window.name->SetText("<b>R&D</b>.indd");
    const auto expectRoom = [](QWidget& widget, const QString& text, int room) {
        EXPECT_LE(widget.fontMetrics().horizontalAdvance(text), room) << text.toStdString();
        EXPECT_LE(widget.fontMetrics().height(), widget.height());
    };
    Show(window, {[] {
                      EXPECT_EQ(Find<QPushButton>("open").text(), "Open with <b>R&&D</b>");
                      EXPECT_EQ(Find<QCheckBox>("higher").text(), "Fish && &&Chips");
                      EXPECT_EQ(Find<QLabel>("name").text(), "<b>R&D</b>.indd");
                      EXPECT_EQ(Find<QLabel>("name").textFormat(), Qt::PlainText);
                      EXPECT_EQ(Find("name").toolTip(), "") << "nothing is cut";
                  },
                  [&] {
                      for (const std::string& hostile : HostileNames()) {
                          window.name->SetText(hostile + ".indd");
                          auto& label = Find<QLabel>("name");
                          expectRoom(label, label.text(), label.width());
                      }
                      window.name->SetText(std::string(250, 'x') + "<img src=y>.indd");
                      window.quit->SetCaption("Quit " + std::string(60, 'x'));
                      window.open->SetCaption("Open with 2021 beta 3");
                  },
                  [&] {
                      const auto& label = Find<QLabel>("name");
                      EXPECT_TRUE(label.text().endsWith(".indd")) << "the middle is cut out";
                      EXPECT_LT(label.text().size(), 200);
                      EXPECT_TRUE(label.toolTip().contains("&lt;img")) << "no markup in tips";
                      EXPECT_EQ(SpokenName(Find("name")).toStdString(), window.name->Text());
                      expectRoom(Find("quit"), Find<QPushButton>("quit").text(), 135);
                      EXPECT_TRUE(Find("quit").toolTip().contains(QString(60, 'x')));
                      expectRoom(Find("open"), Find<QPushButton>("open").text(), 145);
                      EXPECT_EQ(Find<QPushButton>("open").text(), "Open with 2021 beta 3");
                  }});
}

TEST(TextTest, ALineShrinksBeforeItIsCut) {
    QFont font;
    font.setPixelSize(14);
    const QString line = QStringLiteral("Open with 2020");
    const int width = QFontMetrics(font).horizontalAdvance(line);
    const auto fit = [&](int room, int height = 30) {
        return FittedLine(line, font, {room, height}, Qt::ElideRight);
    };
    EXPECT_EQ(fit(width).font.pixelSize(), 14);
    EXPECT_LT(fit(width - 5).font.pixelSize(), 14);
    EXPECT_FALSE(fit(width - 5).isCut);
    EXPECT_LT(fit(width, 14).font.pixelSize(), 14) << "a high font is too much as well";
    EXPECT_TRUE(fit(width / 3).isCut);
    EXPECT_GE(fit(width / 3).font.pixelSize(), 9);
}

struct Theme {
    const char* name;
    QColor window;
    QColor text;
    double least;
    bool isGivenColourGood;
};

class ThemeTest : public WindowTest {
 protected:
    ~ThemeTest() override { QApplication::setPalette(before_); }
    static void Use(const Theme& theme) {
        QPalette palette(theme.window, theme.window);
        for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
            palette.setColor(role, theme.text);
        palette.setColor(QPalette::Highlight, QColor(0x30, 0x60, 0xC0));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        QApplication::setPalette(palette);
    }
    const QPalette before_ = QApplication::palette();
};

TEST_F(ThemeTest, EverythingCanBeReadUnderEveryTheme) {
    const std::vector<Theme> themes = {{"light", QColor(0xEF, 0xEF, 0xEF), Qt::black, 2.5, true},
                                       {"dark", QColor(0x20, 0x20, 0x22), Qt::white, 2.5, true},
                                       {"red", QColor(0xE0, 0x20, 0x40), Qt::white, 2.5, false},
                                       {"black", Qt::black, Qt::white, 4.5, true},
                                       {"white", Qt::white, Qt::black, 4.5, false}};
    DesignWindow window(5);
    window.list->SetListIndex(2);
    std::vector<Steps::Step> steps;
    for (const Theme& theme : themes) {
        steps.emplace_back([&theme] { Use(theme); });
        steps.emplace_back([&theme] {
            const QColor warning = Find("message").palette().color(QPalette::WindowText);
            EXPECT_GE(Contrast(ToColor(warning), ToColor(theme.window)), theme.least) << theme.name;
            const QColor name = Find("name").palette().color(QPalette::WindowText);
            EXPECT_EQ(name, theme.text) << theme.name;
            if (theme.isGivenColourGood) {
                EXPECT_EQ(warning, QColor(0xFB0C43)) << theme.name;
            }
            const QImage list = List().viewport()->grab().toImage();
            const auto pixel = [&list](int x, int y) {
                const double scale = list.devicePixelRatio();
                return list.pixelColor(static_cast<int>((x + 0.5) * scale),
                                       static_cast<int>((y + 0.5) * scale));
            };
            const QRect stripe = List().visualRect(List().model()->index(1, 0));
            EXPECT_EQ(pixel(stripe.right() - 5, stripe.center().y()), QColor(0xF1F2F2));
            EXPECT_EQ(pixel(stripe.right(), stripe.center().y()), QColor(0xD5D5D5));
            EXPECT_EQ(pixel(stripe.right() - 5, stripe.bottom()), QColor(0xD5D5D5));
            EXPECT_EQ(pixel(stripe.right() - 5, stripe.top() - 10), QColor(Qt::white));
            const QRect row = List().visualRect(List().model()->index(2, 2));
            EXPECT_EQ(pixel(row.right() - 5, row.center().y()), QColor(0x3060C0));
        });
    }
    Show(window, steps);
}

TEST_F(WindowTest, ScrollBarsStandOnlyWhereRowsCantAllBeSeen) {
    for (const int rows : {0, 4, 5, 12}) {
        DesignWindow window(rows);
        Show(window, {[] { QTest::keyClick(&List(), Qt::Key_End); },
                      [&] {
                          EXPECT_FALSE(List().verticalScrollBar()->isVisible()) << rows;
                          EXPECT_EQ(List().verticalScrollBar()->value(), 0) << rows;
                      }});
    }
}

TEST_F(WindowTest, ThreeHundredRowsStayOnTheScreenAndCanAllBeReached) {
    DesignWindow window(300);
    Show(window, {[] {
                      const QRect screen = Shown().screen()->availableGeometry();
                      EXPECT_TRUE(screen.contains(Shown().frameGeometry()));
                      EXPECT_TRUE(Shown().rect().contains(Find("quitting").geometry()));
                      EXPECT_TRUE(List().verticalScrollBar()->isVisible());
                      QTest::keyClick(&List(), Qt::Key_End);
                  },
                  [&] {
                      EXPECT_EQ(window.list->ListIndex(), 299);
                      EXPECT_TRUE(List().viewport()->rect().contains(CellCentre(299)));
                      EXPECT_EQ(List().columnWidth(0) + 90 + 64, List().viewport()->width());
                  }});
}

TEST_F(WindowTest, ManyChangesAreReadOnce) {
    DesignWindow window(5);
    int resets = 0;
    Show(window, {[&] {
                      QObject::connect(List().model(), &QAbstractItemModel::modelReset, &List(),
                                       [&] { ++resets; });
                      for (int i = 0; i < 300; ++i)
                          window.list->AddRow("new");
                      List().viewport()->grab();
                      EXPECT_EQ(resets, 0);
                  },
                  [&] {
                      EXPECT_EQ(resets, 1);
                      EXPECT_EQ(List().model()->rowCount(), 305);
                      // A press reads what has changed before it is judged.
                      window.list->DeleteAllRows();
                      QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, {30, 30});
                      EXPECT_EQ(window.list->ListIndex(), -1);
                  }});
}

TEST_F(WindowTest, AScreenReaderHearsRowsButtonsAndWholeTexts) {
    DesignWindow window(5);
    window.list->SetDescription("Installed versions");
    window.icon->SetDescription("Document");
    window.open->SetCaption("Open with R&D");
    Show(window, {[] {
                      EXPECT_EQ(SpokenName(List()), "Installed versions");
                      EXPECT_EQ(SpokenName(Find("open")), "Open with R&D");
                      EXPECT_EQ(SpokenName(Find("higher")),
                                "Allow a file to be opened by a higher version");
                      auto* table =
                          QAccessible::queryAccessibleInterface(&List())->tableInterface();
                      ASSERT_NE(table, nullptr);
                      EXPECT_EQ(table->rowCount(), 5);
                      EXPECT_EQ(table->cellAt(1, 0)->text(QAccessible::Name), "CS5 described");
                      EXPECT_EQ(table->cellAt(1, 1)->text(QAccessible::Name), "7.0.3");
                      EXPECT_EQ(table->cellAt(1, 2)->text(QAccessible::Name), "Booting");
                      QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, CellCentre(1, 2));
                  },
                  [] {
                      EXPECT_EQ(List().currentIndex(), List().model()->index(1, 0))
                          << "the cell that tells of the whole row is the one that is heard";
                  }});
}

TEST_F(WindowTest, ACanvasTakesTheMouseAndDrawsOverItsBackdrop) {
    DesignWindow window(1);
    std::string log;
    window.icon->MouseDownHandler = [&](Canvas&, int64_t x, int64_t y) {
        log += std::to_string(x) + "," + std::to_string(y) + " ";
        return x > 20;
    };
    window.icon->MouseUpHandler = [&](Canvas&, int64_t, int64_t) { log += "up "; };
    window.icon->Paint = [](Canvas&, Graphics& graphics) {
        graphics.ForeColor = {0x112233};
        graphics.FillRect(0, 0, graphics.Width() / 2, graphics.Height());
    };
    Show(window, {[] {
             QTest::mouseClick(&Find("icon"), Qt::LeftButton, {}, {30, 5});
             QTest::mouseClick(&Find("icon"), Qt::LeftButton, {}, {3, 4});
             EXPECT_EQ(Find("icon").focusPolicy(), Qt::NoFocus);
             const QImage image = Find("icon").grab().toImage();
             EXPECT_EQ(image.pixelColor(10, 10), QColor(0x112233));
             EXPECT_EQ(image.pixelColor(40, 40), QColor(0xC0D0F0));
         }});
    EXPECT_EQ(log, "30,5 up 3,4 ");
}

TEST(GraphicsTest, BothEndsOfALineBelongToIt) {
    QImage device(10, 10, QImage::Format_RGB32);
    device.fill(Qt::white);
    QPainter painter(&device);
    QtGraphics graphics(painter, device.size());
    graphics.DrawLine(7, 2, 3, 2);
    graphics.DrawLine(5, 4, 5, 8);
    painter.end();
    for (const auto& [point, isDrawn] : std::vector<std::pair<QPoint, bool>>{{{3, 2}, true},
                                                                             {{7, 2}, true},
                                                                             {{2, 2}, false},
                                                                             {{8, 2}, false},
                                                                             {{5, 3}, false},
                                                                             {{5, 4}, true},
                                                                             {{5, 8}, true},
                                                                             {{5, 9}, false}}) {
        EXPECT_EQ(device.pixelColor(point) == Qt::black, isDrawn) << point.x() << "," << point.y();
    }
}

size_t OpenDescriptors() {
    size_t count = 0;
    DIR* folder = opendir("/dev/fd");
    while (readdir(folder) != nullptr)
        ++count;
    closedir(folder);
    return count;
}

TEST_F(WindowTest, AHundredWindowsInARowLeaveNothingBehind) {
    const auto showOne = [this] {
        DesignWindow window(5);
        Show(window, {});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    showOne();
    const auto widgets = QApplication::allWidgets().size();
    const size_t descriptors = OpenDescriptors();
    for (int i = 0; i < 100; ++i)
        showOne();
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
    EXPECT_EQ(OpenDescriptors(), descriptors);
}

TEST_F(WindowTest, AWindowThatHoldsNothingUpMayCloseInItsOwnHandler) {
    const auto window = New<DesignWindow>(5);
    window->open->Action = [&](PushButton&) {
        window->Close();
        // Whatever the loop does now, the widget is still in its own event.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    window->Show();
    WindowWidget* widget = WindowWidget::Of(window.Get());
    ASSERT_NE(widget, nullptr);
    EXPECT_EQ(widget->windowModality(), Qt::NonModal);
    window->Show();
    EXPECT_EQ(WindowWidget::Of(window.Get()), widget) << "it is brought up, not shown twice";
    QTest::mouseClick(widget->findChild<QWidget*>("open"), Qt::LeftButton);
    EXPECT_TRUE(window->IsClosed());
    EXPECT_EQ(WindowWidget::Of(window.Get()), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace
}  // namespace dunvey::test
