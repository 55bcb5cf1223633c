#include "tools/InsertCommands.h"

#include "editor/SharedState.h"
#include "platform/RichTextBox.h"
#include "support/JournalRecord.h"
#include "support/RegistryFolder.h"
#include "tools/CharacterGrid.h"

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

/// The two panes in a window, and the commands that insert into them.
class InsertWindow : public QWidget
{
public:
    InsertWindow()
    {
        auto *layout = new QHBoxLayout(this);
        layout->addWidget(&source);
        layout->addWidget(&target);
        show();
    }

    RegistryFolder registry;
    SharedState state;
    JournalRecord journal;
    RichTextBox source;
    RichTextBox target;
    InsertCommands commands{state, {source, target}, journal, registry.settings, *this};
};

/// Does something with the dialog that a command is about to open.
void inDialog(const std::function<void(QDialog &)> &action)
{
    auto *timer = new QTimer(qApp);
    timer->callOnTimeout(timer, [timer, action] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible())
            return;
        timer->stop();
        timer->deleteLater();
        action(*dialog);
    });
    timer->start(0);
}

void click(const QDialog &dialog, const char *button)
{
    QTest::mouseClick(dialog.findChild<QPushButton *>(QLatin1String(button)), Qt::LeftButton);
}

} // namespace

class tst_InsertCommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leadingNumbers_data();
    void leadingNumbers();
    void numeralGoesToTheStartOfTheSelection();
    void cancelledCalculator();
    void nothingToInsert();
    void charactersGoToTheActivePane();
    void pickerShowsTheFontOfTheInsertion_data();
    void pickerShowsTheFontOfTheInsertion();
    void cancelledPicker();
    void pickerNeedsAPane();
};

void tst_InsertCommands::leadingNumbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("number");
    QTest::newRow("number") << u"144"_qs << u"144"_qs;
    QTest::newRow("eleven digits") << u"12345678901"_qs << u"123456789"_qs;
    QTest::newRow("fraction") << u"3.9"_qs << u"3"_qs;
    QTest::newRow("blanks around") << u" 12\r\n"_qs << u"12"_qs;
    QTest::newRow("with words") << u"12 ships"_qs << u"12"_qs;
    QTest::newRow("below one") << u"0.5"_qs << u"0"_qs;
    QTest::newRow("no digit before the point") << u".5"_qs << u"0"_qs;
    QTest::newRow("blanks before") << u"  12"_qs << u"12"_qs;
    QTest::newRow("blanks within") << u"1 2"_qs << u"1"_qs;
    QTest::newRow("plus sign") << u"+7"_qs << u"7"_qs;
    QTest::newRow("decimal comma") << u"1,5"_qs << u"1"_qs;
    QTest::newRow("exponent") << u"1e3"_qs << u"1000"_qs;
    QTest::newRow("large exponent") << u"2.5E+9"_qs << QString();
    QTest::newRow("largest by exponent") << u"1e9"_qs << u"1000000000"_qs;
    QTest::newRow("beyond all numbers") << u"1e999"_qs << QString();
    QTest::newRow("no exponent") << u"5 east"_qs << u"5"_qs;
    QTest::newRow("no exponent at once") << u"5east"_qs << u"5"_qs;
    QTest::newRow("other bases") << u"&H10"_qs << QString();
    QTest::newRow("behind a line break") << u"\r\n4"_qs << u"4"_qs;
    QTest::newRow("digits of other scripts") << u"\u0661"_qs << QString();
    QTest::newRow("nine characters with blanks") << u"     123456"_qs << u"1234"_qs;
    QTest::newRow("leading zeros") << u"007"_qs << u"7"_qs;
    QTest::newRow("zero") << u"0"_qs << QString();
    QTest::newRow("negative") << u"-3"_qs << QString();
    QTest::newRow("no number") << u"ships"_qs << QString();
    QTest::newRow("nothing") << QString() << QString();
}

void tst_InsertCommands::leadingNumbers()
{
    QFETCH(QString, text);
    QTEST(leadingNumber(text), "number");
    InsertWindow window;
    window.source.setText(text);
    window.source.setSelLength(window.source.TextLength());
    QString entered;
    inDialog([&entered](QDialog &dialog) {
        entered = dialog.findChild<QLineEdit *>(u"txtDecimal"_qs)->text();
        dialog.reject();
    });
    window.commands.insertNumerals();
    QTEST(entered, "number");
}

void tst_InsertCommands::numeralGoesToTheStartOfTheSelection()
{
    InsertWindow window;
    window.source.setText(u"in 144"_qs);
    window.source.setSelStart(3);
    window.source.setSelLength(3);
    window.target.setText(u"abcd"_qs);
    window.target.setSelStart(1);
    window.target.setSelLength(2);
    window.state.ActivePane = PaneCode::Source;
    inDialog([](QDialog &dialog) { click(dialog, "cmdOK_0"); });
    window.commands.insertNumerals();
    // Reversed, as the dialog is at its first use.
    QCOMPARE(window.target.Text(), u"a\u00F4\u00F4\u00F1bcd"_qs);
    QCOMPARE(window.target.SelStart(), 4);
    QCOMPARE(window.source.Text(), u"in 144"_qs);
    QCOMPARE(window.journal.saved, std::vector{PaneCode::Target});
    QCOMPARE(window.state.TransferText, QString());
}

void tst_InsertCommands::cancelledCalculator()
{
    InsertWindow window;
    window.target.setText(u"abcd"_qs);
    window.target.setSelLength(2);
    inDialog([](QDialog &dialog) { click(dialog, "cmdCancel_0"); });
    window.commands.insertNumerals();
    QCOMPARE(window.target.Text(), u"abcd"_qs);
    QCOMPARE(window.target.SelLength(), 2);
    QVERIFY(window.journal.saved.empty());
}

void tst_InsertCommands::nothingToInsert()
{
    InsertWindow window;
    window.target.setText(u"abcd"_qs);
    inDialog([](QDialog &dialog) { click(dialog, "cmdOK_0"); });
    window.commands.insertNumerals();
    QCOMPARE(window.target.Text(), u"abcd"_qs);
    QVERIFY(window.journal.saved.empty());
}

void tst_InsertCommands::charactersGoToTheActivePane()
{
    InsertWindow window;
    for (const PaneCode code : {PaneCode::Source, PaneCode::Target}) {
        RichTextBox &pane = code == PaneCode::Source ? window.source : window.target;
        QTextCharFormat format;
        format.setFontFamilies({u"Font %1"_qs.arg(int(code))});
        pane.textCursor().insertText(u"xyz"_qs, format);
        pane.setSelStart(1);
        pane.setSelLength(2);
        window.state.ActivePane = code;
        window.state.TransferText.clear();
        QString font;
        inDialog([&font](QDialog &dialog) {
            auto *grid = dialog.findChild<CharacterGrid *>(u"grdChars"_qs);
            font = grid->font().family();
            QTest::keyClick(grid, 'B');
            QTest::keyClick(grid, Qt::Key_Return);
            click(dialog, "cmdOK");
        });
        window.commands.insertSpecialCharacters();
        QCOMPARE(font, u"Font %1"_qs.arg(int(code)));
        QCOMPARE(pane.Text(), u"xByz"_qs);
        QCOMPARE(window.journal.saved.back(), code);
        QCOMPARE(window.focusWidget(), &pane);
        // It is offered again next time.
        QCOMPARE(window.state.TransferText, u"B"_qs);
    }
    QCOMPARE(window.journal.saved.size(), 2);
}

void tst_InsertCommands::pickerShowsTheFontOfTheInsertion_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("font");
    QTest::newRow("caret") << 1 << 0 << u"First"_qs;
    QTest::newRow("selection") << 3 << 1 << u"Second"_qs;
    QTest::newRow("mixed selection") << 1 << 3 << u"First"_qs;
    QTest::newRow("mixed from the start") << 0 << 4 << u"First"_qs;
    QTest::newRow("mixed, selected backwards") << 3 << -2 << u"First"_qs;
}

void tst_InsertCommands::pickerShowsTheFontOfTheInsertion()
{
    QFETCH(int, start);
    QFETCH(int, length);
    InsertWindow window;
    for (const QString &font : {u"First"_qs, u"Second"_qs}) {
        QTextCharFormat format;
        format.setFontFamilies({font});
        window.source.textCursor().insertText(u"ab"_qs, format);
    }
    QTextCursor cursor = window.source.textCursor();
    cursor.setPosition(start);
    cursor.setPosition(start + length, QTextCursor::KeepAnchor);
    window.source.setTextCursor(cursor);
    window.state.ActivePane = PaneCode::Source;
    QString font;
    inDialog([&font](QDialog &dialog) {
        auto *grid = dialog.findChild<CharacterGrid *>(u"grdChars"_qs);
        font = grid->font().family();
        QTest::keyClick(grid, Qt::Key_Return);
        click(dialog, "cmdOK");
    });
    window.commands.insertSpecialCharacters();
    QTEST(font, "font");
}

void tst_InsertCommands::cancelledPicker()
{
    InsertWindow window;
    window.source.setText(u"xyz"_qs);
    window.source.setSelLength(2);
    window.state.ActivePane = PaneCode::Source;
    window.state.TransferText = u"abc"_qs;
    inDialog([](QDialog &dialog) { click(dialog, "cmdCancel"); });
    window.commands.insertSpecialCharacters();
    QCOMPARE(window.source.Text(), u"xyz"_qs);
    QCOMPARE(window.source.SelLength(), 0);
    QVERIFY(window.journal.saved.empty());
}

void tst_InsertCommands::pickerNeedsAPane()
{
    InsertWindow window;
    window.commands.insertSpecialCharacters();
    QVERIFY(window.journal.saved.empty());
}

QTEST_MAIN(tst_InsertCommands)
#include "tst_insertcommands.moc"
