#pragma once

class RichTextBox;

/// Shows how the selection of a pane is formatted and what it holds.
class FormatDisplay
{
public:
    virtual ~FormatDisplay() = default;

    /// Shows font, size, style, alignment and bullet in the toolbars and menus.
    virtual void ShowFormat(const RichTextBox &pane) = 0;

    /// Shows the selected text in the status bar.
    virtual void ShowSelText(const RichTextBox &pane) = 0;
};
