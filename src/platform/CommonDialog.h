#pragma once

#include <QFont>
#include <QStringList>
#include <functional>
#include <optional>

class QPrinter;
class QWidget;

/// A file as the user named it.
struct ChosenFile
{
    QString path;        ///< absolute
    int filterIndex = 1; ///< of the filter that was chosen, counted from 1
};

/// With what a file dialog is shown.
struct FileDialogRequest
{
    QString title;
    QString fileName = {};    ///< the full name to start with; may be empty
    QStringList filters = {}; ///< such as "Text files (*.txt)"
    int filterIndex = 1;      ///< of the filter to start with

    /// Tries to do with the file what the dialog is for. A text says why this can't be: the dialog
    /// shows it and stays open.
    std::function<std::optional<QString>(const ChosenFile &)> refusal;
};

/// Show the dialog "CommonDialog1" over `window` (may be null); nothing if the user cancels it.
///
/// To a name without an extension showSaveDialog adds that of the chosen filter. It asks before it
/// hands on the name of a file that exists.
std::optional<ChosenFile> showOpenDialog(QWidget *window, const FileDialogRequest &request);
std::optional<ChosenFile> showSaveDialog(QWidget *window, const FileDialogRequest &request);

/// The refusal of a dialog that hands on only files that exist.
[[nodiscard]] std::optional<QString> refuseMissingFile(const ChosenFile &file);

enum class PrintDialogAnswer { Cancel, Print };

/// Lets the user choose and set up the printer, or a PDF file.
[[nodiscard]] PrintDialogAnswer showPrintDialog(QWidget *window, QPrinter &printer);

/// Lets the user choose a font; nothing if the user cancels it. `font` is the one to start with.
[[nodiscard]] std::optional<QFont> showFontDialog(QWidget *window, const QFont &font);
