#pragma once

#include "editor/SharedState.h"
#include "platform/RichTextBox.h"
#include "search/SearchCommands.h"
#include "support/ModeFolder.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QTest>

/// The two panes in a window, and the find dialog as its commands open it.
class FindWindow : public QWidget
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

    template<typename Control> [[nodiscard]] Control &get(const char *name) const
    {
        return *dialog().findChild<Control *>(QLatin1String(name));
    }

    void click(const char *name)
    {
        auto &button = get<QAbstractButton>(name);
        QVERIFY2(button.isVisible() && button.isEnabled(), name);
        QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2});
    }

    void type(const char *box, const QString &text)
    {
        auto &control = get<QLineEdit>(box);
        control.setFocus();
        control.selectAll();
        QTest::keyClick(&control, Qt::Key_Delete);
        for (const QChar character : text)
            QTest::sendKeyEvent(QTest::Click, &control, Qt::Key_unknown, QString(character), {});
    }

    ModeFolder folder;
    SharedState state;
    bool isTranscribing = false;
    RichTextBox source;
    RichTextBox target;
    SearchCommands commands{state, {source, target}, [this] { return isTranscribing; }, *this};
};
