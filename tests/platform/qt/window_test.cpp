#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QToolTip>

#include "filled_chooser.h"
#include "menus/localized.h"
#include "platform/loop/application.h"
#include "platform/pictures/contrast.h"
#include "platform/qt/qt_graphics.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/qt_window.h"
#include "steps.h"
#include "support/hostile_names.h"

namespace dunvey::test {
namespace {

class PlainWindow final : public Window {
 public:
    PlainWindow() : Window({200, 100}) { SetTitle("plain"); }
};

class WindowTest : public ::testing::Test {
 protected:
    class NoDocuments final : public Application {
        void Event_OpenDocument(const Ref<FolderItem>&) override {}
    };

    WindowTest() {
        setenv("LC_ALL", "C", 1);
        Application::Register(New<NoDocuments>());
    }
    ~WindowTest() override {
        unsetenv("LC_ALL");
        Application::Register(nullptr);
    }

    /// Shows the window while the user takes the steps, and closes it.
    void Show(Window& window, std::vector<Steps::Step> steps) {
        steps.emplace_back([&window] { window.Close(); });
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
    static QTableView& List() { return Find<QTableView>("AppList"); }
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
    static QString SpokenDescription(QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description);
    }
    /// The tool tip that the pointer brings up over the control; empty for none.
    static QString TipOf(const char* name) {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, {5, 5}, Find(name).mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&Find(name), &event);
        return QToolTip::text();
    }

    EventLoop loop_;
    Steps steps_;
    const QFont before_ = QApplication::font();
};

TEST_F(WindowTest, TheTitleBarHasOnlyTheButtonsThatAreWanted) {
    PlainWindow bare;
    bare.CloseButton = bare.MinimizeButton = false;
    Show(bare, {[] {
             EXPECT_EQ(Shown().windowTitle(), "plain");
             EXPECT_EQ(
                 Shown().windowFlags() & (Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint),
                 Qt::WindowFlags());
             EXPECT_TRUE(Shown().windowFlags() & Qt::CustomizeWindowHint);
         }});
    PlainWindow hidden;
    hidden.Handle()->standardWindowButton(NSWindow::kMiniaturizeButton)->setHidden(true);
    Show(hidden, {[] {
             EXPECT_EQ(
                 Shown().windowFlags() & (Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint),
                 Qt::WindowCloseButtonHint);
             EXPECT_EQ(Shown().minimumSize(), Shown().maximumSize());
         }});
}

TEST_F(WindowTest, WhereTheFocusedControlIsDisabledTheListHasTheFocus) {
    FilledChooser window(5);
    window.PushButton3()->SetEnabled(true);
    Show(window, {[&] {
             Find("PushButton3").setFocus();
             window.PushButton3()->SetEnabled(false);
             EXPECT_EQ(Shown().focusWidget()->objectName(), QStringLiteral("AppList"));
         }});
}

TEST_F(WindowTest, TheFocusBeginsInTheListAndTabGoesInTheDeclaredOrder) {
    FilledChooser window(5);
    window.PushButton1()->SetEnabled(true);
    window.PushButton3()->SetEnabled(true);
    Show(window, {[] {
             QString order;
             for (int i = 0; i < 7; ++i) {
                 order += Shown().focusWidget()->objectName() + QLatin1Char(' ');
                 QTest::keyClick(Shown().focusWidget(), Qt::Key_Tab);
             }
             EXPECT_EQ(order,
                       "AppList PushButton1 PushButton2 PushButton3 CheckBox1 CheckBox2 AppList ");
         }});
}

TEST_F(WindowTest, TypedWordsSelectRows) {
    FilledChooser window(6);
    QApplication::setKeyboardInputInterval(0);
    const auto expect = [&](const char* text, int row) {
        Type(text);
        EXPECT_EQ(window.AppList()->ListIndex(), row) << text;
    };
    Show(window,
         {[&] { expect("CS6", 2); }, [&] { expect("cc 2015", 4); }, [&] { expect("2016", 5); },
          [&] { expect("9.0", 3); }, [&] { expect("zz", 3); }, [&] { expect(" ", 3); },
          [&] { expect("cs", 0); }, [&] { expect("cs5", 1); }, [&] { expect("cs", 1); }});
    QApplication::setKeyboardInputInterval(400);
}

TEST_F(WindowTest, KeysAndModifiersInTheList) {
    FilledChooser window(5);
    std::string log;
    window.AppList()->DoubleClickHandler = [&](Listbox& list) {
        log += "double" + std::to_string(list.ListIndex()) + " ";
    };
    window.AppList()->Change = [&](Listbox& list) {
        log += std::to_string(list.ListIndex()) + " ";
    };
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
    FilledChooser window(5);
    int presses = 0;
    window.PushButton1()->SetEnabled(true);
    window.PushButton1()->SetDefault(true);
    window.PushButton1()->Action = [&](PushButton&) { ++presses; };
    window.PushButton3()->SetEnabled(true);
    Show(window, {[] {
                      QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, "\r", true);
                      QApplication::sendEvent(&List(), &held);
                  },
                  [&] {
                      EXPECT_EQ(presses, 0);
                      QTest::keyClick(&Find("CheckBox1"), Qt::Key_Enter, Qt::KeypadModifier);
                      EXPECT_EQ(presses, 1);
                      QTest::keyClick(&Find("PushButton3"), Qt::Key_Space);
                      EXPECT_EQ(presses, 1);
                  }});
    EXPECT_FALSE(window.CheckBox1()->Value());
}

TEST_F(WindowTest, TextsAreShownAsTheyAreAndShortenedInTheMiddle) {
    FilledChooser window(5);
    window.PushButton1()->SetCaption("Open <b>R&D</b>");
    window.CheckBox1()->SetCaption("Fish & &Chips");
    window.LabelFileName()->SetText("<b>R&D</b>.indd");
    const auto expectRoom = [](const QWidget& widget, const QString& text, int room) {
        EXPECT_LE(widget.fontMetrics().horizontalAdvance(text), room) << text.toStdString();
        EXPECT_LE(widget.fontMetrics().height(), widget.height());
    };
    Show(window, {[] {
                      EXPECT_EQ(Find<QPushButton>("PushButton1").text(), "Open <b>R&&D</b>");
                      EXPECT_EQ(Find<QCheckBox>("CheckBox1").text(), "Fish && &&Chips");
                      EXPECT_EQ(Find<QLabel>("LabelFileName").text(), "<b>R&D</b>.indd");
                      EXPECT_EQ(Find<QLabel>("LabelFileName").textFormat(), Qt::PlainText);
                      EXPECT_EQ(TipOf("LabelFileName"), "") << "nothing is cut";
                      EXPECT_EQ(Find("LabelAppName").fontInfo().pixelSize(), 17);
                  },
                  [&] {
                      for (const std::string& hostile : HostileNames()) {
                          window.LabelFileName()->SetText(hostile + ".indd");
                          auto& label = Find<QLabel>("LabelFileName");
                          expectRoom(label, label.text(), label.width());
                      }
                      window.LabelFileName()->SetText(std::string(250, 'x') + "<img src=y>.indd");
                      window.PushButton3()->SetCaption("Quit " + std::string(60, 'x'));
                      QFont large = QApplication::font();
                      large.setPixelSize(26);
                      QApplication::setFont(large);
                  },
                  [&] {
                      const auto& label = Find<QLabel>("LabelFileName");
                      EXPECT_TRUE(label.text().endsWith(".indd")) << "the middle is cut out";
                      EXPECT_LT(label.text().size(), 200);
                      EXPECT_TRUE(TipOf("LabelFileName").contains("&lt;img"));
                      EXPECT_EQ(SpokenName(Find("LabelFileName")).toStdString(),
                                window.LabelFileName()->Text());
                      EXPECT_EQ(SpokenDescription(Find("LabelFileName")), "");
                      expectRoom(label, label.text(), label.width());
                      expectRoom(Find("PushButton3"), Find<QPushButton>("PushButton3").text(), 135);
                      EXPECT_TRUE(TipOf("PushButton3").contains(QString(60, 'x')));
                  }});
    QApplication::setFont(before_);
}

TEST_F(WindowTest, ContentLargerThanTheScreenScrolls) {
    class LargeWindow final : public Window {
     public:
        LargeWindow() : Window({3000, 2000}) {
            const Ref<PushButton> last = New<PushButton>();
            last->SetName("last");
            last->SetDesign({2900, 1970, 90, 20}, {});
            Add(last);
        }
    } window;
    Show(window, {[&] {
             EXPECT_TRUE(Shown().screen()->availableGeometry().contains(Shown().geometry()));
             EXPECT_EQ(window.Width(), 3000);
             EXPECT_TRUE(Find("last").parentWidget()->rect().contains(Find("last").geometry()));
         }});
}

TEST_F(WindowTest, AFreshWindowTakesInputThatIsNoAnswer) {
    FilledChooser window(5);
    std::string log;
    window.AppList()->DoubleClickHandler = [&](Listbox&) { log += "double "; };
    window.PushButton1()->SetEnabled(true);
    window.PushButton1()->Action = [&](PushButton&) { log += "button "; };
    Show(window, {[&] {
             QApplication::setDoubleClickInterval(600'000);
             QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, CellCentre(3));
             EXPECT_EQ(window.AppList()->ListIndex(), 3);
             QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, CellCentre(3));
             QTest::mouseClick(&Find("PushButton1"), Qt::LeftButton);
             QTest::keyClick(&Find("CheckBox2"), Qt::Key_Space);
             EXPECT_TRUE(window.CheckBox2()->Value());
             QApplication::setDoubleClickInterval(0);
         }});
    EXPECT_EQ(log, "");
}

TEST_F(WindowTest, NoJapaneseTextIsTooWide) {
    for (const auto& text :
         {Localized::kMassage_AnotherVerAppBooting, Localized::kMassage_SameVerAppNotInstalled,
          Localized::kMassage_AppNotInstalled}) {
        FilledChooser window(1);
        window.LabelMsg()->SetText(text("ja"));
        window.CheckBox1()->SetCaption(Localized::kAllowOpenHigherVersion("ja"));
        window.PushButton1()->SetCaption("CC 2019" + Localized::kCapOpenWith("ja"));
        Show(window, {[] {
                 for (const char* name : {"LabelMsg", "CheckBox1", "PushButton1"})
                     EXPECT_EQ(TipOf(name), "") << SpokenName(Find(name)).toStdString();
             }});
    }
}

TEST_F(WindowTest, ReturnPressesTheFocusedButtonWhichAloneIsHighlighted) {
    FilledChooser window(5);
    std::string log;
    for (const auto& button : {window.PushButton1(), window.PushButton3()}) {
        button->SetEnabled(true);
        button->Action = [&log](PushButton& pressed) { log += pressed.Name() + " "; };
    }
    window.PushButton1()->SetDefault(true);
    const auto highlighted = [] {
        QString names;
        for (const QPushButton* button : Shown().findChildren<QPushButton*>())
            if (button->isDefault()) names += button->objectName();
        return names;
    };
    Show(window, {[&] { EXPECT_EQ(highlighted(), "PushButton1"); },
                  [&] {
                      Find("PushButton3").setFocus();
                      EXPECT_EQ(highlighted(), "PushButton3");
                      QTest::keyClick(&Find("PushButton3"), Qt::Key_Return);
                      List().setFocus();
                      EXPECT_EQ(highlighted(), "PushButton1");
                      QTest::keyClick(&List(), Qt::Key_Return);
                      window.PushButton1()->SetEnabled(false);
                      EXPECT_EQ(highlighted(), "");
                  }});
    EXPECT_EQ(log, "PushButton3 PushButton1 ");
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
                                       {"dark", QColor(0x20, 0x20, 0x22), Qt::white, 4.5, false},
                                       {"red", QColor(0xE0, 0x20, 0x40), Qt::white, 4.5, false},
                                       {"black", Qt::black, Qt::white, 4.5, true},
                                       {"white", Qt::white, Qt::black, 4.5, false}};
    FilledChooser window(5);
    window.AppList()->SetListIndex(2);
    window.LabelMsg()->SetTextColor({0xFB0C43});
    std::vector<Steps::Step> steps;
    for (const Theme& theme : themes) {
        steps.emplace_back([&theme] { Use(theme); });
        steps.emplace_back([&theme] {
            const QColor warning = Find("LabelMsg").palette().color(QPalette::WindowText);
            EXPECT_GE(Contrast(ToColor(warning), ToColor(theme.window)), theme.least) << theme.name;
            const QColor name = Find("LabelFileName").palette().color(QPalette::WindowText);
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
            const QRect last = List().visualRect(List().model()->index(1, 2));
            EXPECT_EQ(pixel(last.right(), last.center().y()), QColor(0xF1F2F2))
                << "no line behind the last column";
            const QRect row = List().visualRect(List().model()->index(2, 2));
            EXPECT_EQ(pixel(row.right() - 5, row.center().y()), QColor(0x3060C0));
            EXPECT_EQ(pixel(row.left() - 1, row.center().y()), QColor(0x3060C0))
                << "a selected row keeps the highlight alone";
        });
    }
    Show(window, steps);
}

TEST_F(WindowTest, ScrollBarsStandOnlyWhereRowsCantAllBeSeen) {
    for (const int rows : {0, 4, 5, 12}) {
        FilledChooser window(rows);
        Show(window, {[] { QTest::keyClick(&List(), Qt::Key_End); },
                      [&] {
                          EXPECT_FALSE(List().verticalScrollBar()->isVisible()) << rows;
                          EXPECT_EQ(List().verticalScrollBar()->value(), 0) << rows;
                      }});
    }
}

TEST_F(WindowTest, ThreeHundredRowsStayOnTheScreenAndCanAllBeReached) {
    FilledChooser window(300);
    Show(window, {[] {
                      const QRect screen = Shown().screen()->availableGeometry();
                      EXPECT_TRUE(screen.contains(Shown().frameGeometry()));
                      EXPECT_TRUE(Shown().rect().contains(Find("CheckBox2").geometry()));
                      EXPECT_TRUE(List().verticalScrollBar()->isVisible());
                      QTest::keyClick(&List(), Qt::Key_End);
                  },
                  [&] {
                      EXPECT_EQ(window.AppList()->ListIndex(), 299);
                      EXPECT_TRUE(List().viewport()->rect().contains(CellCentre(299)));
                      EXPECT_EQ(List().columnWidth(0) + 90 + 64, List().viewport()->width());
                  }});
}

TEST_F(WindowTest, ManyChangesAreReadOnce) {
    FilledChooser window(5);
    int resets = 0;
    Show(window, {[&] {
                      QObject::connect(List().model(), &QAbstractItemModel::modelReset, &List(),
                                       [&] { ++resets; });
                      for (int i = 0; i < 300; ++i)
                          window.AppList()->AddRow("new");
                      List().viewport()->grab();
                      EXPECT_EQ(resets, 0);
                  },
                  [&] {
                      EXPECT_EQ(resets, 1);
                      EXPECT_EQ(List().model()->rowCount(), 305);
                      // A press reads what has changed before it is judged.
                      window.AppList()->DeleteAllRows();
                      QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, {30, 30});
                      EXPECT_EQ(window.AppList()->ListIndex(), -1);
                  }});
}

TEST_F(WindowTest, AScreenReaderHearsRowsButtonsAndWholeTexts) {
    FilledChooser window(5);
    window.AppList()->SetSpokenName("Installed versions");
    window.AppList()->SetHeading(1, "Version");
    window.LabelFileName()->SetHelpTag("/folder/R&D.indd");
    window.PushButton1()->SetCaption("Open with R&D");
    Show(window,
         {[] {
              EXPECT_EQ(SpokenName(List()), "Installed versions");
              EXPECT_EQ(SpokenName(Find("PushButton1")), "Open with R&D");
              EXPECT_EQ(SpokenName(Find("CheckBox1")),
                        "Allow a file to be opened by a higher version");
              auto* table = QAccessible::queryAccessibleInterface(&List())->tableInterface();
              ASSERT_NE(table, nullptr);
              EXPECT_EQ(table->rowCount(), 5);
              EXPECT_EQ(table->cellAt(1, 0)->text(QAccessible::Name), "Adobe InDesign CS5");
              EXPECT_EQ(table->cellAt(1, 0)->text(QAccessible::Description), "CS5 described");
              EXPECT_EQ(table->cellAt(1, 1)->text(QAccessible::Name), "7.0.3");
              EXPECT_EQ(table->cellAt(1, 2)->text(QAccessible::Name), "Booting");
              EXPECT_EQ(table->cellAt(1, 1)->text(QAccessible::Description), "");
              EXPECT_EQ(table->columnDescription(1), "Version");
              EXPECT_EQ(Find("LabelFileName").accessibleDescription(), "/folder/R&D.indd");
              EXPECT_TRUE(TipOf("LabelFileName").contains("R&amp;D"));
              QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, CellCentre(1, 2));
          },
          [] {
              EXPECT_EQ(List().currentIndex(), List().model()->index(1, 0))
                  << "the cell with the description of the row has the focus";
          }});
}

TEST_F(WindowTest, ACanvasTakesTheMouseAndDrawsOverItsBackdrop) {
    FilledChooser window(1);
    std::string log;
    window.Canvas1()->SetBackdrop(PlainPicture(46, 0xFFC0D0F0));
    window.Canvas1()->MouseDownHandler = [&](Canvas&, int64_t x, int64_t y) {
        log += std::to_string(x) + "," + std::to_string(y) + " ";
        return x > 20;
    };
    window.Canvas1()->MouseUpHandler = [&](Canvas&, int64_t, int64_t) { log += "up "; };
    window.Canvas1()->Paint = [](Canvas&, Graphics& graphics) {
        graphics.ForeColor = {0x112233};
        graphics.FillRect(0, 0, graphics.Width() / 2, graphics.Height());
    };
    Show(window, {[] {
             EXPECT_EQ(Shown().childAt(20, 40), &Find("Canvas2")) << "what comes later is above";
             QTest::mouseClick(&Find("Canvas1"), Qt::LeftButton, {}, {30, 5});
             QTest::mouseClick(&Find("Canvas1"), Qt::LeftButton, {}, {3, 4});
             EXPECT_EQ(Find("Canvas1").focusPolicy(), Qt::NoFocus);
             const QImage image = Find("Canvas1").grab().toImage();
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

TEST_F(WindowTest, AWindowThatHoldsNothingUpMayCloseInItsOwnHandler) {
    const auto window = New<FilledChooser>(5);
    window->PushButton1()->SetEnabled(true);
    window->PushButton1()->Action = [&](PushButton&) {
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
    QTest::mouseClick(widget->findChild<QWidget*>("PushButton1"), Qt::LeftButton);
    EXPECT_TRUE(window->IsClosed());
    EXPECT_EQ(WindowWidget::Of(window.Get()), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace
}  // namespace dunvey::test
