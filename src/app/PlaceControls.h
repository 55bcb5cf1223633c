#pragma once

#include "app/WindowLayout.h"

class QWidget;
struct FormControls;

/// What the arrangement of these controls in the window's inner area depends on.
[[nodiscard]] WindowMeasures measure(const FormControls &controls, const QWidget &inner);

/// Puts the controls where the layout says. Edges, not sizes, are rounded to pixels, so that
/// neighbours touch; a control without room gets no size.
void placeControls(const FormControls &controls, const WindowLayout &layout);
