#pragma once

#include "editor/SharedState.h"
#include "platform/RichTextBox.h"
#include "search/SearchCommands.h"
#include "support/DialogControls.h"
#include "support/ModeFolder.h"

#include <QHBoxLayout>

/// The two panes in a window, and the find dialog as its commands open it.
class FindWindow : public QWidget, public DialogControls
{
public:
    FindWindow()
    {
        auto *layout = new QHBoxLayout(this);
        layout->addWidget(&source);
        layout->addWidget(&target);
        state.Settings.ModePath = folder.path();
        state.Settings.CurrentMode = u"Test"_qs;
        folder.add(u"Test"_qs, ModeBytes().rule("a", "1").rule("b", "q").bytes());
        state.ActivePane = PaneCode::Source;
        show();
    }

    [[nodiscard]] bool isSearching() const { return findChild<frmFind *>() != nullptr; }
    [[nodiscard]] frmFind &dialog() const { return *findChild<frmFind *>(); }

    /// Opens the dialog with its replace controls, in roman letters.
    void openReplace(const QString &sought, const QString &replacement)
    {
        commands.showReplace();
        type("txtRomanSearch", sought);
        type("txtRomanReplace", replacement);
    }

    ModeFolder folder;
    SharedState state;
    bool isTranscribing = false;
    RichTextBox source;
    RichTextBox target;
    SearchCommands commands{state, {source, target}, [this] { return isTranscribing; }, *this};

private:
    [[nodiscard]] QWidget &driven() const override { return dialog(); }
};
