#pragma once

#include "app/CaptionLabel.h"
#include "app/Form1.h"
#include "app/WindowCommands.h"
#include "editor/FormatDisplay.h"
#include "editor/SharedState.h"
#include "editor/UndoJournal.h"
#include "engine/run/TranscriptionRun.h"
#include "platform/RichTextBox.h"

#include <QComboBox>
#include <QTest>

/// The main window with subjects that write down what they are asked.
struct FormFixture final : Documents, UndoJournal, FormatDisplay
{
    SharedState state;
    QStringList calls;
    SaveAnswer saveAnswer = SaveAnswer::Proceed;
    Form1 form{state};
    TranscriptionRun run{state,
                         {form, *form.controls().rtbRoman, *form.controls().rtbTengwar, *this,
                          form.tmrStatus(), form.tmrAutoGenerate()},
                         {}};

    explicit FormFixture(const QSize &size = {900, 600})
    {
        connectWindowCommands(form, state);
        form.Load({run, *this, *this, *this},
                  {QStringLiteral("DejaVu Sans"), QStringLiteral("DejaVu Serif")});
        form.resize(size);
        form.restoreSplit(form.innerWidth() / 2);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        calls.clear();
    }

    template<typename Control = QWidget> [[nodiscard]] Control *find(const char *name) const
    {
        auto *control = form.findChild<Control *>(QLatin1StringView(name));
        if (!control)
            qFatal("There is no %s", name);
        return control;
    }
    [[nodiscard]] QAction *action(const char *name) const { return find<QAction>(name); }

    void NewDocument(RichTextBox &pane) override
    {
        calls += QStringLiteral("NewDocument ") + pane.objectName();
    }
    SaveAnswer AskSaveChanges(PaneCode panes) override
    {
        calls += QStringLiteral("AskSaveChanges %1").arg(int(panes));
        return saveAnswer;
    }
    void SaveUndoState(PaneCode pane) override
    {
        calls += QStringLiteral("SaveUndoState %1").arg(int(pane));
    }
    void UpdateUndoButtons(PaneCode pane) override
    {
        calls += QStringLiteral("UpdateUndoButtons %1").arg(int(pane));
    }
    void ClearUndoFiles(const QString &pattern) override
    {
        calls += QStringLiteral("ClearUndoFiles ") + pattern;
    }
    void ShowFormat(const RichTextBox &pane) override
    {
        calls += QStringLiteral("ShowFormat ") + pane.objectName();
    }
    void ShowSelText(const RichTextBox &pane) override
    {
        calls += QStringLiteral("ShowSelText ") + pane.objectName();
    }
};
