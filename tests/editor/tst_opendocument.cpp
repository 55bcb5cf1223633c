#include "editor/DocumentsFixture.h"
#include "platform/OrdinaryUser.h"
#include "support/FileDialogs.h"
#include "support/MessageBoxes.h"

#include <memory>
#include <sys/stat.h>

namespace {

constexpr qint64 megabyte = qint64(1) << 20;

} // namespace

/// Open, and files dropped on a pane.
class tst_OpenDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture_ = std::make_unique<DocumentsFixture>(); }
    void cleanup() { fixture_.reset(); }

    void showsItsDialog();
    void takesTheFile();
    void cancelLeavesThePaneAsItWas();
    void tellsRtfByItsContent_data();
    void tellsRtfByItsContent();
    void asksFirst_data();
    void asksFirst();
    void refusesWhatIsNoDocument_data();
    void refusesWhatIsNoDocument();
    void refusesWhatMayNotBeRead();
    void takesTheLargestDocument();

private:
    void makeFiles() const;

    std::unique_ptr<DocumentsFixture> fixture_;
};

void tst_OpenDocument::showsItsDialog()
{
    DocumentsFixture &f = *fixture_;
    FileDialogs dialogs;
    f.documents.OpenDocument(*f.source);
    f.documents.OpenDocument(*f.target);
    QCOMPARE(dialogs.seen().size(), 2);
    QCOMPARE(dialogs.seen()[0].title, QStringLiteral("Open Source File"));
    QCOMPARE(dialogs.seen()[1].title, QStringLiteral("Open Target File"));
    QCOMPARE(dialogs.seen()[0].name, QString());
    QCOMPARE(dialogs.seen()[0].filters.size(), 4);
    QCOMPARE(dialogs.seen()[0].filter, QStringLiteral("Document files (*.txt *.rtf)"));
}

void tst_OpenDocument::takesTheFile()
{
    DocumentsFixture &f = *fixture_;
    f.write(QStringLiteral("letter.txt"), "abc\ndef");
    FileDialogs dialogs({{f.path(QStringLiteral("letter.txt"))}});
    f.documents.OpenDocument(*f.target);
    QCOMPARE(f.target->Text(), QStringLiteral("abc\r\ndef"));
    QCOMPARE(f.target->Tag(), QString());
    QCOMPARE(f.documents.TargetFileName(), f.path(QStringLiteral("letter.txt")));
    QCOMPARE(f.documents.SourceFileName(), QString());
    QCOMPARE(f.captions, {QStringLiteral("2 Target - letter.txt")});
    QCOMPARE(f.cleared, {QStringLiteral("tng*")});
}

void tst_OpenDocument::cancelLeavesThePaneAsItWas()
{
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    MessageBoxes boxes({QMessageBox::No});
    FileDialogs dialogs;
    f.documents.OpenDocument(*f.source);
    QCOMPARE(dialogs.seen().size(), 1);
    QCOMPARE(f.source->Text(), QStringLiteral("abc"));
    QCOMPARE(f.source->Tag(), dirty);
    QVERIFY(f.captions.isEmpty());
    QVERIFY(f.cleared.isEmpty());
}

void tst_OpenDocument::tellsRtfByItsContent_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");
    QTest::newRow("RTF in .txt") << QStringLiteral("a.txt") << QByteArray("{\\rtf1 abc}")
                                 << QStringLiteral("abc");
    QTest::newRow("text in .rtf") << QStringLiteral("a.rtf") << QByteArray("abc {\\b}")
                                  << QStringLiteral("abc {\\b}");
    QTest::newRow("no extension") << QStringLiteral("README") << QByteArray("abc")
                                  << QStringLiteral("abc");
    QTest::newRow("empty") << QStringLiteral("a.txt") << QByteArray() << QString();
    QTest::newRow("UTF-16") << QStringLiteral("a.txt") << QByteArray("\xFE\xFF\x01\x51", 4)
                            << QStringLiteral("\u0151");
}

void tst_OpenDocument::tellsRtfByItsContent()
{
    QFETCH(const QString, name);
    QFETCH(const QByteArray, content);
    QFETCH(const QString, text);
    DocumentsFixture &f = *fixture_;
    f.write(name, content);
    FileDialogs dialogs({{f.path(name)}});
    f.documents.OpenDocument(*f.source);
    QCOMPARE(f.source->Text(), text);
    QCOMPARE(f.documents.SourceFileName(), f.path(name));
}

void tst_OpenDocument::asksFirst_data()
{
    QTest::addColumn<bool>("dropped");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("old");
    for (const bool dropped : {false, true}) {
        const QByteArray how = dropped ? "drop, " : "dialog, ";
        QTest::newRow((how + "Cancel").constData())
            << dropped << int(QMessageBox::Cancel) << QStringLiteral("xold") << QByteArray("old");
        QTest::newRow((how + "No").constData())
            << dropped << int(QMessageBox::No) << QStringLiteral("new") << QByteArray("old");
        QTest::newRow((how + "Yes").constData())
            << dropped << int(QMessageBox::Yes) << QStringLiteral("new") << QByteArray("xold");
    }
}

void tst_OpenDocument::asksFirst()
{
    QFETCH(const bool, dropped);
    QFETCH(const int, answer);
    QFETCH(const QString, text);
    QFETCH(const QByteArray, old);
    DocumentsFixture &f = *fixture_;
    f.write(QStringLiteral("old.txt"), "old");
    f.write(QStringLiteral("new.txt"), "new");
    f.documents.openDropped(*f.source, f.path(QStringLiteral("old.txt")));
    QTest::keyClicks(f.source, QStringLiteral("x"));
    MessageBoxes boxes({QMessageBox::StandardButton(answer)});
    FileDialogs dialogs({{f.path(QStringLiteral("new.txt"))}});
    if (dropped)
        f.documents.openDropped(*f.source, f.path(QStringLiteral("new.txt")));
    else
        f.documents.OpenDocument(*f.source);
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(f.source->Text(), text);
    QCOMPARE(f.read(QStringLiteral("old.txt")), old);
}

void tst_OpenDocument::refusesWhatIsNoDocument_data()
{
    QTest::addColumn<bool>("dropped");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    for (const bool dropped : {false, true}) {
        const auto row = [dropped](const char *name, const char *reason) {
            QTest::newRow((QByteArray(dropped ? "drop, " : "dialog, ") + name).constData())
                << dropped << QString::fromLatin1(name) << QString::fromLatin1(reason);
        };
        row("missing.txt", "There is no such file.");
        row("missing/a.txt", "There is no such file.");
        row("pipe.txt", "There is no such file.");
        row("program.txt", "This file is neither text nor RTF.");
        row("huge.txt", "This file is too large to be opened.");
        row("lines.txt", "This file is too large to be opened.");
    }
    QTest::newRow("drop, a folder")
        << true << QStringLiteral("folder.txt") << QStringLiteral("There is no such file.");
}

void tst_OpenDocument::makeFiles() const
{
    fixture_->write(QStringLiteral("program.txt"), QByteArray("\x7F"
                                                              "ELF\0abc",
                                                              8));
    fixture_->write(QStringLiteral("good.txt"), "good");
    fixture_->write(QStringLiteral("lines.txt"), QByteArray(500'000, '\n'));
    QFile huge(fixture_->path(QStringLiteral("huge.txt")));
    QVERIFY(huge.open(QIODevice::WriteOnly));
    QVERIFY(huge.resize(100 * megabyte + 1));
    const QByteArray pipe = QFile::encodeName(fixture_->path(QStringLiteral("pipe.txt")));
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    QVERIFY(QDir().mkdir(fixture_->path(QStringLiteral("folder.txt"))));
}

void tst_OpenDocument::refusesWhatIsNoDocument()
{
    QFETCH(const bool, dropped);
    QFETCH(const QString, name);
    QFETCH(const QString, reason);
    DocumentsFixture &f = *fixture_;
    makeFiles();
    f.source->setText(QStringLiteral("abc"));
    f.source->setTag({});
    const TextForm form = f.source->textForm();
    MessageBoxes boxes;
    if (dropped) {
        f.documents.openDropped(*f.source, f.path(name));
        QCOMPARE(f.source->Text(), QStringLiteral("abc"));
        QVERIFY(f.source->textForm() == form);
        QVERIFY(f.captions.isEmpty());
    } else {
        FileDialogs dialogs({{f.path(name)}, {f.path(QStringLiteral("good.txt"))}});
        f.documents.OpenDocument(*f.source);
        QCOMPARE(dialogs.seen().size(), 2);
        QCOMPARE(f.source->Text(), QStringLiteral("good"));
        QCOMPARE(f.captions, {QStringLiteral("1 Source - good.txt")});
    }
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].text, f.path(name) + QLatin1Char('\n') + reason);
    QCOMPARE(boxes.seen()[0].icon, QMessageBox::Warning);
}

void tst_OpenDocument::refusesWhatMayNotBeRead()
{
    DocumentsFixture &f = *fixture_;
    f.write(QStringLiteral("secret.txt"), "abc");
    QFile::setPermissions(f.folder.path(), QFile::Permissions(0x7777));
    QFile::setPermissions(f.path(QStringLiteral("secret.txt")), {});
    const OrdinaryUser user;
    QVERIFY(user.isDropped());
    MessageBoxes boxes;
    f.documents.openDropped(*f.source, f.path(QStringLiteral("secret.txt")));
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].text, f.path(QStringLiteral("secret.txt")) +
                                       QStringLiteral("\nYou may not read this file."));
}

void tst_OpenDocument::takesTheLargestDocument()
{
    DocumentsFixture &f = *fixture_;
    const QByteArray start = "{\\rtf1 abc}";
    f.write(QStringLiteral("large.rtf"), start + QByteArray(100 * megabyte - start.size(), '\n'));
    f.documents.openDropped(*f.source, f.path(QStringLiteral("large.rtf")));
    QCOMPARE(f.source->Text(), QStringLiteral("abc"));
}

QTEST_MAIN(tst_OpenDocument)
#include "tst_opendocument.moc"
