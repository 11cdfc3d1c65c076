#include "platform/qt/qt_controls.h"

#include <QApplication>
#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QStyleOptionButton>

#include "platform/controls/canvas.h"
#include "platform/controls/check_box.h"
#include "platform/controls/label.h"
#include "platform/controls/push_button.h"
#include "platform/controls/separator.h"
#include "platform/loop/event_loop.h"
#include "platform/qt/qt_graphics.h"
#include "platform/qt/qt_list.h"
#include "platform/qt/qt_style.h"
#include "platform/qt/qt_text.h"

namespace dunvey {
namespace {

/// Shows the line, shortened in the middle if `width` is too small. Returns the whole line if it is
/// shortened, else an empty one. A control lower than its font grows to that height.
template <typename Widget>
QString ShowLine(Widget& widget, const QString& line, int width, QString (*asShown)(QString)) {
    const QString shown = widget.fontMetrics().elidedText(line, Qt::ElideMiddle, width);
    widget.setText(asShown(shown));
    widget.setAccessibleName(line);
    const int missing = widget.fontMetrics().height() - widget.height();
    if (missing > 0) {
        widget.setGeometry(widget.geometry().adjusted(0, -missing / 2, 0, missing - missing / 2));
    }
    return shown == line ? QString() : line;
}

QString ShowCaption(QAbstractButton& button, const std::string& caption, QStyle::SubElement place) {
    QStyleOptionButton option;
    option.initFrom(&button);
    const int width = button.style()->subElementRect(place, &option, &button).width();
    return ShowLine(button, LineOf(caption), width, &WithoutMnemonics);
}

/// Return presses the button that has the focus, else the default button.
bool IsPressedByReturn(const PushButton& model, const QPushButton& button) {
    const QWidget* focused = button.window()->focusWidget();
    return qobject_cast<const QPushButton*>(focused) != nullptr
               ? focused == &button
               : model.Default() && model.Enabled();
}

ControlView ViewOf(const Ref<PushButton>& model, QWidget* parent, const RunInput& run) {
    auto* button = new QPushButton(parent);
    // Else Qt chooses a default button where the model has none.
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, button,
                     [model, run] { run([&](UserAction key) { model->Press(key); }); });
    return {button, [model, button] {
                button->setDefault(IsPressedByReturn(*model, *button));
                return ShowCaption(*button, model->Caption(), QStyle::SE_PushButtonContents);
            }};
}

ControlView ViewOf(const Ref<CheckBox>& model, QWidget* parent, const RunInput& run) {
    auto* box = new QCheckBox(parent);
    QObject::connect(box, &QCheckBox::clicked, box, [model, box, run] {
        run([&](UserAction key) { model->Toggle(key); });
        box->setChecked(model->Value());
    });
    return {box, [model, box] {
                box->setChecked(model->Value());
                return ShowCaption(*box, model->Caption(), QStyle::SE_CheckBoxContents);
            }};
}

/// Keeps the extension to the right of a file name that is written from right to left.
QString FromLeftToRight(QString line) {
    constexpr char16_t kLeftToRightMark = 0x200E;
    return line.isRightToLeft() ? QChar(kLeftToRightMark) + line : line;
}

ControlView ViewOf(const Ref<Label>& model, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    return {label, [model, label] {
                QFont font = QApplication::font(label);
                if (model->TextSize() > 0) font.setPixelSize(static_cast<int>(model->TextSize()));
                font.setBold(model->Bold() || font.bold());
                label->setFont(font);
                const bool isCentred = model->TextAlign() == Label::kAlignCentre;
                label->setAlignment((isCentred ? Qt::AlignHCenter : Qt::AlignLeft) |
                                    Qt::AlignAbsolute | Qt::AlignVCenter);
                QPalette palette = QApplication::palette(label);
                if (model->TextColor() != Color{}) {
                    palette.setColor(QPalette::WindowText,
                                     ReadableOn(model->TextColor(), palette.window().color()));
                }
                label->setPalette(palette);
                return ShowLine(*label, LineOf(model->Text()), label->width(), &FromLeftToRight);
            }};
}

ControlView ViewOf(const Ref<Separator>& model, QWidget* parent) {
    auto* line = new QFrame(parent);
    const bool isHorizontal = model->Width() >= model->Height();
    return {line, [line, isHorizontal] {
                const QColor outline = OutlineOn(QApplication::palette(line));
                line->setFrameShape(isHorizontal ? QFrame::HLine : QFrame::VLine);
                line->setFrameShadow(outline.isValid() ? QFrame::Plain : QFrame::Sunken);
                QPalette palette = QApplication::palette(line);
                if (outline.isValid()) palette.setColor(QPalette::WindowText, outline);
                line->setPalette(palette);
                return QString();
            }};
}

class CanvasWidget final : public QWidget {
 public:
    CanvasWidget(Ref<Canvas> model, QWidget* parent, RunInput run)
        : QWidget(parent), model_(std::move(model)), run_(std::move(run)) {}

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        QtGraphics graphics(painter, size());
        EventLoop::Current().Enter([&] {
            if (model_->Backdrop()) DrawPictureAt(painter, *model_->Backdrop(), {0, 0});
            model_->Event_Paint(graphics);
        });
    }
    void mousePressEvent(QMouseEvent* event) override {
        const QPoint place = event->pos();
        run_([&](UserAction key) { isClaimed_ = model_->MouseDown(key, place.x(), place.y()); });
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (!std::exchange(isClaimed_, false)) return;
        const QPoint place = event->pos();
        run_([&](UserAction key) { model_->MouseUp(key, place.x(), place.y()); });
    }

 private:
    Ref<Canvas> model_;
    RunInput run_;
    bool isClaimed_ = false;
};

ControlView ViewOf(const Ref<Canvas>& model, QWidget* parent, const RunInput& run) {
    auto* canvas = new CanvasWidget(model, parent, run);
    return {canvas, [canvas] {
                canvas->update();
                return QString();
            }};
}

ControlView ViewOf(const Ref<Listbox>& model, QWidget* parent, const RunInput& run) {
    auto* list = new QtList(model, parent, run);
    return {list, [list] {
                list->ReadSoon();
                return QString();
            }};
}

}  // namespace

ControlView MakeControlView(const Ref<RectControl>& control, QWidget* parent, const RunInput& run) {
    if (const auto button = control.As<PushButton>()) return ViewOf(button, parent, run);
    if (const auto box = control.As<CheckBox>()) return ViewOf(box, parent, run);
    if (const auto label = control.As<Label>()) return ViewOf(label, parent);
    if (const auto separator = control.As<Separator>()) return ViewOf(separator, parent);
    if (const auto canvas = control.As<Canvas>()) return ViewOf(canvas, parent, run);
    if (const auto list = control.As<Listbox>()) return ViewOf(list, parent, run);
    return {new QWidget(parent), [] { return QString(); }};
}

}  // namespace dunvey
