#include <QAccessible>
#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QToolTip>

#include "menus/localized.h"
#include "platform/qt/qt_cells.h"
#include "platform/qt/qt_list.h"
#include "qt_test.h"

namespace dunvey::test {
namespace {

class WindowTest : public QtTest {
 protected:
    ~WindowTest() override { QApplication::setKeyboardInputInterval(keyboardInterval_); }

    QTableView& List() { return Find<QTableView>("AppList"); }
    QPoint CellCentre(int row, int column = 0) {
        return List().visualRect(List().model()->index(row, column)).center();
    }
    void ClickList(QPoint place, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(List().viewport(), Qt::LeftButton, keys, place);
    }
    void DoubleClickList(QPoint place, Qt::MouseButton button, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(List().viewport(), button, keys, place);
        QTest::mouseDClick(List().viewport(), button, keys, place);
    }
    static QString Spoken(QWidget& widget) {
        return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
    }
    /// The tool tip of the control; empty for none.
    QString TipOf(const char* name) {
        QToolTip::hideText();
        QHelpEvent event(QEvent::ToolTip, {5, 5}, Find(name).mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&Find(name), &event);
        return QToolTip::text();
    }
    /// Enables both buttons, of which PushButton1 is the default one; presses are logged.
    void UseButtons() {
        for (const auto& button : {window_.PushButton1(), window_.PushButton3()}) {
            button->SetEnabled(true);
            button->Action = [this](PushButton& pressed) { log_ += pressed.Name() + " "; };
        }
        window_.PushButton1()->SetDefault(true);
    }

    const int keyboardInterval_ = QApplication::keyboardInputInterval();
    std::string log_;
    FilledChooser window_{6};
    myListBox& list_ = *window_.AppList();
};

TEST_F(WindowTest, TheFocusStartsInTheListFollowsTabIndexAndLeavesDisabledControls) {
    UseButtons();
    Open(window_);
    QString order;
    for (int i = 0; i < 6; ++i) {
        order += Shown().focusWidget()->objectName() + QLatin1Char(' ');
        Key(Qt::Key_Tab);
    }
    EXPECT_EQ(order, "AppList PushButton1 PushButton2 PushButton3 CheckBox1 CheckBox2 ");
    EXPECT_EQ(Shown().focusWidget(), &List());
    Find("PushButton3").setFocus();
    window_.PushButton3()->SetEnabled(false);
    EXPECT_EQ(Shown().focusWidget(), &List());
}

TEST_F(WindowTest, TypedWordsSelectRows) {
    Open(window_);
    for (const auto& [text, row] : {std::pair{"CS6", 2}, {"cc 2015", 4}, {"zz", 4}, {" ", 4}}) {
        // The first key starts a search; the others continue it, however slow the test is.
        QApplication::setKeyboardInputInterval(0);
        for (const char key : std::string(text)) {
            QTest::keyClick(&List(), key);
            QApplication::setKeyboardInputInterval(1000000);
        }
        EXPECT_EQ(list_.ListIndex(), row) << text;
    }
}

TEST_F(WindowTest, KeysAndModifiersInTheList) {
    const auto log = [&](Listbox& list) { log_ += std::to_string(list.ListIndex()) + " "; };
    list_.Change = log;
    list_.DoubleClickHandler = [&](Listbox& list) {
        log_ += "double";
        log(list);
    };
    Open(window_);
    for (const auto key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Home, Qt::Key_Space})
        Key(key);
    ClickList({9, 9}, Qt::ShiftModifier);
    DoubleClickList(CellCentre(0, 2), Qt::LeftButton, Qt::ControlModifier);
    DoubleClickList(CellCentre(0), Qt::RightButton);
    DoubleClickList(List().viewport()->rect().bottomLeft() - QPoint(-9, 9), Qt::LeftButton);
    EXPECT_EQ(log_, "0 5 0 double0 -1 ");
}

TEST_F(WindowTest, ReturnPressesTheFocusedButtonWhichAloneIsHighlighted) {
    UseButtons();
    Open(window_);
    const auto highlighted = [&] {
        QString names;
        for (const QPushButton* button : Shown().findChildren<QPushButton*>())
            if (button->isDefault()) names += button->objectName();
        return names;
    };
    HoldKey(List(), Qt::Key_Return);
    EXPECT_EQ(log_, "") << "the key was held down before the window came";
    EXPECT_EQ(highlighted(), "PushButton1");
    QTest::keyClick(&Find("CheckBox1"), Qt::Key_Enter, Qt::KeypadModifier);
    Find("PushButton3").setFocus();
    EXPECT_EQ(highlighted(), "PushButton3");
    Key(Qt::Key_Return);
    Key(Qt::Key_Space);
    List().setFocus();
    EXPECT_EQ(highlighted(), "PushButton1");
    Key(Qt::Key_Return);
    window_.PushButton1()->SetEnabled(false);
    EXPECT_EQ(highlighted(), "");
    EXPECT_EQ(log_, "PushButton1 PushButton3 PushButton3 PushButton1 ");
    EXPECT_FALSE(window_.CheckBox1()->Value());
}

TEST_F(WindowTest, TextsAreShownAsTheyAreAndShortenedInTheMiddle) {
    window_.PushButton1()->SetCaption("Open <b>R&D</b>");
    window_.LabelFileName()->SetText("<b>R&D</b>.indd");
    Open(window_);
    auto& label = Find<QLabel>("LabelFileName");
    EXPECT_EQ(Find<QPushButton>("PushButton1").text(), "Open <b>R&&D</b>");
    EXPECT_EQ(label.text(), "<b>R&D</b>.indd");
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(TipOf("LabelFileName"), "") << "nothing is cut";
    EXPECT_EQ(Find("LabelAppName").fontInfo().pixelSize(), 17);
    window_.LabelFileName()->SetText(std::string(250, 'x') + "<img src=y>.indd");
    RunEvents();
    EXPECT_TRUE(label.text().endsWith(".indd")) << "the middle is cut out";
    EXPECT_LT(label.text().size(), 200);
    EXPECT_TRUE(TipOf("LabelFileName").contains("&lt;img"));
    EXPECT_EQ(Spoken(label).toStdString(), window_.LabelFileName()->Text());
    EXPECT_LE(label.fontMetrics().horizontalAdvance(label.text()), label.width());
}

TEST_F(WindowTest, AFreshWindowTakesInputThatIsNoAnswer) {
    UseButtons();
    list_.DoubleClickHandler = [&](Listbox&) { log_ += "double "; };
    Open(window_);
    QApplication::setDoubleClickInterval(600'000);
    DoubleClickList(CellCentre(3), Qt::LeftButton);
    QTest::mouseClick(&Find("PushButton1"), Qt::LeftButton);
    QTest::keyClick(&Find("CheckBox2"), Qt::Key_Space);
    QApplication::setDoubleClickInterval(0);
    EXPECT_EQ(list_.ListIndex(), 3);
    EXPECT_TRUE(window_.CheckBox2()->Value());
    EXPECT_EQ(log_, "");
}

TEST_F(WindowTest, NoJapaneseTextIsTooWide) {
    window_.CheckBox1()->SetCaption(Localized::kAllowOpenHigherVersion("ja"));
    window_.PushButton1()->SetCaption("CC 2019" + Localized::kCapOpenWith("ja"));
    Open(window_);
    for (const auto& text :
         {Localized::kMassage_AnotherVerAppBooting, Localized::kMassage_SameVerAppNotInstalled,
          Localized::kMassage_AppNotInstalled}) {
        window_.LabelMsg()->SetText(text("ja"));
        for (const char* name : {"LabelMsg", "CheckBox1", "PushButton1"})
            EXPECT_EQ(TipOf(name), "") << Spoken(Find(name)).toStdString();
    }
}

TEST_F(WindowTest, TheListScrollsOnlyWhereTheScreenIsTooSmall) {
    for (const int rows : {4, 12, 300}) {
        SCOPED_TRACE(rows);
        FilledChooser window(rows);
        Open(window);
        Key(Qt::Key_End);
        EXPECT_TRUE(Shown().screen()->availableGeometry().contains(Shown().frameGeometry()));
        EXPECT_TRUE(Shown().rect().contains(Find("CheckBox2").geometry()));
        EXPECT_EQ(List().verticalScrollBar()->isVisible(), rows == 300);
        EXPECT_TRUE(List().viewport()->rect().contains(CellCentre(rows - 1)));
        if (rows > 4) continue;
        const int before = Shown().height();
        window.SetHeight(window.Height() + 20);
        EXPECT_EQ(Shown().height(), before + 20);
    }
}

TEST_F(WindowTest, AScreenReaderGetsRowsButtonsAndWholeTexts) {
    list_.SetSpokenName("Installed versions");
    list_.SetHeading(1, "Version");
    window_.LabelFileName()->SetHelpTag("/folder/R&D.indd");
    window_.PushButton1()->SetCaption("Open with R&D");
    Open(window_);
    EXPECT_EQ(Spoken(List()), "Installed versions");
    EXPECT_EQ(Spoken(Find("PushButton1")), "Open with R&D");
    EXPECT_EQ(Find("LabelFileName").accessibleDescription(), "/folder/R&D.indd");
    auto* table = QAccessible::queryAccessibleInterface(&List())->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 6);
    EXPECT_EQ(table->columnDescription(1), "Version");
    const auto cell = [table](int column, QAccessible::Text text) {
        return table->cellAt(1, column)->text(text);
    };
    EXPECT_EQ(cell(0, QAccessible::Name), "Adobe InDesign CS5");
    EXPECT_EQ(cell(0, QAccessible::Description), "Adobe InDesign CS5 described");
    EXPECT_EQ(cell(1, QAccessible::Name), "7.0.3");
    EXPECT_EQ(cell(1, QAccessible::Description), "");
    ClickList(CellCentre(1, 2));
    RunEvents();
    EXPECT_EQ(List().currentIndex(), List().model()->index(1, 0))
        << "the focus is in the cell that has the row's description";
}

TEST_F(WindowTest, TheListPaintsNoBackgroundWhereTheCellsOwnerDid) {
    const QColor mark(0x12, 0x34, 0x56);
    ListRows rows(window_.AppList());
    rows.Read();
    for (const bool isPainted : {true, false}) {
        list_.CellBackgroundPaint = [&](Listbox&, Graphics&, int64_t, int64_t) {
            return isPainted;
        };
        QImage surface(90, 26, QImage::Format_RGB32);
        surface.fill(mark);
        QPainter painter(&surface);
        QStyleOptionViewItem cell;
        cell.rect = surface.rect();
        cell.state = QStyle::State_Enabled | QStyle::State_Active;
        CellPainter(window_.AppList(), nullptr).paint(&painter, cell, rows.index(0, 2));
        const QColor base = cell.palette.color(QPalette::Base);
        EXPECT_EQ(surface.pixelColor(45, 13), isPainted ? mark : base);
    }
}

}  // namespace
}  // namespace dunvey::test
