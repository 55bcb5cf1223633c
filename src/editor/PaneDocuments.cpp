#include "editor/PaneDocuments.h"

#include "editor/DocumentFile.h"
#include "editor/UndoJournal.h"
#include "engine/RuntimeError.h"
#include "platform/CommonDialog.h"
#include "platform/MessageBox.h"
#include "platform/RichTextBox.h"

#include <QFileInfo>
#include <QPrinter>

using namespace Qt::Literals::StringLiterals;

/// What differs between the documents of the two panes.
struct DocumentWords
{
    PaneCode code;
    QLatin1StringView control;
    QLatin1StringView title; ///< as captions and dialogs show it
    QLatin1StringView noun;  ///< as sentences show it
    QLatin1StringView templateName;
    QLatin1StringView journalFiles;
    TextForm newForm; ///< in which a new document is saved as text
};

namespace {

constexpr DocumentWords sourceWords = {PaneCode::Source,
                                       "rtbRoman"_L1,
                                       "Source"_L1,
                                       "source"_L1,
                                       "Source.tpl"_L1,
                                       "rom*"_L1,
                                       {TextCoding::Utf8, LineEnds::CrLf}};
constexpr DocumentWords targetWords = {PaneCode::Target,
                                       "rtbTengwar"_L1,
                                       "Target"_L1,
                                       "target"_L1,
                                       "Target.tpl"_L1,
                                       "tng*"_L1,
                                       {TextCoding::CodePage1252, LineEnds::CrLf}};

/// The filter of the save dialog that means RTF; every other one means text.
constexpr int rtfFilter = 1;
constexpr int textFilter = 2;

QStringList openFilters()
{
    return {QStringLiteral("Document files (*.txt *.rtf)"), QStringLiteral("Text files (*.txt)"),
            QStringLiteral("Rich Text Format files (*.rtf)"), QStringLiteral("All files (*)")};
}

QStringList saveFilters()
{
    return {QStringLiteral("Rich Text Format file (*.rtf)"), QStringLiteral("Text file (*.txt)")};
}

int saveFilterOf(const QString &fileName)
{
    return fileName.endsWith(".txt"_L1, Qt::CaseInsensitive) ? textFilter : rtfFilter;
}

void tellTemplateMissing(QWidget &window, QLatin1StringView name, const QString &folder)
{
    const QString text = "Warning! Could not find the template file "_L1 + name + ". "_L1 +
                         "Please save an empty RTF document with the name "_L1 + name +
                         " in the folder "_L1 + folder + QLatin1Char('.');
    showMessage(&window, {.text = text, .icon = QMessageBox::Critical});
}

/// Whether the template could be loaded. The changed mark stays as it is.
bool loadTemplate(QWidget &window, RichTextBox &pane, QLatin1StringView name, const QString &folder)
{
    const QString mark = pane.Tag();
    try {
        pane.LoadFile(folder + QLatin1Char('/') + name, FileType::RichText);
    } catch (const RuntimeError &error) {
        if (error.number() == ErrorNumber::PathFileAccess)
            tellTemplateMissing(window, name, folder);
        return false;
    }
    pane.setTag(mark);
    return true;
}

QMessageBox::StandardButton askWhetherToSave(QWidget &window, QLatin1StringView noun,
                                             const QString &fileName)
{
    const QString file = fileName.isEmpty() ? QString() : QLatin1Char(' ') + fileName;
    const QString text = "The "_L1 + noun + " file"_L1 + file +
                         " has been changed. Do you want to save the changes?"_L1;
    return showMessage(&window,
                       {.text = text,
                        .icon = QMessageBox::Question,
                        .buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel});
}

} // namespace

PaneDocuments::PaneDocuments(const Parts &parts, const QString &programFolder,
                             const QString &rescueFolder)
    : window_(parts.window), journal_(parts.journal), programFolder_(programFolder),
      rescue_(rescueFolder), documents_{Document{parts.source, sourceWords, {}},
                                        Document{parts.target, targetWords, {}}}
{
    for (const Document &document : documents_)
        connect(&document.pane, &RichTextBox::changed, this,
                [&pane = document.pane] { pane.setTag(QStringLiteral("Dirty")); });
}

PaneDocuments::Document *PaneDocuments::document(const RichTextBox &pane)
{
    for (Document &document : documents_) {
        if (pane.objectName() == document.words.control)
            return &document;
    }
    return nullptr;
}

void PaneDocuments::NewDocument(RichTextBox &pane)
{
    Document *started = document(pane);
    if (started == nullptr || askSaveChanges(*started) == SaveAnswer::Cancel)
        return;
    const DocumentWords &words = started->words;
    if (!loadTemplate(window_, pane, words.templateName, programFolder_))
        return;
    pane.setTextForm(words.newForm);
    name(*started, {});
    journal_.ClearUndoFiles(words.journalFiles);
}

SaveAnswer PaneDocuments::AskSaveChanges(PaneCode panes)
{
    for (Document &document : documents_) {
        const bool isMeant = panes == PaneCode::Both || panes == document.words.code;
        if (isMeant && askSaveChanges(document) == SaveAnswer::Cancel)
            return SaveAnswer::Cancel;
    }
    return SaveAnswer::Proceed;
}

SaveAnswer PaneDocuments::askSaveChanges(Document &document)
{
    if (document.pane.Tag().isEmpty())
        return SaveAnswer::Proceed;
    const auto answer = askWhetherToSave(window_, document.words.noun, document.fileName);
    if (answer == QMessageBox::Cancel)
        return SaveAnswer::Cancel;
    if (answer == QMessageBox::Yes) {
        save(document);
        if (!document.pane.Tag().isEmpty()) // the name was refused, the saving never was
            rescue_.keep(document.pane, document.words.title);
    }
    return SaveAnswer::Proceed;
}

void PaneDocuments::OpenDocument(RichTextBox &pane)
{
    Document *opened = document(pane);
    if (opened == nullptr || askSaveChanges(*opened) == SaveAnswer::Cancel)
        return;
    const auto load = [&](const ChosenFile &file) {
        return tryToLoad(pane, file.path, opened->words.newForm);
    };
    const auto file =
        showOpenDialog(&window_, {.title = "Open "_L1 + opened->words.title + " File"_L1,
                                  .filters = openFilters(),
                                  .refusal = load});
    if (file)
        settle(*opened, file->path);
}

void PaneDocuments::openDropped(RichTextBox &pane, const QString &path)
{
    Document *opened = document(pane);
    if (opened == nullptr || askSaveChanges(*opened) == SaveAnswer::Cancel)
        return;
    if (const auto refusal = tryToLoad(pane, path, opened->words.newForm))
        showMessage(&window_, {.text = *refusal, .icon = QMessageBox::Warning});
    else
        settle(*opened, path);
}

void PaneDocuments::SaveDocument(RichTextBox &pane)
{
    if (Document *saved = document(pane))
        save(*saved);
}

void PaneDocuments::SaveDocumentAs(RichTextBox &pane)
{
    if (Document *saved = document(pane))
        saveAs(*saved);
}

void PaneDocuments::PrintDocument(RichTextBox &pane)
{
    const Document *printed = document(pane);
    if (printed == nullptr)
        return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(caption(*printed));
    if (showPrintDialog(&window_, printer) == PrintDialogAnswer::Print)
        pane.SelPrint(printer);
}

void PaneDocuments::save(Document &document)
{
    if (document.fileName.isEmpty()) {
        saveAs(document);
        return;
    }
    document.pane.SaveFile(document.fileName, FileType::Text);
    document.pane.setTag({});
    journal_.ClearUndoFiles(document.words.journalFiles);
}

void PaneDocuments::saveAs(Document &document)
{
    const auto save = [&](const ChosenFile &file) {
        const auto type = file.filterIndex == rtfFilter ? FileType::RichText : FileType::Text;
        return tryToSave(document.pane, file.path, type);
    };
    const auto file =
        showSaveDialog(&window_, {.title = "Save "_L1 + document.words.title + " File As"_L1,
                                  .fileName = document.fileName,
                                  .filters = saveFilters(),
                                  .filterIndex = saveFilterOf(document.fileName),
                                  .refusal = save});
    if (file)
        settle(document, file->path);
}

void PaneDocuments::settle(Document &document, const QString &path)
{
    document.pane.setTag({});
    name(document, path);
    journal_.ClearUndoFiles(document.words.journalFiles);
}

void PaneDocuments::name(Document &document, const QString &path)
{
    document.fileName = path;
    Q_EMIT captionChanged(document.words.code, caption(document));
}

QString PaneDocuments::caption(const Document &document)
{
    const QString title = document.words.title;
    return document.fileName.isEmpty() ? title
                                       : title + " - "_L1 + QFileInfo(document.fileName).fileName();
}
