#pragma once

#include "editor/EditCommands.h"
#include "editor/FormatCommands.h"
#include "editor/SharedState.h"
#include "support/MemoryJournal.h"

#include <QHBoxLayout>
#include <QTest>

/// A window with two panes, a text in the Source pane, and the commands that act on them.
struct EditorFixture
{
    QWidget window;
    RichTextBox source;
    RichTextBox target;
    Panes panes{source, target};
    SharedState state;
    MemoryJournal journal{panes};
    FormatCommands format{state, panes, journal};
    EditCommands edit{state, journal};

    explicit EditorFixture(const QString &text = {})
    {
        auto *layout = new QHBoxLayout(&window);
        layout->addWidget(&source);
        layout->addWidget(&target);
        state.Settings.StandardUnit = QStringLiteral("mm");
        state.Settings.UnitFactor = 56.7;
        source.setText(text);
        activate(PaneCode::Source);
        window.show();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("The window did not become active");
        source.setFocus();
    }
    ~EditorFixture()
    {
        source.setParent(nullptr);
        target.setParent(nullptr);
    }

    void activate(PaneCode pane) { state.ActivePane = pane; }

    void select(int start, int length)
    {
        source.setSelStart(start);
        source.setSelLength(length);
    }

    /// Formats one stretch, behind the journal's back.
    template<typename Set> void formatted(int start, int length, Set set)
    {
        select(start, length);
        set(source);
    }

    [[nodiscard]] int records() const { return int(journal.recorded.size()); }
};
