#pragma once

#include "editor/Documents.h"
#include "editor/RescueCopies.h"

#include <QObject>
#include <QString>
#include <array>

class QWidget;
class RichTextBox;
class UndoJournal;
struct DocumentWords;

/// The panes as documents: their files, their changed marks and their captions.
///
/// A pane is known by its control's name, "rtbRoman" or "rtbTengwar"; every operation does nothing
/// for any other control. The pane's `Tag` is "Dirty" from the first change of its text on, by
/// whatever cause, until it is opened or saved.
class PaneDocuments final : public QObject, public Documents
{
    Q_OBJECT

public:
    /// What the documents work on; all of it outlives them.
    struct Parts
    {
        QWidget &window; ///< dialogs and messages are shown over it
        RichTextBox &source;
        RichTextBox &target;
        UndoJournal &journal;
    };

    /// `programFolder` holds the templates. Texts that would be lost without their user's consent
    /// are kept in `rescueFolder`.
    PaneDocuments(const Parts &parts, const QString &programFolder, const QString &rescueFolder);

    /// Loads the pane's template, which leaves its changed mark as it was.
    void NewDocument(RichTextBox &pane) override;

    /// Where the user says Yes but then gives no name, the text is rescued. Throws RuntimeError if
    /// a text can neither be saved nor rescued.
    [[nodiscard]] SaveAnswer AskSaveChanges(PaneCode panes) override;

    void OpenDocument(RichTextBox &pane);

    /// Opens a file that was dropped on the pane, after the same question as OpenDocument.
    void openDropped(RichTextBox &pane, const QString &path);

    /// Saves the pane's plain text to its file, whatever the file's extension: only SaveDocumentAs
    /// keeps the formatting. An untitled pane asks for a name. Throws RuntimeError naming the file,
    /// which is then as it was, like the changed mark.
    void SaveDocument(RichTextBox &pane);

    void SaveDocumentAs(RichTextBox &pane);

    /// Prints the selection, or all where nothing is selected.
    void PrintDocument(RichTextBox &pane);

    /// Full names of the files that the panes were last opened from or saved to; empty while
    /// untitled.
    [[nodiscard]] const QString &SourceFileName() const { return documents_[0].fileName; }
    [[nodiscard]] const QString &TargetFileName() const { return documents_[1].fileName; }

Q_SIGNALS:
    void captionChanged(PaneCode pane, const QString &caption);

private:
    struct Document
    {
        RichTextBox &pane;
        const DocumentWords &words;
        QString fileName;
    };

    [[nodiscard]] Document *document(const RichTextBox &pane);
    [[nodiscard]] SaveAnswer askSaveChanges(Document &document);
    void save(Document &document);
    void saveAs(Document &document);
    void settle(Document &document, const QString &path);
    void name(Document &document, const QString &path);
    [[nodiscard]] static QString caption(const Document &document);

    QWidget &window_;
    UndoJournal &journal_;
    QString programFolder_;
    RescueCopies rescue_;
    std::array<Document, 2> documents_;
};
