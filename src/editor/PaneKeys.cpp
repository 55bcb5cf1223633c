#include "editor/PaneKeys.h"

#include "editor/KeyCode.h"
#include "editor/UndoJournal.h"
#include "platform/RichTextBox.h"
#include "platform/RunCommand.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr qint16 noClass = 0;
constexpr qint16 typingClass = 1;

struct CommandKey
{
    Qt::KeyboardModifiers modifiers;
    Qt::Key key;
    PaneCommands::Command PaneCommands::*command;
};

constexpr CommandKey commandKeys[] = {
    {Qt::ControlModifier, Qt::Key_Z, &PaneCommands::Undo},
    {Qt::ControlModifier, Qt::Key_Y, &PaneCommands::Redo},
    {Qt::ControlModifier, Qt::Key_X, &PaneCommands::Cut},
    {Qt::ControlModifier, Qt::Key_C, &PaneCommands::Copy},
    {Qt::ControlModifier, Qt::Key_V, &PaneCommands::Paste},
    {Qt::ControlModifier, Qt::Key_A, &PaneCommands::SelectAll},
    {Qt::ControlModifier, Qt::Key_Tab, &PaneCommands::otherPane},
    {Qt::ShiftModifier, Qt::Key_Delete, &PaneCommands::Cut},
    {Qt::ControlModifier, Qt::Key_Insert, &PaneCommands::Copy},
    {Qt::ShiftModifier, Qt::Key_Insert, &PaneCommands::Paste},
    {Qt::NoModifier, Qt::Key_Undo, &PaneCommands::Undo},
    {Qt::NoModifier, Qt::Key_Redo, &PaneCommands::Redo},
    {Qt::NoModifier, Qt::Key_Cut, &PaneCommands::Cut},
    {Qt::NoModifier, Qt::Key_Copy, &PaneCommands::Copy},
    {Qt::NoModifier, Qt::Key_Paste, &PaneCommands::Paste},
};

/// The modifiers that make another key of it; where a key lies, and which level of the keyboard
/// types its character, does not.
Qt::KeyboardModifiers modifiersOf(const KeyPress &key)
{
    return key.modifiers & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
}

} // namespace

PaneKeys::PaneKeys(QWidget &window, UndoJournal &journal, PaneCommands commands)
    : window_(window), journal_(journal), commands_(std::move(commands))
{
}

void PaneKeys::watch(RichTextBox &pane, PaneCode code)
{
    connect(&pane, &RichTextBox::keyDown, this,
            [this, code](KeyPress &key) { runCommand(&window_, [&] { RTBKeyDowns(code, key); }); });
    connect(&pane, &RichTextBox::aboutToChange, this, [this, code](ChangeReason reason) {
        runCommand(&window_, [&] { prepareChange(code, reason); });
    });
}

void PaneKeys::RTBKeyDowns(PaneCode pane, KeyPress &key)
{
    keyWasClassed_ = false;
    if (const auto *run = command(key)) {
        key.swallowed = true;
        (*run)(pane);
    } else if (!(modifiersOf(key) & ~Qt::ShiftModifier)) {
        classKey(pane, keyCode(key.key));
        keyWasClassed_ = true;
    }
}

const PaneCommands::Command *PaneKeys::command(const KeyPress &key) const
{
    const auto *entry =
        std::find_if(std::begin(commandKeys), std::end(commandKeys), [&](const CommandKey &each) {
            return each.key == key.key && each.modifiers == modifiersOf(key);
        });
    return entry != std::end(commandKeys) ? &(commands_.*entry->command) : nullptr;
}

void PaneKeys::classKey(PaneCode pane, qint16 code)
{
    if (code == KeyCode::Delete || code == KeyCode::Backspace)
        recordUnlessClass(pane, code);
    else if (code == KeyCode::Enter)
        lastClass_ = code;
    else if (code > KeyCode::Space)
        recordUnlessClass(pane, typingClass);
}

void PaneKeys::recordUnlessClass(PaneCode pane, qint16 keyClass)
{
    if (lastClass_ != keyClass)
        journal_.SaveUndoState(pane);
    lastClass_ = keyClass;
}

void PaneKeys::prepareChange(PaneCode pane, ChangeReason reason)
{
    switch (reason) {
    case ChangeReason::Typing:
        if (!keyWasClassed_) // such as a character typed with Alt
            recordUnlessClass(pane, typingClass);
        break;
    case ChangeReason::InputMethod:
        recordUnlessClass(pane, typingClass);
        break;
    case ChangeReason::EditingKey:
    case ChangeReason::Drop:
    case ChangeReason::PrimaryPaste:
        journal_.SaveUndoState(pane);
        lastClass_ = noClass;
        break;
    }
}
