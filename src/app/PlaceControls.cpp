#include "app/PlaceControls.h"

#include "app/CaptionLabel.h"
#include "app/FormControls.h"
#include "app/Splitter.h"
#include "platform/RichTextBox.h"
#include "platform/ScreenUnits.h"

namespace {

void place(QWidget &control, const ControlBox &box)
{
    const double perPixelX = twipsPerPixelX(control);
    const double perPixelY = twipsPerPixelY(control);
    const auto pixels = [](qint64 twips, double perPixel) {
        return toPixels(static_cast<double>(twips), perPixel);
    };
    const int left = pixels(box.left, perPixelX);
    const int top = pixels(box.top, perPixelY);
    const int right = pixels(box.left + box.width, perPixelX);
    const int bottom = pixels(box.top + box.height, perPixelY);
    control.setGeometry(left, top, qMax(0, right - left), qMax(0, bottom - top));
}

int shownHeight(const QWidget &control)
{
    return control.isHidden() ? 0 : control.sizeHint().height();
}

} // namespace

WindowMeasures measure(const FormControls &controls, const QWidget &inner)
{
    const double perPixelX = twipsPerPixelX(inner);
    const double perPixelY = twipsPerPixelY(inner);
    const int caption = qMax(controls.lblRomanCaption->sizeHint().height(),
                             controls.lblTengwarCaption->sizeHint().height());
    return {
        .width = toTwips(inner.width(), perPixelX),
        .height = toTwips(inner.height(), perPixelY),
        .standardToolbar = toTwips(shownHeight(*controls.Toolbar1), perPixelY),
        .formattingToolbar = toTwips(shownHeight(*controls.tbrFormat), perPixelY),
        .statusBar = toTwips(shownHeight(*controls.StatusBar1), perPixelY),
        .caption = toTwips(caption, perPixelY),
        .split = controls.imgRuler->Left(),
        .bar = toTwips(controls.imgRuler->width(), perPixelX),
    };
}

void placeControls(const FormControls &controls, const WindowLayout &layout)
{
    controls.imgRuler->setLeft(layout.imgRuler.left);
    place(*controls.Toolbar1, layout.Toolbar1);
    place(*controls.tbrFormat, layout.tbrFormat);
    place(*controls.imgRuler, layout.imgRuler);
    place(*controls.lblRomanCaption, layout.lblRomanCaption);
    place(*controls.rtbRoman, layout.rtbRoman);
    place(*controls.lblTengwarCaption, layout.lblTengwarCaption);
    place(*controls.rtbTengwar, layout.rtbTengwar);
    place(*controls.StatusBar1, layout.StatusBar1);
}
