#pragma once

#include "platform/controls/canvas.h"
#include "platform/controls/label.h"
#include "platform/controls/window.h"

namespace dunvey {

/// Shows the program's name and version.
class AboutWindow : public Window {
 public:
    AboutWindow();

    /// The open window, else a new one.
    static Ref<AboutWindow> Instance();

    virtual const Ref<Canvas>& CanvasAppIcon() const { return canvasAppIcon_; }
    virtual const Ref<Label>& LabelName() const { return labelName_; }
    virtual const Ref<Label>& LabelVersion() const { return labelVersion_; }
    virtual const Ref<Label>& LabelCopyright() const { return labelCopyright_; }

    /// Fills the labels.
    void Event_Open() override;
    /// Draws the icon of the program's bundle.
    virtual void CanvasAppIcon_Paint(Canvas& canvas, Graphics& graphics);

 private:
    Ref<Label> MakeLine(const char* name, int64_t top, int64_t tabIndex, int64_t textSize);

    Ref<Canvas> canvasAppIcon_;
    Ref<Label> labelName_;
    Ref<Label> labelVersion_;
    Ref<Label> labelCopyright_;
};

}  // namespace dunvey
