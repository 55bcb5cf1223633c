#pragma once

#include <QString>

class QWidget;
class RichTextBox;

/// Selects the next or the previous place in the pane where the transcription has put
/// `undefinedText` for a character that no rule covers, from the present selection on, or says over
/// `window` that there is none. Does nothing for an empty text, and going back from the very start.
void findNextUnknownCharacter(QWidget *window, RichTextBox &pane, const QString &undefinedText);
void findPreviousUnknownCharacter(QWidget *window, RichTextBox &pane, const QString &undefinedText);
