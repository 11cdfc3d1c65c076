#include "platform/qt/qt_menu_bar.h"

#include "platform/qt/dock.h"

namespace dunvey {
namespace {

/// On macOS Qt's "Ctrl" is the Command key and "Meta" the Control key.
QKeySequence SequenceOf(const std::string& shortcut) {
    QString text = QString::fromStdString(shortcut);
    text.replace(QLatin1String("Control+"), QLatin1String("Meta+"));
    text.replace(QLatin1String("Cmd+"), QLatin1String("Ctrl+"));
    text.replace(QLatin1String("Option+"), QLatin1String("Alt+"));
    return QKeySequence(text);
}

QAction::MenuRole RoleOf(const MenuItem& item) {
    if (dynamic_cast<const QuitMenuItem*>(&item) != nullptr) return QAction::QuitRole;
    return IsApplicationCommand(item) ? QAction::AboutRole : QAction::NoRole;
}

}  // namespace

QtMenuBar::QtMenuBar(Ref<dunvey::MenuBar> model, QWidget* window, RunInput run, bool isShown)
    : QMenuBar(window), model_(std::move(model)), run_(std::move(run)), isShown_(isShown) {
    setNativeMenuBar(HasApplicationMenu());
    setVisible(isShown);
    for (const MenuOnScreen& menu : MenusOnScreen(*model_, HasApplicationMenu()))
        AddMenu(menu);
    if (isShown && window != nullptr) AddOpeningKey();
}

int QtMenuBar::HeightInWindow() const {
    return isNativeMenuBar() || !isShown_ ? 0 : sizeHint().height();
}

void QtMenuBar::AddMenu(const MenuOnScreen& menu) {
    QMenu* shown = addMenu(QString::fromStdString(MarkedMenuCaption(*menu.menu)));
    QList<QAction*> actions;
    for (const Ref<MenuItem>& item : menu.items)
        actions.push_back(ActionOf(item));
    // macOS knows only the shortcuts of items that are in a menu.
    if (isNativeMenuBar()) shown->addActions(actions);
    connect(shown, &QMenu::aboutToShow, this, [this, shown, actions] {
        if (shown->actions().isEmpty()) shown->addActions(actions);
        Validate();
    });
    connect(shown, &QMenu::aboutToHide, this, [this] { EnableAll(); });
}

QAction* QtMenuBar::ActionOf(const Ref<MenuItem>& item) {
    auto* action = new QAction(this);
    action->setSeparator(item->IsSeparator());
    if (item->IsSeparator()) return action;
    action->setText(QString::fromStdString(MarkedCaption(*item)));
    action->setMenuRole(RoleOf(*item));
    action->setShortcut(SequenceOf(item->KeyboardShortcut));
    // A key held down must not close several windows.
    action->setAutoRepeat(false);
    if (!item->KeyboardShortcut.empty() && parentWidget() != nullptr)
        parentWidget()->addAction(action);
    connect(action, &QAction::triggered, this,
            [this, item] { run_([&](UserAction key) { item->Choose(key); }); });
    commands_.push_back({item, action});
    return action;
}

void QtMenuBar::AddOpeningKey() {
    auto* open = new QAction(this);
    open->setShortcut(Qt::Key_F10);
    parentWidget()->addAction(open);
    connect(open, &QAction::triggered, this, [this] {
        if (!actions().isEmpty()) setActiveAction(actions().first());
    });
}

void QtMenuBar::Validate() {
    run_([this](UserAction) {
        for (const Ref<MenuItem>& menu : model_->Items())
            if (menu) menu->Validate();
    });
    for (const Command& command : commands_) {
        command.action->setText(QString::fromStdString(MarkedCaption(*command.item)));
        command.action->setEnabled(command.item->Enabled);
    }
}

void QtMenuBar::EnableAll() {
    // Items are validated when their shortcut is pressed.
    for (const Command& command : commands_)
        command.action->setEnabled(true);
}

}  // namespace dunvey
