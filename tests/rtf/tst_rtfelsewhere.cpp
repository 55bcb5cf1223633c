#include "rtf/DocumentDump.h"
#include "rtf/RtfFormat.h"
#include "rtf/RtfReader.h"
#include "rtf/RtfWriter.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

/// Another word processor loads what is written, saves it in its own way, and nothing is lost.
/// Skipped where LibreOffice is not installed.
class tst_RtfElsewhere : public QObject
{
    Q_OBJECT

private:
    static void addParagraph(QTextCursor &cursor, const QString &text,
                             const CharacterFormat &characters, const ParagraphFormat &paragraph)
    {
        QTextCharFormat format;
        characters.applyTo(format);
        cursor.setBlockCharFormat(format);
        cursor.insertText(text, format);
        applyParagraphFormat(cursor, paragraph);
    }

    static void fill(QTextDocument &document)
    {
        QTextCursor cursor(&document);
        CharacterFormat plain;
        plain.family = QStringLiteral("Liberation Serif");
        CharacterFormat rich = plain;
        rich.halfPoints = 31;
        rich.styles = CharacterStyle::Bold | CharacterStyle::Italic | CharacterStyle::Underline |
                      CharacterStyle::StrikeOut;
        rich.colour = 0xFFC02040;
        CharacterFormat raised = plain;
        raised.offset = 60;
        CharacterFormat high = plain;
        high.script = Script::Superscript;
        ParagraphFormat hanging;
        hanging.left = 720;
        hanging.firstLine = -360;
        hanging.right = 240;
        hanging.spaceBefore = 120;
        hanging.spaceAfter = 60;
        ParagraphFormat bullet = hanging;
        bullet.bullet = true;
        bullet.bulletIndent = 360;
        ParagraphFormat centred;
        centred.alignment = Qt::AlignHCenter;

        addParagraph(cursor, QStringLiteral("plain \u03B1\u4E2D caf\u00E9 {\\}"), plain, {});
        cursor.insertBlock();
        addParagraph(cursor, QStringLiteral("rich\tand a\u2028line"), rich, hanging);
        cursor.insertBlock();
        addParagraph(cursor, QStringLiteral("raised"), raised, centred);
        cursor.insertBlock();
        addParagraph(cursor, QStringLiteral("one"), plain, bullet);
        cursor.insertBlock();
        addParagraph(cursor, QStringLiteral("two"), plain, bullet);
        cursor.insertBlock();
        addParagraph(cursor, QStringLiteral("hard\u00A0space, soft\u00ADhyphen"), high, {});
    }

    /// The dump's lines but for the formats of paragraph ends, which LibreOffice doesn't keep.
    static QStringList dumpWithoutMarks(const QTextDocument &document)
    {
        QStringList lines = dump(document).split(u'\n');
        lines.removeIf([](const QString &line) { return line.endsWith(u']'); });
        return lines;
    }

    static bool isSaved(const QTemporaryDir &folder, const QByteArray &bytes)
    {
        QFile file(folder.filePath(QStringLiteral("in.rtf")));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

private Q_SLOTS:
    void comesBackTheSame()
    {
        const QString program = QStandardPaths::findExecutable(QStringLiteral("soffice"));
        if (program.isEmpty())
            QSKIP("LibreOffice is not installed");
        QTextDocument document;
        fill(document);
        const QTemporaryDir folder;
        QVERIFY(isSaved(folder, writeRtf(document)));
        QProcess process;
        process.start(program, {QStringLiteral("--headless"),
                                QStringLiteral("-env:UserInstallation=file://") +
                                    folder.filePath(QStringLiteral("profile")),
                                QStringLiteral("--convert-to"), QStringLiteral("rtf"),
                                QStringLiteral("--outdir"), folder.filePath(QStringLiteral("out")),
                                folder.filePath(QStringLiteral("in.rtf"))});
        QVERIFY(process.waitForFinished(120'000));
        QFile file(folder.filePath(QStringLiteral("out/in.rtf")));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QTextDocument again;
        QVERIFY(!readRtf(file, again));
        QCOMPARE(dumpWithoutMarks(again), dumpWithoutMarks(document));
    }
};

QTEST_MAIN(tst_RtfElsewhere)
#include "tst_rtfelsewhere.moc"
