#include "editor/RtfUndoJournal.h"

#include "editor/JournalFolder.h"
#include "editor/PanesFixture.h"
#include "support/FileSizeLimit.h"
#include "support/MessageBoxes.h"

#include <QDir>
#include <QElapsedTimer>
#include <limits>
#include <memory>
#include <sys/mount.h>

namespace {

const QString notRecorded = QStringLiteral(
    "Could not save undo information. The disk might be full. Try saving your document before "
    "proceeding!");
const QString fileMissing = QStringLiteral("Could not undo. A temporary file was missing.");

/// Two panes with a journal, and the button states that it tells.
struct JournalFixture : PanesFixture
{
    JournalFolder journalFolder{folder.path(), folder.filePath(QStringLiteral("cache"))};
    RtfUndoJournal journal{{window, *source, *target, journalFolder}};
    QList<UndoState> told;

    JournalFixture()
    {
        QObject::connect(&journal, &RtfUndoJournal::undoStateChanged, &window,
                         [this](const UndoState &state) { told += state; });
    }

    void change(RichTextBox *pane, const QString &text)
    {
        journal.SaveUndoState(pane == source ? PaneCode::Source : PaneCode::Target);
        pane->setText(text);
    }

    void undo() { journal.UndoLast(PaneCode::Source); }
    void redo() { journal.RedoLast(PaneCode::Source); }

    [[nodiscard]] std::pair<int, int> counters(PaneCode pane = PaneCode::Source) const
    {
        return {journal.UndoTop(pane), journal.UndoPos(pane)};
    }
};

using Counters = std::pair<int, int>; // UndoTop, UndoPos

} // namespace

class tst_RtfUndoJournal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture_ = std::make_unique<JournalFixture>(); }
    void cleanup() { fixture_.reset(); }

    void countsAsTheExample();
    void namesItsFiles();
    void doesNothingAtTheOldestState();
    void doesNothingAtTheNewestState();
    void writesTheNewestStateOnTheFirstUndo();
    void aChangeDropsWhatCouldBeRedone();
    void keepsThePanesApart();
    void knowsNoOtherPanes_data();
    void knowsNoOtherPanes();
    void restoresTheFormatting();
    void selectsWhatAnUndoBringsBack_data();
    void selectsWhatAnUndoBringsBack();
    void undoTellsOfAMissingFile();
    void undoTellsOfADamagedFile_data();
    void undoTellsOfADamagedFile();
    void undoStopsIfTheNewestStateCannotBeWritten();
    void redoPassesOverAMissingFile();
    void tellsThatTheDiskIsFull();
    void tellsThatTheFileSystemIsFull();
    void tellsThatTheFolderVanished();
    void endsAtTheLargestCounter();
    void clearsTheFilesOfOnePane();
    void releasesReplacedDocuments();
    void recordsQuickly();

private:
    std::unique_ptr<JournalFixture> fixture_;
};

void tst_RtfUndoJournal::countsAsTheExample()
{
    JournalFixture &f = *fixture_;
    f.source->setText(QStringLiteral("first"));
    f.change(f.source, QStringLiteral("second"));
    QCOMPARE(f.counters(), Counters(1, 1));
    f.change(f.source, QStringLiteral("third"));
    QCOMPARE(f.counters(), Counters(2, 2));
    f.undo();
    QCOMPARE(f.counters(), Counters(2, 1));
    QCOMPARE(f.source->Text(), QStringLiteral("second"));
    f.undo();
    QCOMPARE(f.counters(), Counters(2, 0));
    QCOMPARE(f.source->Text(), QStringLiteral("first"));
    f.redo();
    f.redo();
    QCOMPARE(f.counters(), Counters(2, 2));
    QCOMPARE(f.source->Text(), QStringLiteral("third"));
    f.redo();
    QCOMPARE(f.counters(), Counters(2, 2));

    const UndoState both{.canUndo = true, .canRedo = true};
    const UndoState onlyUndo{.canUndo = true, .canRedo = false};
    const UndoState onlyRedo{.canUndo = false, .canRedo = true};
    QCOMPARE(f.told, (QList{onlyUndo, onlyUndo, both, onlyRedo, both, onlyUndo}));
}

void tst_RtfUndoJournal::namesItsFiles()
{
    JournalFixture &f = *fixture_;
    for (int i = 0; i < 8; ++i)
        f.change(f.source, QString::number(i));
    f.change(f.target, QStringLiteral("t"));
    const QStringList names = QDir(f.folder.path()).entryList({QStringLiteral("*.tmp")});
    QCOMPARE(names.size(), 9);
    QCOMPARE(names.constFirst(), QStringLiteral("rom0000.tmp"));
    QVERIFY(names.contains(QStringLiteral("rom0007.tmp")));
    QCOMPARE(names.constLast(), QStringLiteral("tng0000.tmp"));
    QVERIFY(f.read(QStringLiteral("rom0007.tmp")).startsWith("{\\rtf1"));
}

void tst_RtfUndoJournal::doesNothingAtTheOldestState()
{
    JournalFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    f.source->setSelStart(1);
    f.undo();
    QCOMPARE(f.source->Text(), QStringLiteral("abc"));
    QCOMPARE(f.source->SelStart(), 1);
    QVERIFY(f.told.isEmpty());
    QVERIFY(!f.exists(QStringLiteral("rom0000.tmp")));
}

void tst_RtfUndoJournal::doesNothingAtTheNewestState()
{
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("abc"));
    f.told.clear();
    f.redo();
    QCOMPARE(f.source->Text(), QStringLiteral("abc"));
    QVERIFY(f.told.isEmpty());
}

void tst_RtfUndoJournal::writesTheNewestStateOnTheFirstUndo()
{
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("newest"));
    QVERIFY(!f.exists(QStringLiteral("rom0001.tmp")));
    f.undo();
    QCOMPARE(f.counters(), Counters(1, 0));
    QVERIFY(f.read(QStringLiteral("rom0001.tmp")).contains("newest"));
    f.redo();
    QCOMPARE(f.source->Text(), QStringLiteral("newest"));
}

void tst_RtfUndoJournal::aChangeDropsWhatCouldBeRedone()
{
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("b"));
    f.change(f.source, QStringLiteral("c"));
    f.undo();
    f.change(f.source, QStringLiteral("d"));
    QCOMPARE(f.counters(), Counters(2, 2));
    QCOMPARE(f.told.constLast(), (UndoState{.canUndo = true, .canRedo = false}));
    f.redo();
    QCOMPARE(f.source->Text(), QStringLiteral("d"));
    f.undo();
    QCOMPARE(f.source->Text(), QStringLiteral("b"));
}

void tst_RtfUndoJournal::keepsThePanesApart()
{
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("roman"));
    f.change(f.target, QStringLiteral("tengwar"));
    f.journal.UndoLast(PaneCode::Target);
    QCOMPARE(f.target->Text(), QString());
    QCOMPARE(f.source->Text(), QStringLiteral("roman"));
    QCOMPARE(f.counters(PaneCode::Source), Counters(1, 1));
    QCOMPARE(f.counters(PaneCode::Target), Counters(1, 0));

    f.told.clear();
    f.journal.UpdateUndoButtons(PaneCode::Source);
    f.journal.UpdateUndoButtons(PaneCode::Target);
    QCOMPARE(f.told, (QList{UndoState{.canUndo = true, .canRedo = false},
                            UndoState{.canUndo = false, .canRedo = true}}));
}

void tst_RtfUndoJournal::knowsNoOtherPanes_data()
{
    QTest::addColumn<int>("pane");
    QTest::newRow("none") << 0;
    QTest::newRow("both") << 3;
    QTest::newRow("negative") << -1;
}

void tst_RtfUndoJournal::knowsNoOtherPanes()
{
    QFETCH(const int, pane);
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("abc"));
    f.told.clear();
    const auto code = PaneCode(pane);
    f.journal.SaveUndoState(code);
    f.journal.UndoLast(code);
    f.journal.RedoLast(code);
    f.journal.UpdateUndoButtons(code);
    QVERIFY(f.told.isEmpty());
    QCOMPARE(f.counters(), Counters(1, 1));
    QCOMPARE(f.source->Text(), QStringLiteral("abc"));
    QCOMPARE(f.counters(code), Counters(0, 0));
}

void tst_RtfUndoJournal::restoresTheFormatting()
{
    JournalFixture &f = *fixture_;
    f.source->setText(QStringLiteral("plain bold"));
    f.source->setSelStart(6);
    f.source->setSelLength(4);
    f.source->setSelBold(true);
    f.source->setSelIndent(600);
    f.change(f.source, QString());
    f.undo();
    f.source->setSelStart(0);
    f.source->setSelLength(5);
    QVERIFY(!f.source->SelFormat().bold.value());
    QCOMPARE(f.source->SelFormat().indent.value(), 600);
    f.source->setSelStart(6);
    f.source->setSelLength(4);
    QVERIFY(f.source->SelFormat().bold.value());
}

void tst_RtfUndoJournal::selectsWhatAnUndoBringsBack_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("caret");
    QTest::addColumn<QString>("selected");
    QTest::addColumn<int>("start");

    const auto text = [](const char *latin) { return QString::fromLatin1(latin); };
    QTest::newRow("deleted text") << text("one two three") << text("one three") << 4 << text("two ")
                                  << 4;
    QTest::newRow("deleted paragraphs")
        << text("one\r\ntwo\r\nthree") << text("one\r\nthree") << 5 << text("two\r\n") << 5;
    QTest::newRow("typed text") << text("one") << text("one two") << 2 << QString() << 2;
    QTest::newRow("typed text, caret beyond")
        << text("one") << text("one two") << 7 << QString() << 3;
    QTest::newRow("same length") << text("one") << text("two") << 1 << QString() << 1;
}

void tst_RtfUndoJournal::selectsWhatAnUndoBringsBack()
{
    QFETCH(const QString, before);
    QFETCH(const QString, after);
    QFETCH(const int, caret);
    QFETCH(const QString, selected);
    QFETCH(const int, start);
    JournalFixture &f = *fixture_;
    f.source->setText(before);
    f.change(f.source, after);
    f.source->setSelStart(caret);
    f.undo();
    QCOMPARE(f.source->Text(), before);
    QCOMPARE(f.source->SelStart(), start);
    QCOMPARE(f.source->SelText(), selected);
}

void tst_RtfUndoJournal::undoTellsOfAMissingFile()
{
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("abc"));
    f.change(f.source, QStringLiteral("def"));
    f.source->setSelStart(2);
    f.journal.ClearUndoFiles(QStringLiteral("rom*"));
    f.told.clear();
    MessageBoxes boxes;
    f.undo();
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].text, fileMissing);
    QCOMPARE(boxes.seen()[0].icon, QMessageBox::Critical);
    QCOMPARE(boxes.seen()[0].buttons, QMessageBox::Ok);
    QCOMPARE(f.source->Text(), QStringLiteral("def"));
    QCOMPARE(f.source->SelStart(), 2);
    QCOMPARE(f.counters(), Counters(2, 1));
    QCOMPARE(f.told, (QList{UndoState{.canUndo = true, .canRedo = true}}));
    f.redo(); // the first undo has written the newest state
    QCOMPARE(f.source->Text(), QStringLiteral("def"));
}

void tst_RtfUndoJournal::undoTellsOfADamagedFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("without its final brace") << QByteArray("{\\rtf1\\ansi abc");
    QTest::newRow("not RTF") << QByteArray("plain }");
}

void tst_RtfUndoJournal::undoTellsOfADamagedFile()
{
    QFETCH(const QByteArray, content);
    JournalFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    f.change(f.source, QStringLiteral("def"));
    f.write(QStringLiteral("rom0000.tmp"), content);
    f.told.clear();
    MessageBoxes boxes;
    f.undo();
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].title, QStringLiteral("Error"));
    QCOMPARE(boxes.seen()[0].text, QStringLiteral("Device I/O error (Error #57.)"));
    QCOMPARE(boxes.seen()[0].icon, QMessageBox::Critical);
    QCOMPARE(f.source->Text(), QStringLiteral("def"));
    QCOMPARE(f.counters(), Counters(1, 0));
    QCOMPARE(f.told, (QList{UndoState{.canUndo = false, .canRedo = true}}));
}

void tst_RtfUndoJournal::undoStopsIfTheNewestStateCannotBeWritten()
{
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("def"));
    MessageBoxes boxes;
    {
        const FileSizeLimit full(10);
        f.undo();
    }
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].text, QStringLiteral("Disk full (Error #61.)"));
    QCOMPARE(f.source->Text(), QStringLiteral("def"));
    QCOMPARE(f.counters(), Counters(1, 1));
    f.undo();
    QCOMPARE(f.source->Text(), QString());
    f.redo();
    QCOMPARE(f.source->Text(), QStringLiteral("def"));
}

void tst_RtfUndoJournal::redoPassesOverAMissingFile()
{
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("abc"));
    f.undo();
    f.journal.ClearUndoFiles(QStringLiteral("rom*"));
    f.told.clear();
    MessageBoxes boxes;
    f.redo();
    QVERIFY(boxes.seen().empty());
    QCOMPARE(f.source->Text(), QString());
    QCOMPARE(f.counters(), Counters(1, 1));
    QCOMPARE(f.told, (QList{UndoState{.canUndo = true, .canRedo = false}}));
}

void tst_RtfUndoJournal::tellsThatTheDiskIsFull()
{
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("abc"));
    f.change(f.source, QStringLiteral("def"));
    f.undo();
    f.told.clear();
    MessageBoxes boxes;
    {
        const FileSizeLimit full(10);
        f.journal.SaveUndoState(PaneCode::Source);
    }
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].text, notRecorded);
    QCOMPARE(boxes.seen()[0].icon, QMessageBox::Warning);
    QCOMPARE(boxes.seen()[0].buttons, QMessageBox::Ok);
    QCOMPARE(f.counters(), Counters(1, 1));
    QVERIFY(f.told.isEmpty());
    QCOMPARE(f.source->Text(), QStringLiteral("abc"));
    QVERIFY2(!f.exists(QStringLiteral("rom0001.tmp")), "half an entry was left");
}

void tst_RtfUndoJournal::tellsThatTheFileSystemIsFull()
{
    PanesFixture panes;
    const QByteArray small = QFile::encodeName(panes.folder.path());
    if (mount("tmpfs", small.constData(), "tmpfs", 0, "size=64k") != 0)
        QSKIP("only an administrator can mount a file system");
    {
        const JournalFolder folder(panes.folder.path(), panes.path(QStringLiteral("cache")));
        RtfUndoJournal journal({panes.window, *panes.source, *panes.target, folder});
        panes.source->setText(QString(10'000, QLatin1Char('a')));
        MessageBoxes boxes;
        int recorded = 0;
        for (; boxes.seen().empty() && recorded < 100; ++recorded)
            journal.SaveUndoState(PaneCode::Source);
        QCOMPARE(boxes.seen().size(), 1U);
        QCOMPARE(boxes.seen()[0].text, notRecorded);
        QCOMPARE(journal.UndoTop(PaneCode::Source), recorded - 1);
        QCOMPARE(panes.source->TextLength(), 10'000);
    }
    QCOMPARE(umount(small.constData()), 0);
}

void tst_RtfUndoJournal::tellsThatTheFolderVanished()
{
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("abc"));
    f.change(f.source, QStringLiteral("def"));
    f.undo();
    QVERIFY(QDir(f.folder.path()).removeRecursively());
    MessageBoxes boxes;
    f.undo();
    f.journal.SaveUndoState(PaneCode::Source);
    QCOMPARE(boxes.seen().size(), 2U);
    QCOMPARE(boxes.seen()[0].text, fileMissing);
    QCOMPARE(boxes.seen()[1].text, notRecorded);
    QCOMPARE(f.source->Text(), QStringLiteral("abc"));
    QCOMPARE(f.counters(), Counters(0, 0));
}

void tst_RtfUndoJournal::endsAtTheLargestCounter()
{
    JournalFixture &f = *fixture_;
    constexpr int largest = std::numeric_limits<qint16>::max();
    for (int i = 0; i < largest; ++i)
        f.journal.SaveUndoState(PaneCode::Source);
    QCOMPARE(f.counters(), Counters(largest, largest));
    QVERIFY(f.exists(QStringLiteral("rom9999.tmp")));
    QVERIFY(f.exists(QStringLiteral("rom10000.tmp")));
    MessageBoxes boxes;
    f.journal.SaveUndoState(PaneCode::Source);
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].text, notRecorded);
    QCOMPARE(f.counters(), Counters(largest, largest));
}

void tst_RtfUndoJournal::clearsTheFilesOfOnePane()
{
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("abc"));
    f.change(f.target, QStringLiteral("abc"));
    f.journal.ClearUndoFiles(QStringLiteral("tng*"));
    QVERIFY(f.exists(QStringLiteral("rom0000.tmp")));
    QVERIFY(!f.exists(QStringLiteral("tng0000.tmp")));
    QCOMPARE(f.counters(PaneCode::Target), Counters(1, 1));
}

void tst_RtfUndoJournal::releasesReplacedDocuments()
{
    JournalFixture &f = *fixture_;
    f.change(f.source, QStringLiteral("abc"));
    const auto documents = [&] { return f.source->findChildren<QTextDocument *>().size(); };
    const auto before = documents();
    for (int i = 0; i < 10; ++i) {
        f.undo();
        f.redo();
    }
    QTRY_COMPARE(documents(), before);
}

void tst_RtfUndoJournal::recordsQuickly()
{
    JournalFixture &f = *fixture_;
    QString text;
    while (text.size() < 32'000)
        text +=
            QStringLiteral("Ai! laurie lantar lassi surinen, yeni unotime ve ramar aldaron!\r\n");
    f.source->setText(text);
    for (int start = 0; start < 30'000; start += 300) {
        f.source->setSelStart(start);
        f.source->setSelLength(100);
        f.source->setSelBold(true);
    }
    constexpr int times = 20;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < times; ++i)
        f.journal.SaveUndoState(PaneCode::Source);
    const double each = double(timer.nsecsElapsed()) / times / 1e6;
    qInfo("recording %d formatted characters takes %.2f ms", int(text.size()), each);
    QVERIFY2(each < 100, "typing would stutter");
}

QTEST_MAIN(tst_RtfUndoJournal)
#include "tst_rtfundojournal.moc"
