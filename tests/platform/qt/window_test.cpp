#include <QAccessible>
#include <QCheckBox>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QToolTip>

#include "menus/localized.h"
#include "platform/qt/qt_graphics.h"
#include "qt_test.h"
#include "support/hostile_names.h"

namespace dunvey::test {
namespace {

class WindowTest : public QtTest {
 protected:
    static QTableView& List() { return Find<QTableView>("AppList"); }
    static QPoint CellCentre(int row, int column = 0) {
        return List().visualRect(List().model()->index(row, column)).center();
    }
    static QString Spoken(QWidget& widget, QAccessible::Text text = QAccessible::Name) {
        return QAccessible::queryAccessibleInterface(&widget)->text(text);
    }
    /// The tool tip of the control; empty for none.
    static QString TipOf(const char* name) {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, {5, 5}, Find(name).mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&Find(name), &event);
        return QToolTip::text();
    }
    /// Enables both buttons, of which PushButton1 is the default one; presses are logged.
    void UseButtons(Window1& window) {
        for (const auto& button : {window.PushButton1(), window.PushButton3()}) {
            button->SetEnabled(true);
            button->Action = [this](PushButton& pressed) { log_ += pressed.Name() + " "; };
        }
        window.PushButton1()->SetDefault(true);
    }

    std::string log_;
    const QFont before_ = QApplication::font();
};

TEST_F(WindowTest, TheTitleBarHasOnlyTheButtonsThatAreWanted) {
    const Qt::WindowFlags buttons = Qt::WindowCloseButtonHint | Qt::WindowMinMaxButtonsHint;
    for (const bool isClosable : {false, true}) {
        Window window({200, 100});
        window.SetTitle("plain");
        window.CloseButton = isClosable;
        window.Handle()->standardWindowButton(NSWindow::kMiniaturizeButton)->setHidden(true);
        Show(window, {[&] {
                 EXPECT_EQ(Shown().windowTitle(), "plain");
                 EXPECT_EQ(Shown().windowFlags() & buttons,
                           isClosable ? Qt::WindowCloseButtonHint : Qt::WindowFlags());
                 EXPECT_TRUE(Shown().windowFlags() & Qt::CustomizeWindowHint);
                 EXPECT_EQ(Shown().minimumSize(), Shown().maximumSize());
             }});
    }
}

TEST_F(WindowTest, TheFocusStartsInTheListFollowsTabIndexAndLeavesDisabledControls) {
    FilledChooser window(5);
    UseButtons(window);
    Show(window, {[&] {
             QString order;
             for (int i = 0; i < 6; ++i) {
                 order += Shown().focusWidget()->objectName() + QLatin1Char(' ');
                 QTest::keyClick(Shown().focusWidget(), Qt::Key_Tab);
             }
             EXPECT_EQ(order, "AppList PushButton1 PushButton2 PushButton3 CheckBox1 CheckBox2 ");
             EXPECT_EQ(Shown().focusWidget(), &List());
             Find("PushButton3").setFocus();
             window.PushButton3()->SetEnabled(false);
             EXPECT_EQ(Shown().focusWidget(), &List());
         }});
}

TEST_F(WindowTest, TypedWordsSelectRows) {
    FilledChooser window(6);
    const int before = QApplication::keyboardInputInterval();
    const auto expect = [&](const std::string& text, int row) {
        // The first key starts a search; the others continue it, however slow the test is.
        QApplication::setKeyboardInputInterval(0);
        for (const char key : text) {
            QTest::keyClick(&List(), key);
            QApplication::setKeyboardInputInterval(1000000);
        }
        EXPECT_EQ(window.AppList()->ListIndex(), row) << text;
    };
    Show(window,
         {[&] { expect("CS6", 2); }, [&] { expect("cc 2015", 4); }, [&] { expect("2016", 5); },
          [&] { expect("9.0", 3); }, [&] { expect("zz", 3); }, [&] { expect(" ", 3); },
          [&] { expect("cs", 0); }, [&] { expect("cs5", 1); }, [&] { expect("cs", 1); }});
    QApplication::setKeyboardInputInterval(before);
}

TEST_F(WindowTest, KeysAndModifiersInTheList) {
    FilledChooser window(5);
    const auto log = [&](Listbox& list) { log_ += std::to_string(list.ListIndex()) + " "; };
    window.AppList()->DoubleClickHandler = [&](Listbox& list) {
        log_ += "double";
        log(list);
    };
    window.AppList()->Change = log;
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
          }});
    EXPECT_EQ(log_, "0 4 0 double0 -1 ");
}

TEST_F(WindowTest, ReturnPressesTheFocusedButtonWhichAloneIsHighlighted) {
    FilledChooser window(5);
    UseButtons(window);
    const auto expectHighlighted = [](const char* name) {
        QString names;
        for (const QPushButton* button : Shown().findChildren<QPushButton*>())
            if (button->isDefault()) names += button->objectName();
        EXPECT_EQ(names, name);
    };
    Show(window, {[] { HoldKey(List(), Qt::Key_Return); },
                  [&] {
                      EXPECT_EQ(log_, "") << "the key was held down before the window came";
                      expectHighlighted("PushButton1");
                      QTest::keyClick(&Find("CheckBox1"), Qt::Key_Enter, Qt::KeypadModifier);
                      Find("PushButton3").setFocus();
                      expectHighlighted("PushButton3");
                      QTest::keyClick(&Find("PushButton3"), Qt::Key_Return);
                      QTest::keyClick(&Find("PushButton3"), Qt::Key_Space);
                      List().setFocus();
                      expectHighlighted("PushButton1");
                      QTest::keyClick(&List(), Qt::Key_Return);
                      window.PushButton1()->SetEnabled(false);
                      expectHighlighted("");
                  }});
    EXPECT_EQ(log_, "PushButton1 PushButton3 PushButton3 PushButton1 ");
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
    Show(window, {[&] {
                      auto& label = Find<QLabel>("LabelFileName");
                      EXPECT_EQ(Find<QPushButton>("PushButton1").text(), "Open <b>R&&D</b>");
                      EXPECT_EQ(Find<QCheckBox>("CheckBox1").text(), "Fish && &&Chips");
                      EXPECT_EQ(label.text(), "<b>R&D</b>.indd");
                      EXPECT_EQ(label.textFormat(), Qt::PlainText);
                      EXPECT_EQ(TipOf("LabelFileName"), "") << "nothing is cut";
                      EXPECT_EQ(Find("LabelAppName").fontInfo().pixelSize(), 17);
                      for (const std::string& hostile : HostileNames()) {
                          window.LabelFileName()->SetText(hostile + ".indd");
                          expectRoom(label, label.text(), label.width());
                      }
                      window.LabelFileName()->SetText(std::string(250, 'x') + "<img src=y>.indd");
                      window.PushButton3()->SetCaption("Quit " + std::string(60, 'x'));
                      QFont large = before_;
                      large.setPixelSize(26);
                      QApplication::setFont(large);
                  },
                  [&] {
                      auto& label = Find<QLabel>("LabelFileName");
                      EXPECT_TRUE(label.text().endsWith(".indd")) << "the middle is cut out";
                      EXPECT_LT(label.text().size(), 200);
                      EXPECT_TRUE(TipOf("LabelFileName").contains("&lt;img"));
                      EXPECT_EQ(Spoken(label).toStdString(), window.LabelFileName()->Text());
                      EXPECT_EQ(Spoken(label, QAccessible::Description), "");
                      expectRoom(label, label.text(), label.width());
                      expectRoom(Find("PushButton3"), Find<QPushButton>("PushButton3").text(), 135);
                      EXPECT_TRUE(TipOf("PushButton3").contains(QString(60, 'x')));
                  }});
    QApplication::setFont(before_);
}

TEST_F(WindowTest, ContentLargerThanTheScreenScrolls) {
    struct LargeWindow final : Window {
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
    UseButtons(window);
    window.AppList()->DoubleClickHandler = [&](Listbox&) { log_ += "double "; };
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
    EXPECT_EQ(log_, "");
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
                     EXPECT_EQ(TipOf(name), "") << Spoken(Find(name)).toStdString();
             }});
    }
}

TEST_F(WindowTest, TheListScrollsOnlyWhereTheScreenIsTooSmall) {
    for (const int rows : {0, 4, 5, 12, 300}) {
        SCOPED_TRACE(rows);
        FilledChooser window(rows);
        Show(window, {[] { QTest::keyClick(&List(), Qt::Key_End); },
                      [&] {
                          const QRect screen = Shown().screen()->availableGeometry();
                          EXPECT_TRUE(screen.contains(Shown().frameGeometry()));
                          EXPECT_TRUE(Shown().rect().contains(Find("CheckBox2").geometry()));
                          const QScrollBar& bar = *List().verticalScrollBar();
                          EXPECT_EQ(bar.isVisible(), rows == 300);
                          EXPECT_EQ(bar.value() > 0, rows == 300);
                          EXPECT_EQ(window.AppList()->ListIndex(), rows - 1);
                          EXPECT_TRUE(rows == 0 ||
                                      List().viewport()->rect().contains(CellCentre(rows - 1)));
                          EXPECT_EQ(List().columnWidth(0) + 90 + 64, List().viewport()->width());
                      }});
    }
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
                      // A press reads pending changes first.
                      window.AppList()->DeleteAllRows();
                      QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, {30, 30});
                      EXPECT_EQ(window.AppList()->ListIndex(), -1);
                  }});
}

TEST_F(WindowTest, AScreenReaderGetsRowsButtonsAndWholeTexts) {
    FilledChooser window(5);
    window.AppList()->SetSpokenName("Installed versions");
    window.AppList()->SetHeading(1, "Version");
    window.LabelFileName()->SetHelpTag("/folder/R&D.indd");
    window.PushButton1()->SetCaption("Open with R&D");
    Show(window,
         {[] {
              EXPECT_EQ(Spoken(List()), "Installed versions");
              EXPECT_EQ(Spoken(Find("PushButton1")), "Open with R&D");
              EXPECT_EQ(Spoken(Find("CheckBox1")), "Allow a file to be opened by a higher version");
              EXPECT_EQ(Find("LabelFileName").accessibleDescription(), "/folder/R&D.indd");
              EXPECT_TRUE(TipOf("LabelFileName").contains("R&amp;D"));
              auto* table = QAccessible::queryAccessibleInterface(&List())->tableInterface();
              ASSERT_NE(table, nullptr);
              EXPECT_EQ(table->rowCount(), 5);
              EXPECT_EQ(table->columnDescription(1), "Version");
              const auto cell = [table](int column, QAccessible::Text text) {
                  return table->cellAt(1, column)->text(text);
              };
              EXPECT_EQ(cell(0, QAccessible::Name), "Adobe InDesign CS5");
              EXPECT_EQ(cell(0, QAccessible::Description), "Adobe InDesign CS5 described");
              EXPECT_EQ(cell(1, QAccessible::Name), "7.0.3");
              EXPECT_EQ(cell(1, QAccessible::Description), "");
              EXPECT_EQ(cell(2, QAccessible::Name), "Booting");
              QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, CellCentre(1, 2));
          },
          [] {
              EXPECT_EQ(List().currentIndex(), List().model()->index(1, 0))
                  << "the focus is in the cell that has the row's description";
          }});
}

TEST_F(WindowTest, ACanvasTakesTheMouseAndDrawsOverItsBackdrop) {
    FilledChooser window(1);
    window.Canvas1()->SetBackdrop(PlainPicture(46, 0xFFC0D0F0));
    window.Canvas1()->MouseDownHandler = [&](Canvas&, int64_t x, int64_t y) {
        log_ += std::to_string(x) + "," + std::to_string(y) + " ";
        return x > 20;
    };
    window.Canvas1()->MouseUpHandler = [&](Canvas&, int64_t, int64_t) { log_ += "up "; };
    window.Canvas1()->Paint = [](Canvas&, Graphics& graphics) {
        graphics.ForeColor = {0x112233};
        graphics.FillRect(0, 0, graphics.Width() / 2, graphics.Height());
    };
    Show(window, {[] {
             EXPECT_EQ(Shown().childAt(20, 40), &Find("Canvas2")) << "later controls are above";
             QTest::mouseClick(&Find("Canvas1"), Qt::LeftButton, {}, {30, 5});
             QTest::mouseClick(&Find("Canvas1"), Qt::LeftButton, {}, {3, 4});
             EXPECT_EQ(Find("Canvas1").focusPolicy(), Qt::NoFocus);
             const QImage image = Find("Canvas1").grab().toImage();
             EXPECT_EQ(image.pixelColor(10, 10), QColor(0x112233));
             EXPECT_EQ(image.pixelColor(40, 40), QColor(0xC0D0F0));
         }});
    EXPECT_EQ(log_, "30,5 up 3,4 ");
}

TEST(GraphicsTest, BothEndsOfALineBelongToIt) {
    QImage device(10, 10, QImage::Format_RGB32);
    device.fill(Qt::white);
    QPainter painter(&device);
    QtGraphics graphics(painter, device.size());
    graphics.DrawLine(7, 2, 3, 2);
    graphics.DrawLine(5, 4, 5, 8);
    painter.end();
    for (const QPoint drawn : {QPoint(3, 2), {7, 2}, {5, 4}, {5, 8}})
        EXPECT_EQ(device.pixelColor(drawn), QColor(Qt::black)) << drawn.x() << "," << drawn.y();
    for (const QPoint blank : {QPoint(2, 2), {8, 2}, {5, 3}, {5, 9}})
        EXPECT_EQ(device.pixelColor(blank), QColor(Qt::white)) << blank.x() << "," << blank.y();
}

TEST_F(WindowTest, AWindowThatIsNotModalMayCloseInItsOwnHandler) {
    const auto window = New<FilledChooser>(5);
    window->PushButton1()->SetEnabled(true);
    window->PushButton1()->Action = [&](PushButton&) {
        window->Close();
        // Must not delete the widget, which is still in its own event.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    window->Show();
    WindowWidget* widget = WindowWidget::Of(window.Get());
    ASSERT_NE(widget, nullptr);
    EXPECT_EQ(widget->windowModality(), Qt::NonModal);
    window->Show();
    EXPECT_EQ(WindowWidget::Of(window.Get()), widget) << "it is raised, not shown twice";
    QTest::mouseClick(widget->findChild<QWidget*>("PushButton1"), Qt::LeftButton);
    EXPECT_TRUE(window->IsClosed());
    EXPECT_EQ(WindowWidget::Of(window.Get()), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace
}  // namespace dunvey::test
