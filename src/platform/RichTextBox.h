#pragma once

#include "platform/TextPosition.h"
#include "platform/TextSearch.h"
#include <QTextEdit>

/// Where a change of the text that the program didn't make itself comes from.
enum class ChangeReason {
    Typing,       ///< a key that types, deletes one character or starts a line; keyDown told it
    EditingKey,   ///< a key combination: deletes a word or line, cuts or pastes
    InputMethod,  ///< an input method commits text or replaces the selection
    Drop,         ///< text dropped from elsewhere
    PrimaryPaste, ///< the middle button pastes the primary selection
};

/// A key pressed in the control, before the control handles it.
struct KeyPress
{
    int key = 0; ///< as Qt::Key
    Qt::KeyboardModifiers modifiers;
    bool swallowed = false; ///< set by whoever handles the key: the control then ignores it
};

/// The rich-text control of both panes.
///
/// Its text, and every position and length, is that of its user: a paragraph ends in CR LF, two
/// characters; a soft line break is one character, code 11; a page break is one character, code 12.
/// U+00A0 and U+00AD are letters like any other, kept, counted and shown. Positions count from 0.
///
/// The control keeps no undo history. Changes that the program doesn't make itself are announced by
/// aboutToChange before they happen; drags out of the control are switched off, and pasted and
/// dropped text is plain. A context menu is asked for by customContextMenuRequested.
class RichTextBox : public QTextEdit
{
    Q_OBJECT
    /// "Dirty" once the text has changed since it matched its file, else empty. Whoever owns the
    /// document sets it.
    Q_PROPERTY(QString Tag READ Tag WRITE setTag)

public:
    explicit RichTextBox(QWidget *parent = nullptr);
    ~RichTextBox() override;

    [[nodiscard]] QString Tag() const { return tag_; }
    void setTag(const QString &tag) { tag_ = tag; }

    /// The whole text. It is kept until the text changes, so that asking again costs nothing.
    [[nodiscard]] QString Text() const;

    /// The length of the whole text, without building it.
    [[nodiscard]] int TextLength() const;

    /// Replaces the whole text; the caret goes to the start. The text takes the formatting of the
    /// first character. CR LF, CR and LF each end a paragraph.
    void setText(const QString &text);

    /// The start of the selection, or the caret where nothing is selected.
    [[nodiscard]] int SelStart() const;

    /// Puts the caret there and selects nothing. A position outside the text counts as its nearest
    /// end, one between CR and LF as the one before them.
    void setSelStart(int start);

    [[nodiscard]] int SelLength() const;

    /// Selects that many characters from the start of the present selection, at most to the end of
    /// the text; the caret goes to their end. A negative length counts as 0.
    void setSelLength(int length);

    [[nodiscard]] QString SelText() const;

    /// Replaces the selection, or inserts at the caret, in the formatting of that place; the caret
    /// goes after the new text. Line ends as in setText.
    void setSelText(const QString &text);

    /// Searches for `text` as TextSearch does: selects the first match that begins at or after
    /// `start` and before `end` and returns its position; -1, with the selection unchanged, if
    /// there is none.
    int find(const QString &text, int start, int end, FindFlags flags = FindFlag::None);

Q_SIGNALS:
    /// The text or its formatting has changed, by whatever cause.
    void changed();

    /// The selection or the caret has moved; once for each move.
    void selectionMoved();

    /// The control has received the focus.
    void activated();

    /// A key is about to be handled. Connect directly; the receiver may set KeyPress::swallowed.
    void keyDown(KeyPress &key);

    /// The text is about to change by a cause other than this class's own functions. Connect
    /// directly.
    void aboutToChange(ChangeReason reason);

    /// Files were dropped on the control, which itself does nothing with them.
    void filesDropped(const QStringList &paths);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    [[nodiscard]] QMimeData *createMimeDataFromSelection() const override;
    [[nodiscard]] bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;

private:
    void reportSelection();
    void showInactiveSelection();
    void select(int start, int length);

    QString tag_;
    mutable QString text_;
    mutable bool textIsCurrent_ = false;
    int reportedAnchor_ = 0;
    int reportedPosition_ = 0;
};
