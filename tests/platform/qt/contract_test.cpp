#include <QAbstractButton>
#include <QTableView>

#include "qt_test.h"
#include "support/contract_script.h"

namespace dunvey::test {
namespace {

/// Real keys and a real mouse.
class QtHands final : public Hands {
 public:
    void Show(Window& window) override {
        window.Show();
        window_ = &window;
        EXPECT_TRUE(QTest::qWaitForWindowActive(WindowWidget::Of(&window)));
    }
    void WhenShown(Window& window, std::vector<Step> steps) override {
        steps_.When([&window] { return IsInFront(WindowWidget::Of(&window)); }, steps);
    }
    void DuringTurn(Step step) override { steps_.Soon(step); }
    void AnswerSheet(Window& window, const std::string& message) override {
        steps_.When([&window] { return IsInFront(SheetOf(window)); }, {[&window, message] {
                        EXPECT_EQ(SheetOf(window)->text().toStdString(), message);
                        QTest::keyClick(SheetOf(window), Qt::Key_Return);
                    }});
    }

    void Press(PushButton& button) override { QTest::mouseClick(&Widget(button), Qt::LeftButton); }
    void Return(Window& window) override { Type(window, Qt::Key_Return); }
    void Escape(Window& window) override { Type(window, Qt::Key_Escape); }
    void Select(Listbox& list, int64_t row) override {
        QTest::mouseClick(View(list).viewport(), Qt::LeftButton, {}, PlaceOf(list, row));
    }
    void SelectNext(Listbox& list) override { QTest::keyClick(&View(list), Qt::Key_Down); }
    void DoubleClick(Listbox& list, int64_t row) override {
        Select(list, row);
        QTest::mouseDClick(View(list).viewport(), Qt::LeftButton, {}, PlaceOf(list, row));
    }
    void Toggle(CheckBox& box) override {
        Widget(box).setFocus();
        QTest::keyClick(&Widget(box), Qt::Key_Space);
    }
    void Resize(Window& window, Size size) override {
        WindowWidget::Of(&window)->resize(static_cast<int>(size.Width),
                                          static_cast<int>(size.Height));
    }
    void CloseByTheDesktop(Window& window) override { WindowWidget::Of(&window)->close(); }

    bool IsOnScreen(Window& window) override {
        const QWidget* widget = WindowWidget::Of(&window);
        return widget != nullptr && widget->isVisible();
    }
    int64_t ShownSelection(Listbox& list) override {
        const QModelIndexList rows = View(list).selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.first().row();
    }
    bool ShownValue(CheckBox& box) override {
        return qobject_cast<QAbstractButton*>(&Widget(box))->isChecked();
    }
    Bounds ShownPlace(RectControl& control) override {
        const QRect place = Widget(control).geometry();
        return {place.left(), place.top(), place.width(), place.height()};
    }

 private:
    static bool IsInFront(const QWidget* widget) {
        return widget != nullptr && widget->isVisible() &&
               widget == QApplication::activeModalWidget();
    }
    static QMessageBox* SheetOf(Window& window) {
        return WindowWidget::Of(&window)->findChild<QMessageBox*>(QString(),
                                                                  Qt::FindDirectChildrenOnly);
    }
    QWidget& Widget(const RectControl& control) {
        RunEvents();
        const QWidget* modal = QApplication::activeModalWidget();
        const QWidget* front = modal != nullptr ? modal : WindowWidget::Of(window_);
        return *front->findChild<QWidget*>(QString::fromStdString(control.Name()));
    }
    QTableView& View(const Listbox& list) { return *qobject_cast<QTableView*>(&Widget(list)); }
    QPoint PlaceOf(const Listbox& list, int64_t row) {
        const QTableView& view = View(list);
        if (row == -1) return view.viewport()->rect().bottomLeft() + QPoint(5, -5);
        return view.visualRect(view.model()->index(static_cast<int>(row), 0)).center();
    }
    static void Type(Window& window, Qt::Key key) {
        QTest::keyClick(WindowWidget::Of(&window)->focusWidget(), key);
    }

    /// The last one that was shown, not modally.
    Window* window_ = nullptr;
    Steps steps_;
};

}  // namespace

std::unique_ptr<Hands> MakeHands() {
    return std::make_unique<QtHands>();
}

}  // namespace dunvey::test
