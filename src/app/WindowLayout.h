#pragma once

#include <QtGlobal>

/// Where a control stands in the window's inner area, in twips. A size below 0 means that the
/// window has no room for it.
struct ControlBox
{
    qint64 left = 0;
    qint64 top = 0;
    qint64 width = 0;
    qint64 height = 0;

    bool operator==(const ControlBox &) const = default;
};

/// What the arrangement of the main window depends on, in twips.
struct WindowMeasures
{
    qint64 width = 0;             ///< of the window's inner area
    qint64 height = 0;            ///< of the window's inner area
    qint64 standardToolbar = 0;   ///< height of Toolbar1, 0 when hidden
    qint64 formattingToolbar = 0; ///< height of tbrFormat, 0 when hidden
    qint64 statusBar = 0;         ///< height of StatusBar1, 0 when hidden
    qint64 caption = 0;           ///< height of the captions above the panes
    qint64 split = 0;             ///< left edge of imgRuler
    qint64 bar = 0;               ///< width of imgRuler
};

/// Where everything in the main window stands.
struct WindowLayout
{
    ControlBox Toolbar1;
    ControlBox tbrFormat;
    ControlBox imgRuler;
    ControlBox lblRomanCaption;
    ControlBox rtbRoman;
    ControlBox lblTengwarCaption;
    ControlBox rtbTengwar;
    ControlBox StatusBar1;
};

/// The least width that each pane keeps beside the splitter, in twips.
inline constexpr qint64 minimumPaneWidth = 1000;

/// The nearest place for the splitter that leaves both panes their least width; in a window too
/// narrow for that, the right one's counts.
[[nodiscard]] constexpr qint64 clampSplit(qint64 split, qint64 width)
{
    return qMin(qMax(split, minimumPaneWidth), width - minimumPaneWidth);
}

/// Arranges the main window: toolbars above each other, below them the two captions with their
/// panes on either side of the splitter, the status bar at the bottom.
[[nodiscard]] WindowLayout layOutWindow(const WindowMeasures &window);
