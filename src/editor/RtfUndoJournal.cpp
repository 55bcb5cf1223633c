#include "editor/RtfUndoJournal.h"

#include "editor/JournalFolder.h"
#include "engine/RuntimeError.h"
#include "platform/MessageBox.h"
#include "platform/RichTextBox.h"

#include <limits>
#include <optional>

namespace {

using namespace Qt::Literals::StringLiterals;

/// Which history is that of the pane; none for a code that doesn't name one pane.
std::optional<size_t> placeOf(PaneCode pane)
{
    if (pane != PaneCode::Source && pane != PaneCode::Target)
        return std::nullopt;
    return pane == PaneCode::Source ? 0 : 1;
}

QString entryName(QLatin1StringView prefix, qint16 entry)
{
    constexpr int digits = 4;
    return QStringLiteral("%1%2.tmp").arg(prefix).arg(entry, digits, 10, QLatin1Char('0'));
}

/// The error that an operation ends with; none if it succeeds.
template<typename Operation> std::optional<RuntimeError> errorOf(Operation operation)
{
    try {
        operation();
        return std::nullopt;
    } catch (const RuntimeError &error) {
        return error;
    }
}

void tellNotRecorded(QWidget &window)
{
    showMessage(&window, {.text = QStringLiteral("Could not save undo information. "
                                                 "The disk might be full. Try saving your "
                                                 "document before proceeding!"),
                          .icon = QMessageBox::Warning});
}

void tellNotUndone(QWidget &window, const RuntimeError &error)
{
    if (error.number() == ErrorNumber::PathFileAccess) {
        showMessage(&window,
                    {.text = QStringLiteral("Could not undo. A temporary file was missing."),
                     .icon = QMessageBox::Critical});
        return;
    }
    const QString number = QString::number(static_cast<int>(error.number()));
    showMessage(&window, {.text = error.description() + QStringLiteral(" (Error #%1.)").arg(number),
                          .title = QStringLiteral("Error"),
                          .icon = QMessageBox::Critical});
}

} // namespace

RtfUndoJournal::RtfUndoJournal(const Parts &parts)
    : window_(parts.window), folder_(parts.folder), histories_{History{parts.source, "rom"_L1},
                                                               History{parts.target, "tng"_L1}}
{
}

void RtfUndoJournal::SaveUndoState(PaneCode pane)
{
    if (History *shown = history(pane)) {
        if (errorOf([&] { record(*shown); })) {
            tellNotRecorded(window_);
            return;
        }
    }
    UpdateUndoButtons(pane);
}

void RtfUndoJournal::UndoLast(PaneCode pane)
{
    if (History *shown = history(pane)) {
        if (shown->UndoPos == 0)
            return;
        if (const auto error = errorOf([&] { stepBack(*shown); }))
            tellNotUndone(window_, *error);
    }
    UpdateUndoButtons(pane);
}

void RtfUndoJournal::RedoLast(PaneCode pane)
{
    if (History *shown = history(pane)) {
        if (shown->UndoPos >= shown->UndoTop)
            return;
        ++shown->UndoPos;
        static_cast<void>(errorOf([&] { load(*shown, shown->UndoPos); }));
    }
    UpdateUndoButtons(pane);
}

void RtfUndoJournal::UpdateUndoButtons(PaneCode pane)
{
    if (const History *shown = history(pane))
        Q_EMIT undoStateChanged(
            {.canUndo = shown->UndoPos != 0, .canRedo = shown->UndoPos < shown->UndoTop});
}

void RtfUndoJournal::ClearUndoFiles(const QString &pattern)
{
    folder_.remove(pattern);
}

qint16 RtfUndoJournal::UndoTop(PaneCode pane) const
{
    const auto place = placeOf(pane);
    return place ? histories_[*place].UndoTop : qint16(0);
}

qint16 RtfUndoJournal::UndoPos(PaneCode pane) const
{
    const auto place = placeOf(pane);
    return place ? histories_[*place].UndoPos : qint16(0);
}

RtfUndoJournal::History *RtfUndoJournal::history(PaneCode pane)
{
    const auto place = placeOf(pane);
    return place ? &histories_[*place] : nullptr;
}

void RtfUndoJournal::save(const History &history, qint16 entry) const
{
    folder_.write(entryName(history.prefix, entry), history.pane.TextRTF());
}

void RtfUndoJournal::load(const History &history, qint16 entry) const
{
    history.pane.LoadFile(folder_.entry(entryName(history.prefix, entry)), FileType::RichText);
}

void RtfUndoJournal::record(History &history)
{
    history.UndoTop = history.UndoPos; // the states beyond are dropped; their files stay unused
    save(history, history.UndoTop);
    if (history.UndoTop == std::numeric_limits<qint16>::max())
        throw RuntimeError(ErrorNumber::Overflow);
    ++history.UndoTop;
    history.UndoPos = history.UndoTop;
}

void RtfUndoJournal::stepBack(History &history)
{
    RichTextBox &pane = history.pane;
    const int start = pane.SelStart();
    const int length = pane.TextLength();
    if (history.UndoPos == history.UndoTop)
        save(history, history.UndoTop);
    --history.UndoPos;
    load(history, history.UndoPos);
    pane.setSelStart(start);
    pane.setSelLength(pane.TextLength() - length); // what came back; negative if text went away
}
