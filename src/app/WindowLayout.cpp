#include "app/WindowLayout.h"

WindowLayout layOutWindow(const WindowMeasures &window)
{
    const qint64 top = window.standardToolbar + window.formattingToolbar;
    const qint64 split = clampSplit(window.split, window.width);
    const qint64 right = split + window.bar;
    const qint64 paneTop = top + window.caption;
    const qint64 paneHeight = window.height - (paneTop + window.statusBar);

    return {
        .Toolbar1 = {0, 0, window.width, window.standardToolbar},
        .tbrFormat = {0, window.standardToolbar, window.width, window.formattingToolbar},
        .imgRuler = {split, top, window.bar, window.height - (top + window.statusBar)},
        .lblRomanCaption = {0, top, split, window.caption},
        .rtbRoman = {0, paneTop, split, paneHeight},
        .lblTengwarCaption = {right, top, window.width - right, window.caption},
        .rtbTengwar = {right, paneTop, window.width - right, paneHeight},
        .StatusBar1 = {0, window.height - window.statusBar, window.width, window.statusBar},
    };
}
