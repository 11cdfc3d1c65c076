#include "platform/qt/qt_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHelpEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

#include "platform/controls/listbox.h"
#include "platform/loop/application.h"
#include "platform/qt/qt_text.h"

namespace dunvey {
namespace {

QSize ToQSize(const Size& size) {
    const auto side = [](int64_t length) {
        return static_cast<int>(std::clamp<int64_t>(length, 0, QWIDGETSIZE_MAX));
    };
    return {side(size.Width), side(size.Height)};
}

QRect ToQRect(const Bounds& place) {
    return {QPoint(static_cast<int>(place.Left), static_cast<int>(place.Top)),
            ToQSize({place.Width, place.Height})};
}

Qt::WindowFlags FlagsOf(const Window& window) {
    const auto has = [&window](bool wanted, int kind) {
        return wanted && !window.Handle()->standardWindowButton(kind)->isHidden();
    };
    // Desktops may leave dialogs out of the list of windows, so a minimized one would be lost.
    Qt::WindowFlags flags = window.MinimizeButton ? Qt::Window : Qt::Dialog;
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    flags.setFlag(Qt::WindowCloseButtonHint, has(window.CloseButton, NSWindow::kCloseButton));
    flags.setFlag(Qt::WindowMinimizeButtonHint,
                  has(window.MinimizeButton, NSWindow::kMiniaturizeButton));
    flags.setFlag(Qt::WindowMaximizeButtonHint, has(window.MaximizeButton, NSWindow::kZoomButton));
    return flags;
}

QScreen* ScreenFor(const Window& window) {
    QScreen* under = QGuiApplication::screenAt(QCursor::pos());
    const bool main = window.Placement == Window::kMainScreen || under == nullptr;
    return main ? QGuiApplication::primaryScreen() : under;
}

}  // namespace

WindowWidget::WindowWidget(Window& window, UserAction key, bool modal)
    : QDialog(modal ? QApplication::activeModalWidget() : nullptr, FlagsOf(window)),
      window_(&window),
      key_(key) {
    // Blocks the modal window before it and all parents of that.
    setWindowModality(modal ? Qt::WindowModal : Qt::NonModal);
    // A window without a menu bar has the application's shortcuts.
    const Ref<MenuBar>& own = window.MenuBar();
    if (const Ref<MenuBar> bar = own ? own : Application::Current()->MenuBar()) {
        menuBar_ = new QtMenuBar(
            bar, this, [this](const UserInput& input) { Enter(input); }, static_cast<bool>(own));
    }
    scroll_.setFrameShape(QFrame::NoFrame);
    scroll_.setFocusPolicy(Qt::NoFocus);
    scroll_.setWidgetResizable(true);
    scroll_.setWidget(content_);
    content_->installEventFilter(this);
    PlaceOnScreen();
    for (const Ref<RectControl>& control : window.Controls())
        AddControl(control);
    SetTabOrder();
    observation_ = window.Observe([this] { Read(); });
    Read();
    ShowInFront();
}

WindowWidget::~WindowWidget() {
    // Sheets are members of a QtMessageDialog, so they must not be deleted as children.
    for (QDialog* sheet : findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly))
        sheet->setParent(nullptr);
}

WindowWidget* WindowWidget::Of(const Window* window) {
    if (window == nullptr) return nullptr;
    for (QWidget* each : QApplication::topLevelWidgets()) {
        auto* widget = dynamic_cast<WindowWidget*>(each);
        if (widget != nullptr && widget->window_ == window) return widget;
    }
    return nullptr;
}

void WindowWidget::ShowInFront() {
    show();
    raise();
    activateWindow();
}

void WindowWidget::Detach() {
    observation_ = {};
    for (Child& child : children_)
        child.observation = {};
    window_ = nullptr;
    hide();
    if (entered_ == 0) deleteLater();
}

void WindowWidget::Enter(const UserInput& input) {
    if (window_ == nullptr) return;
    ++entered_;
    EventLoop::Current().Enter([&] { input(key_); });
    --entered_;
    if (entered_ == 0 && window_ == nullptr) deleteLater();
}

void WindowWidget::AddControl(const Ref<RectControl>& control) {
    const ControlView view =
        MakeControlView(control, content_, [this](const UserInput& input) { Enter(input); });
    view.widget->setObjectName(QString::fromStdString(control->Name()));
    view.widget->installEventFilter(this);
    const auto read = [this, &model = *control, view] { ReadControl(model, view); };
    children_.push_back({control, view, control->Observe(read)});
    read();
}

void WindowWidget::ReadControl(const RectControl& control, const ControlView& view) {
    view.widget->setGeometry(ToQRect(control.Place()));
    // Qt would pass the focus to the next control, where the next key changes something.
    if (!control.Enabled() && focusWidget() == view.widget && firstInTabOrder_ != nullptr) {
        firstInTabOrder_->setFocus();
    }
    view.widget->setEnabled(control.Enabled());
    view.widget->setAccessibleDescription(LineOf(control.HelpTag()));
    view.read();
}

void WindowWidget::ReadChildren() {
    for (const Child& child : children_)
        ReadControl(*child.control, child.view);
}

void WindowWidget::SetTabOrder() {
    std::vector<std::pair<int64_t, QWidget*>> order;
    for (const Child& child : children_) {
        if (child.view.widget->focusPolicy() == Qt::NoFocus) continue;
        order.emplace_back(child.control->TabIndex(), child.view.widget);
    }
    std::stable_sort(order.begin(), order.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    for (size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1].second, order[i].second);
    if (order.empty()) return;
    firstInTabOrder_ = order.front().second;
    firstInTabOrder_->setFocus();
}

void WindowWidget::Read() {
    if (window_->IsClosed()) return hide();
    setWindowTitle(LineOf(window_->Title()));
    window_->Busy() ? setCursor(Qt::BusyCursor) : unsetCursor();
    ReadSize();
}

void WindowWidget::ReadSize() {
    // A size given by the user or the window manager stays.
    if (isResizing_) return;
    const QScopedValueRollback<bool> resizing(isResizing_, true);
    const QSize menu(0, MenuHeight());
    const QSize content = ToQSize({window_->Width(), window_->Height()});
    const bool isFixed = !window_->Resizeable;
    setMinimumSize(SizeAround(isFixed ? content : ToQSize(window_->SmallestSize())) + menu);
    setMaximumSize(SizeAround(isFixed ? content : ToQSize(window_->LargestSize())) + menu);
    resize(SizeAround(content) + menu);
}

void WindowWidget::ResizeModel() {
    const Size size{content_->width(), content_->height()};
    if (isResizing_ || window_ == nullptr || size == Size{window_->Width(), window_->Height()}) {
        return;
    }
    const QScopedValueRollback<bool> resizing(isResizing_, true);
    Enter([&](UserAction key) { window_->Resize(key, size); });
}

QSize WindowWidget::MinContentSize() const {
    constexpr int64_t kRows = 2;
    constexpr int64_t kBorders = 2;
    if (!window_->Resizeable) return ToQSize({window_->Width(), window_->Height()});
    Size least = window_->SmallestSize();
    for (const Ref<RectControl>& control : window_->Controls()) {
        const Ref<Listbox> list = control.As<Listbox>();
        if (!list) continue;
        const int64_t needed = kRows * list->DefaultRowHeight() + kBorders;
        least.Height = std::min(least.Height, window_->Height() - list->Height() + needed);
    }
    return ToQSize(least);
}

QSize WindowWidget::SizeAround(const QSize& content) const {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const int width = content.width() + (content.height() > room_.height() ? bar : 0);
    const int height = content.height() + (content.width() > room_.width() ? bar : 0);
    return QSize(width, height).boundedTo(room_);
}

QMargins WindowWidget::FrameMargins() const {
    if (isFrameKnown_) {
        const QRect outer = frameGeometry();
        const QRect inner = geometry();
        return {inner.left() - outer.left(), inner.top() - outer.top(),
                outer.right() - inner.right(), outer.bottom() - inner.bottom()};
    }
    const int border = style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    return {border, style()->pixelMetric(QStyle::PM_TitleBarHeight), border, border};
}

void WindowWidget::PlaceOnScreen() {
    const QRect screen = ScreenFor(*window_)->availableGeometry();
    const QMargins frame = FrameMargins();
    const QSize menu(0, MenuHeight());
    room_ = screen.marginsRemoved(frame).size() - menu;
    const QSize least = MinContentSize();
    content_->setMinimumSize(least);
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    QSize room = room_;
    if (least.width() > room_.width()) room.rheight() -= bar;
    if (least.height() > room_.height()) room.rwidth() -= bar;
    room = room.expandedTo(least);
    Enter([&](UserAction key) { window_->Confine(key, {room.width(), room.height()}); });
    const QSize content = ToQSize({window_->Width(), window_->Height()});
    QRect place(QPoint(0, 0), (SizeAround(content) + menu).grownBy(frame));
    place.moveCenter(screen.center());
    move(std::max(screen.left(), place.left()), std::max(screen.top(), place.top()));
}

bool WindowWidget::TakeKey(const QKeyEvent& event) {
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (!isReturn && !event.matches(QKeySequence::Cancel)) return false;
    // The key may have been held down since before the window appeared.
    if (event.isAutoRepeat()) return true;
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    if (isReturn && button != nullptr) {
        button->click();
    } else {
        Enter([&](UserAction key) {
            isReturn ? window_->PressDefault(key) : window_->PressCancel(key);
        });
    }
    return true;
}

bool WindowWidget::ShowTip(const QObject* watched, const QHelpEvent& event) const {
    for (const Child& child : children_) {
        if (child.view.widget != watched) continue;
        QStringList lines{child.view.read(), LineOf(child.control->HelpTag())};
        lines.removeAll(QString());
        if (lines.isEmpty()) return false;
        QToolTip::showText(event.globalPos(), TipOf(lines.join(QLatin1Char('\n'))),
                           child.view.widget);
        return true;
    }
    return false;
}

bool WindowWidget::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        Enter([this](UserAction key) { window_->Activate(key); });
        // The frame is known only now.
        if (!std::exchange(isFrameKnown_, true) && window_ != nullptr &&
            !screen()->availableGeometry().contains(frameGeometry())) {
            PlaceOnScreen();
        }
    }
    return QDialog::event(event);
}

bool WindowWidget::eventFilter(QObject* watched, QEvent* event) {
    // The children are being deleted after Detach.
    if (window_ == nullptr) return QDialog::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::KeyPress:
            if (TakeKey(*static_cast<QKeyEvent*>(event))) return true;
            break;
        case QEvent::ToolTip:
            // Not by QWidget::setToolTip: a screen reader would read that as the description.
            if (ShowTip(watched, *static_cast<QHelpEvent*>(event))) return true;
            break;
        case QEvent::FocusIn:
        case QEvent::FocusOut:
            // Another button may be the one that Return presses.
            for (const Child& child : children_)
                if (qobject_cast<QPushButton*>(child.view.widget) != nullptr) child.view.read();
            break;
        case QEvent::Resize:
            if (watched == content_) ResizeModel();
            break;
        default:
            break;
    }
    return QDialog::eventFilter(watched, event);
}

void WindowWidget::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    switch (event->type()) {
        case QEvent::PaletteChange:
        case QEvent::FontChange:
        case QEvent::StyleChange:
            ReadChildren();
            break;
        default:
            break;
    }
}

void WindowWidget::closeEvent(QCloseEvent* event) {
    // The model decides; the widget is hidden when the model has closed.
    event->ignore();
    Enter([this](UserAction key) { window_->Dismiss(key); });
}

void WindowWidget::keyPressEvent(QKeyEvent* event) {
    if (!TakeKey(*event)) event->ignore();
}

void WindowWidget::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (menuBar_ != nullptr) menuBar_->setGeometry(0, 0, width(), MenuHeight());
    scroll_.setGeometry(0, MenuHeight(), width(), height() - MenuHeight());
}

}  // namespace dunvey
