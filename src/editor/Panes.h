#pragma once

#include "editor/PaneCode.h"

class RichTextBox;

/// The two panes, for whoever is told by code which one is meant.
struct Panes
{
    RichTextBox &source;
    RichTextBox &target;

    /// The pane of that code, null for a code that doesn't name one pane.
    [[nodiscard]] RichTextBox *pane(PaneCode code) const
    {
        switch (code) {
        case PaneCode::Source:
            return &source;
        case PaneCode::Target:
            return &target;
        case PaneCode::None:
        case PaneCode::Both:
            break;
        }
        return nullptr;
    }
};
