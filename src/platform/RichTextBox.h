#pragma once

#include "platform/SelectionFormat.h"
#include "platform/TextForm.h"
#include "platform/TextSearch.h"
#include <QTextEdit>

class QPrinter;

/// The file types of RichTextBox::LoadFile and SaveFile.
enum class FileType { RichText = 0, Text = 1 };

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

    /// The attributes of the selection, or those of the next character typed. They are kept until
    /// the text or the selection changes.
    [[nodiscard]] const SelectionFormat &SelFormat() const;

    /// Changes the attributes of all that is selected, each stretch from its own, or how the next
    /// character typed looks where nothing is.
    void formatSelection(const std::function<void(CharacterFormat &)> &change);

    /// Each sets one attribute of everything that is selected, or how the next character typed
    /// looks where nothing is.
    void setSelFontName(const QString &name);
    /// In points, rounded to halves; throws RuntimeError (InvalidProcedureCall) outside 1 to 1638.
    void setSelFontSize(double points);
    void setSelBold(bool bold);
    void setSelItalic(bool italic);
    void setSelUnderline(bool underline);
    void setSelCharOffset(int twips); ///< RTF keeps multiples of 10

    /// Each sets one attribute of every paragraph that the selection touches; one at whose start
    /// the selection ends is left alone. Lengths in twips.
    void setSelAlignment(Alignment alignment);
    void setSelBullet(bool bullet);
    void setSelIndent(int twips);        ///< moves all lines: the hanging indent stays
    void setSelHangingIndent(int twips); ///< the first line stays
    void setSelRightIndent(int twips);
    void setBulletIndent(int twips);

    /// Replaces the content by that of a file; the caret goes to the start. Without a type a file
    /// that begins as RTF is read as that, any other as text, whose form is kept (see textForm).
    /// Throws RuntimeError naming the file, with the content unchanged: as readFile does, DeviceIo
    /// for a file of type RichText that is none, OutOfMemory for one that is too large.
    void LoadFile(const QString &path, std::optional<FileType> type = std::nullopt);

    /// Writes the content to a file: as RTF, or its text in textForm(). Throws as writeFile does.
    void SaveFile(const QString &path, FileType type) const;

    /// The form in which the text is saved as a file of type Text: that of the text file opened
    /// last, else as set.
    [[nodiscard]] const TextForm &textForm() const { return textForm_; }
    void setTextForm(const TextForm &form) { textForm_ = form; }

    /// The content as RTF.
    [[nodiscard]] QByteArray TextRTF() const;

    /// Prints the selection, or the whole content where nothing is selected, on the printer's
    /// pages.
    void SelPrint(QPrinter &printer) const;

Q_SIGNALS:
    /// The text or its formatting has changed, by whatever cause.
    void changed();

    /// The selection or the caret has moved, once for each move, or the look of the next character
    /// typed has been set.
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
    void showDocument(QTextDocument &document);
    void textHasChanged(int position, int removed, int added);
    void chooseWrapping(int from, int to);
    [[nodiscard]] bool endsBullet(const QKeyEvent &event) const;

    QString tag_;
    TextForm textForm_;
    mutable std::optional<SelectionFormat> format_; ///< empty until asked for
    mutable QString text_;
    mutable bool textIsCurrent_ = false;
    int reportedAnchor_ = 0;
    int reportedPosition_ = 0;
};
