#include "platform/qt/qt_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStyle>
#include <algorithm>

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
    // What can be put away is no dialog, which a desktop may leave out of its list of windows.
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
    // It holds up the modal one before it, and through that one all that hang on it.
    setWindowModality(modal ? Qt::WindowModal : Qt::NonModal);
    if (window.MenuBar()) {
        menuBar_ =
            new QtMenuBar(window.MenuBar(), this, [this](const UserInput& input) { Enter(input); });
    }
    PlaceOnScreen();
    for (const Ref<RectControl>& control : window.Controls())
        AddControl(control);
    SetTabOrder();
    observation_ = window.Observe([this] { Read(); });
    Read();
    BringUp();
}

WindowWidget::~WindowWidget() {
    // What still hangs on it belongs to others.
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

void WindowWidget::BringUp() {
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
    const ControlView made =
        MakeControlView(control, &area_, [this](const UserInput& input) { Enter(input); });
    const auto read = [this, control, widget = made.widget, own = made.read] {
        widget->setGeometry(ToQRect(control->Place()));
        // The toolkit would hand the focus to the next control, where a further key changes
        // something.
        if (!control->Enabled() && focusWidget() == widget && firstInTabOrder_ != nullptr) {
            firstInTabOrder_->setFocus();
        }
        widget->setEnabled(control->Enabled());
        const QString helpTag = LineOf(control->HelpTag());
        widget->setAccessibleDescription(helpTag);
        own();
        if (!helpTag.isEmpty()) widget->setToolTip(TipOf(helpTag));
    };
    made.widget->setObjectName(QString::fromStdString(control->Name()));
    made.widget->installEventFilter(this);
    children_.push_back({{made.widget, read}, control->Observe(read)});
    read();
}

void WindowWidget::SetTabOrder() {
    std::vector<std::pair<int64_t, QWidget*>> order;
    for (size_t i = 0; i < children_.size(); ++i) {
        QWidget* widget = children_[i].view.widget;
        if (widget->focusPolicy() == Qt::NoFocus) continue;
        order.emplace_back(window_->Controls()[i]->TabIndex(), widget);
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
    const QSize menu(0, MenuHeight());
    const QSize size = ToQSize({window_->Width(), window_->Height()});
    if (menuBar_ != nullptr) menuBar_->setGeometry(0, 0, size.width(), MenuHeight());
    area_.setGeometry(0, MenuHeight(), size.width(), size.height());
    setMinimumSize((window_->Resizeable ? ToQSize(window_->SmallestSize()) : size) + menu);
    setMaximumSize((window_->Resizeable ? ToQSize(window_->LargestSize()) : size) + menu);
    // A window manager that gives another size than asked for has the last word.
    if (!isResizedByUser_) resize(size + menu);
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
    const QRect room = screen.marginsRemoved(frame);
    Enter([&](UserAction key) {
        window_->Confine(key, {room.width(), room.height() - MenuHeight()});
    });
    const QSize outer =
        ToQSize({window_->Width(), window_->Height() + MenuHeight()}).grownBy(frame);
    QRect place(QPoint(0, 0), outer);
    place.moveCenter(screen.center());
    move(std::max(screen.left(), place.left()), std::max(screen.top(), place.top()));
}

bool WindowWidget::TakeKey(const QKeyEvent& event) {
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    // With a menu bar the key to close is a command of that.
    const bool closes = event.matches(QKeySequence::Close) && window_ != nullptr &&
                        window_->CloseButton && menuBar_ == nullptr;
    if (!isReturn && !closes && !event.matches(QKeySequence::Cancel)) return false;
    // A key still held down from before, in the program that called for the window, is no answer.
    if (event.isAutoRepeat()) return true;
    Enter([&](UserAction key) {
        if (closes) return window_->Dismiss(key);
        isReturn ? window_->PressDefault(key) : window_->PressCancel(key);
    });
    return true;
}

bool WindowWidget::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        Enter([this](UserAction key) { window_->Activate(key); });
    }
    // Only now the real frame is known.
    if (event->type() == QEvent::WindowActivate && !std::exchange(isFrameKnown_, true) &&
        window_ != nullptr && !screen()->availableGeometry().contains(frameGeometry())) {
        PlaceOnScreen();
    }
    return QDialog::event(event);
}

bool WindowWidget::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && TakeKey(*static_cast<QKeyEvent*>(event))) return true;
    return QDialog::eventFilter(watched, event);
}

void WindowWidget::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    switch (event->type()) {
        case QEvent::PaletteChange:
        case QEvent::FontChange:
        case QEvent::StyleChange:
            for (const Child& child : children_)
                child.view.read();
            break;
        default:
            break;
    }
}

void WindowWidget::closeEvent(QCloseEvent* event) {
    // The model closes; it is hidden when that has closed.
    event->ignore();
    Enter([this](UserAction key) { window_->Dismiss(key); });
}

void WindowWidget::keyPressEvent(QKeyEvent* event) {
    if (!TakeKey(*event)) event->ignore();
}

void WindowWidget::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    const Size size{width(), height() - MenuHeight()};
    if (window_ == nullptr || size == Size{window_->Width(), window_->Height()}) return;
    const QScopedValueRollback<bool> byUser(isResizedByUser_, true);
    Enter([&](UserAction key) { window_->Resize(key, size); });
}

}  // namespace dunvey
