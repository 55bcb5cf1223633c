#include "editor/DocumentsFixture.h"
#include "engine/RuntimeError.h"
#include "support/FileDialogs.h"
#include "support/FileSizeLimit.h"
#include "support/MessageBoxes.h"

#include <memory>
#include <optional>
#include <sys/stat.h>

namespace {

const QString rtfFilter = QStringLiteral("Rich Text Format file (*.rtf)");
const QString textFilter = QStringLiteral("Text file (*.txt)");

template<typename Operation> std::optional<ErrorNumber> errorOf(Operation operation)
{
    try {
        operation();
        return std::nullopt;
    } catch (const RuntimeError &error) {
        return error.number();
    }
}

} // namespace

/// Save and Save As.
class tst_SaveDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        fixture_ = std::make_unique<DocumentsFixture>();
        fixture_->documents.NewDocument(*fixture_->source);
        fixture_->documents.NewDocument(*fixture_->target);
        fixture_->captions.clear();
        fixture_->cleared.clear();
    }
    void cleanup() { fixture_.reset(); }

    void anUntitledPaneAsksForAName();
    void cancelLeavesThePaneAsItWas();
    void saveAsTakesTheNewName();
    void filterDecidesTheKind_data();
    void filterDecidesTheKind();
    void filterStartsByTheExtension_data();
    void filterStartsByTheExtension();
    void saveWritesPlainText();
    void newFilesHaveTheirCodes_data();
    void newFilesHaveTheirCodes();
    void keepsTheFormOfTheOpenedFile_data();
    void keepsTheFormOfTheOpenedFile();
    void aNewDocumentForgetsTheForm();
    void saveLeavesTheOldFileWhole();
    void dialogTriesTheDestination_data();
    void dialogTriesTheDestination();
    void dialogTriesTheRoom();
    void dialogAsksBeforeItReplaces();
    void rescuesWhatHasNoName();
    void keepsTheLastTwentyRescued();
    void stopsWhereNothingCanBeRescued();

private:
    std::unique_ptr<DocumentsFixture> fixture_;
};

void tst_SaveDocument::anUntitledPaneAsksForAName()
{
    DocumentsFixture &f = *fixture_;
    f.target->setText(QStringLiteral("abc"));
    FileDialogs dialogs({{f.path(QStringLiteral("letter.rtf"))}});
    f.documents.SaveDocument(*f.target);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen()[0].title, QStringLiteral("Save Target File As"));
    QCOMPARE(dialogs.seen()[0].name, QString());
    QCOMPARE(dialogs.seen()[0].filter, rtfFilter);
    QCOMPARE(dialogs.seen()[0].filters, (QStringList{rtfFilter, textFilter}));
    QVERIFY(f.read(QStringLiteral("letter.rtf")).startsWith("{\\rtf1"));
    QCOMPARE(f.target->Tag(), QString());
}

void tst_SaveDocument::cancelLeavesThePaneAsItWas()
{
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    FileDialogs dialogs;
    f.documents.SaveDocument(*f.source);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(f.source->Tag(), dirty);
    QCOMPARE(f.documents.SourceFileName(), QString());
    QVERIFY(f.captions.isEmpty());
    QVERIFY(f.cleared.isEmpty());
}

void tst_SaveDocument::saveAsTakesTheNewName()
{
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    FileDialogs dialogs({{f.path(QStringLiteral("one"))}, {f.path(QStringLiteral("two.rtf"))}});
    f.documents.SaveDocumentAs(*f.source);
    QCOMPARE(f.documents.SourceFileName(), f.path(QStringLiteral("one.rtf")));
    f.documents.SaveDocumentAs(*f.source);
    QCOMPARE(f.documents.SourceFileName(), f.path(QStringLiteral("two.rtf")));
    QCOMPARE(dialogs.seen()[0].title, QStringLiteral("Save Source File As"));
    QCOMPARE(dialogs.seen()[1].name, QStringLiteral("one.rtf"));
    QCOMPARE(f.captions, (QStringList{QStringLiteral("1 Source - one.rtf"),
                                      QStringLiteral("1 Source - two.rtf")}));
    QCOMPARE(f.cleared, QStringList(2, QStringLiteral("rom*")));
    QCOMPARE(f.source->Tag(), QString());
}

void tst_SaveDocument::filterDecidesTheKind_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("start");
    const auto latin = [](const char *text) { return QString::fromLatin1(text); };
    QTest::newRow("text") << textFilter << latin("a") << latin("a.txt") << QByteArray("abc");
    QTest::newRow("text in .rtf") << textFilter << latin("a.rtf") << latin("a.rtf")
                                  << QByteArray("abc");
    QTest::newRow("RTF") << rtfFilter << latin("a") << latin("a.rtf") << QByteArray("{\\rtf1");
    QTest::newRow("RTF in .txt") << rtfFilter << latin("a.txt") << latin("a.txt")
                                 << QByteArray("{\\rtf1");
}

void tst_SaveDocument::filterDecidesTheKind()
{
    QFETCH(const QString, filter);
    QFETCH(const QString, name);
    QFETCH(const QString, file);
    QFETCH(const QByteArray, start);
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    FileDialogs dialogs({{f.path(name), filter}});
    f.documents.SaveDocumentAs(*f.source);
    QVERIFY(f.read(file).startsWith(start));
    QCOMPARE(f.documents.SourceFileName(), f.path(file));
}

void tst_SaveDocument::filterStartsByTheExtension_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("filter");
    QTest::newRow("text") << QStringLiteral("a.TXT") << textFilter;
    QTest::newRow("RTF") << QStringLiteral("a.rtf") << rtfFilter;
    QTest::newRow("other") << QStringLiteral("a.doc") << rtfFilter;
}

void tst_SaveDocument::filterStartsByTheExtension()
{
    QFETCH(const QString, name);
    QFETCH(const QString, filter);
    DocumentsFixture &f = *fixture_;
    f.write(name, "abc");
    f.documents.openDropped(*f.source, f.path(name));
    FileDialogs dialogs;
    f.documents.SaveDocumentAs(*f.source);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(dialogs.seen()[0].filter, filter);
    QCOMPARE(dialogs.seen()[0].name, name);
}

void tst_SaveDocument::saveWritesPlainText()
{
    DocumentsFixture &f = *fixture_;
    const QString name = QStringLiteral("a.rtf");
    f.write(name, "{\\rtf1 one \\b two\\par three}");
    f.documents.openDropped(*f.source, f.path(name));
    f.captions.clear();
    f.cleared.clear();
    f.source->setTag(dirty);
    f.documents.SaveDocument(*f.source);
    QCOMPARE(f.read(name), QByteArray("one two\r\nthree"));
    QCOMPARE(f.source->Tag(), QString());
    QVERIFY2(f.captions.isEmpty(), "Save does not change the caption");
    QCOMPARE(f.cleared, {QStringLiteral("rom*")});
}

void tst_SaveDocument::newFilesHaveTheirCodes_data()
{
    QTest::addColumn<bool>("inTarget");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("Source") << false << QStringLiteral("\u00E9\r\n\u20AC")
                            << QByteArray("\xC3\xA9\r\n\xE2\x82\xAC");
    QTest::newRow("Target") << true << QStringLiteral("\u00E9\r\n\u20AC")
                            << QByteArray("\xE9\r\n\x80");
    QTest::newRow("Target beyond the code page")
        << true << QStringLiteral("\u0151") << QByteArray("\xEF\xBB\xBF\xC5\x91");
}

void tst_SaveDocument::newFilesHaveTheirCodes()
{
    QFETCH(const bool, inTarget);
    QFETCH(const QString, text);
    QFETCH(const QByteArray, bytes);
    DocumentsFixture &f = *fixture_;
    RichTextBox &pane = inTarget ? *f.target : *f.source;
    pane.setText(text);
    FileDialogs dialogs({{f.path(QStringLiteral("a")), textFilter}});
    f.documents.SaveDocumentAs(pane);
    QCOMPARE(f.read(QStringLiteral("a.txt")), bytes);
}

void tst_SaveDocument::keepsTheFormOfTheOpenedFile_data()
{
    QTest::addColumn<QByteArray>("opened");
    QTest::addColumn<QByteArray>("saved"); ///< after an x was typed at the start
    QTest::newRow("code page, LF") << QByteArray("\xE9\n\x80") << QByteArray("x\xE9\n\x80");
    QTest::newRow("UTF-8, CR") << QByteArray("\xC3\xA9\rb") << QByteArray("x\xC3\xA9\rb");
    QTest::newRow("UTF-8 with mark") << QByteArray("\xEF\xBB\xBF"
                                                   "a\r\nb")
                                     << QByteArray("\xEF\xBB\xBF"
                                                   "xa\r\nb");
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE\x61\x00", 4)
                            << QByteArray("\xFF\xFE\x78\x00\x61\x00", 6);
}

void tst_SaveDocument::keepsTheFormOfTheOpenedFile()
{
    QFETCH(const QByteArray, opened);
    QFETCH(const QByteArray, saved);
    DocumentsFixture &f = *fixture_;
    f.write(QStringLiteral("a.txt"), opened);
    f.documents.openDropped(*f.source, f.path(QStringLiteral("a.txt")));
    QTest::keyClicks(f.source, QStringLiteral("x"));
    f.documents.SaveDocument(*f.source);
    QCOMPARE(f.read(QStringLiteral("a.txt")), saved);
}

void tst_SaveDocument::aNewDocumentForgetsTheForm()
{
    DocumentsFixture &f = *fixture_;
    f.write(QStringLiteral("a.txt"), "\xE9\n");
    f.documents.openDropped(*f.source, f.path(QStringLiteral("a.txt")));
    f.documents.NewDocument(*f.source);
    f.source->setText(QStringLiteral("\u00E9\r\n"));
    FileDialogs dialogs({{f.path(QStringLiteral("b.txt")), textFilter}});
    f.documents.SaveDocument(*f.source);
    QCOMPARE(f.read(QStringLiteral("b.txt")), QByteArray("\xC3\xA9\r\n"));
}

void tst_SaveDocument::saveLeavesTheOldFileWhole()
{
    DocumentsFixture &f = *fixture_;
    const QString name = QStringLiteral("a.txt");
    f.write(name, "the old content");
    f.documents.openDropped(*f.source, f.path(name));
    f.cleared.clear();
    f.source->setText(QStringLiteral("something new, and longer"));
    {
        const FileSizeLimit full(5);
        QCOMPARE(errorOf([&] { f.documents.SaveDocument(*f.source); }), ErrorNumber::DiskFull);
        MessageBoxes boxes({QMessageBox::Yes});
        QCOMPARE(errorOf([&] { static_cast<void>(f.documents.AskSaveChanges(PaneCode::Both)); }),
                 ErrorNumber::DiskFull);
    }
    QCOMPARE(f.read(name), QByteArray("the old content"));
    QCOMPARE(f.source->Tag(), dirty);
    QVERIFY(f.cleared.isEmpty());
}

void tst_SaveDocument::dialogTriesTheDestination_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no such folder")
        << QStringLiteral("missing/a.rtf") << QStringLiteral("There is no such folder.");
    QTest::newRow("not a folder") << QStringLiteral("Source.tpl/a.rtf")
                                  << QStringLiteral("There is no such folder.");
    QTest::newRow("a pipe") << QStringLiteral("pipe.rtf")
                            << QStringLiteral("No file of this name can be written.");
}

void tst_SaveDocument::dialogTriesTheDestination()
{
    QFETCH(const QString, name);
    QFETCH(const QString, reason);
    DocumentsFixture &f = *fixture_;
    QCOMPARE(mkfifo(QFile::encodeName(f.path(QStringLiteral("pipe.rtf"))).constData(), 0600), 0);
    f.source->setText(QStringLiteral("abc"));
    MessageBoxes boxes;
    FileDialogs dialogs({{f.path(name)}, {f.path(QStringLiteral("good.rtf"))}});
    f.documents.SaveDocumentAs(*f.source);
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].text, f.path(name) + QLatin1Char('\n') + reason);
    QCOMPARE(boxes.seen()[0].title, QStringLiteral("Save Source File As"));
    QCOMPARE(dialogs.seen().size(), 2);
    QCOMPARE(f.documents.SourceFileName(), f.path(QStringLiteral("good.rtf")));
    QCOMPARE(f.captions, {QStringLiteral("1 Source - good.rtf")});
}

void tst_SaveDocument::dialogTriesTheRoom()
{
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    const QString path = f.path(QStringLiteral("a.rtf"));
    f.write(QStringLiteral("a.rtf"), "the old content");
    MessageBoxes boxes({QMessageBox::Yes, QMessageBox::Ok});
    FileDialogs dialogs({{path}});
    {
        const FileSizeLimit full(5);
        f.documents.SaveDocumentAs(*f.source);
    }
    QCOMPARE(boxes.seen().size(), 2U);
    QCOMPARE(boxes.seen()[1].text,
             path + QStringLiteral("\nThere is no room for this file on the disk."));
    QCOMPARE(dialogs.seen().size(), 2);
    QCOMPARE(f.read(QStringLiteral("a.rtf")), QByteArray("the old content"));
    QCOMPARE(f.source->Tag(), dirty);
    QVERIFY(f.captions.isEmpty());
}

void tst_SaveDocument::dialogAsksBeforeItReplaces()
{
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    const QString path = f.path(QStringLiteral("<b>a.rtf"));
    f.write(QStringLiteral("<b>a.rtf"), "old");
    MessageBoxes boxes({QMessageBox::No, QMessageBox::Yes});
    FileDialogs dialogs({{path}, {path}});
    f.documents.SaveDocumentAs(*f.source);
    QCOMPARE(boxes.seen().size(), 2U);
    QCOMPARE(boxes.seen()[0].text,
             path + QStringLiteral(" already exists.\nDo you want to replace it?"));
    QCOMPARE(dialogs.seen().size(), 2);
    QVERIFY(f.read(QStringLiteral("<b>a.rtf")).startsWith("{\\rtf1"));
}

void tst_SaveDocument::rescuesWhatHasNoName()
{
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("my only copy"));
    MessageBoxes boxes({QMessageBox::Yes});
    FileDialogs dialogs;
    QCOMPARE(f.documents.AskSaveChanges(PaneCode::Source), SaveAnswer::Proceed);
    QCOMPARE(f.source->Tag(), dirty);
    const QStringList names = f.rescuedNames();
    QCOMPARE(names.size(), 1);
    QVERIFY(names[0].endsWith(QStringLiteral(" Source.rtf")));
    QVERIFY(f.read(f.rescued + QLatin1Char('/') + names[0]).contains("my only copy"));
}

void tst_SaveDocument::keepsTheLastTwentyRescued()
{
    DocumentsFixture &f = *fixture_;
    const RescueCopies rescue(f.path(f.rescued));
    for (int i = 0; i < 25; ++i) {
        f.source->setText(QStringLiteral("copy %1").arg(i));
        const qsizetype before = f.rescuedNames().size();
        rescue.keep(*f.source, QStringLiteral("Source"));
        QCOMPARE(f.rescuedNames().size(), std::min<qsizetype>(before + 1, 20));
    }
    const QStringList names = f.rescuedNames();
    QVERIFY(f.read(f.rescued + QLatin1Char('/') + names.constFirst()).contains("copy 5"));
    QVERIFY(f.read(f.rescued + QLatin1Char('/') + names.constLast()).contains("copy 24"));
}

void tst_SaveDocument::stopsWhereNothingCanBeRescued()
{
    DocumentsFixture &f = *fixture_;
    f.write(f.rescued, "a file where the folder should be");
    f.source->setText(QStringLiteral("my only copy"));
    MessageBoxes boxes({QMessageBox::Yes});
    FileDialogs dialogs;
    QVERIFY(errorOf([&] { f.documents.NewDocument(*f.source); }).has_value());
    QCOMPARE(f.source->Text(), QStringLiteral("my only copy"));
    QCOMPARE(f.source->Tag(), dirty);
}

QTEST_MAIN(tst_SaveDocument)
#include "tst_savedocument.moc"
