#include "editor/DocumentFile.h"

#include "engine/RuntimeError.h"
#include "platform/AtomicFile.h"
#include "platform/RichTextBox.h"
#include "rtf/RtfReader.h"

namespace {

using namespace Qt::Literals::StringLiterals;

QString complaint(const QString &path, QLatin1StringView reason)
{
    return path + QLatin1Char('\n') + reason;
}

QLatin1StringView loadingReason(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::PathFileAccess:
        return "There is no such file."_L1;
    case ErrorNumber::PermissionDenied:
        return "You may not read this file."_L1;
    case ErrorNumber::OutOfMemory:
        return "This file is too large to be opened."_L1;
    default:
        return "This file can't be read."_L1;
    }
}

QLatin1StringView savingReason(ErrorNumber number)
{
    switch (number) {
    case ErrorNumber::PathNotFound:
        return "There is no such folder."_L1;
    case ErrorNumber::PermissionDenied:
        return "You may not write this file."_L1;
    case ErrorNumber::DiskFull:
        return "There is no room for this file on the disk."_L1;
    default:
        return "No file of this name can be written."_L1;
    }
}

/// Other kinds of files hold NULs; a document only as UTF-16, or in the pictures of RTF.
bool isDocument(QByteArrayView bytes)
{
    const bool isUtf16 = bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF");
    return isUtf16 || looksLikeRtf(bytes) || !bytes.contains('\0');
}

} // namespace

std::optional<QString> tryToLoad(RichTextBox &pane, const QString &path, const TextForm &otherwise)
{
    constexpr qint64 largest = qint64(100) << 20;
    const TextForm form = pane.textForm();
    try {
        if (!isDocument(readFile(path, largest)))
            return complaint(path, "This file is neither text nor RTF."_L1);
        pane.setTextForm(otherwise);
        pane.LoadFile(path);
        return std::nullopt;
    } catch (const RuntimeError &error) {
        pane.setTextForm(form);
        return complaint(path, loadingReason(error.number()));
    }
}

std::optional<QString> tryToSave(const RichTextBox &pane, const QString &path, FileType type)
{
    try {
        pane.SaveFile(path, type);
        return std::nullopt;
    } catch (const RuntimeError &error) {
        return complaint(path, savingReason(error.number()));
    }
}
