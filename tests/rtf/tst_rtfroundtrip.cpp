#include "rtf/DocumentDump.h"
#include "rtf/RtfFormat.h"
#include "rtf/RtfReader.h"
#include "rtf/RtfWriter.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

namespace {

/// Documents with everything that RTF keeps, in random mixtures.
class RandomDocument
{
public:
    explicit RandomDocument(quint32 seed) : random_(seed) {}

    void fill(QTextDocument &document)
    {
        QTextCursor cursor(&document);
        for (int paragraphs = random_.bounded(1, 8); paragraphs > 0; --paragraphs) {
            for (int runs = random_.bounded(5); runs > 0; --runs)
                cursor.insertText(text(), characterFormat());
            applyParagraphFormat(cursor, paragraphFormat());
            if (paragraphs > 1)
                cursor.insertBlock({}, characterFormat());
        }
    }

private:
    bool oneIn(int n) { return random_.bounded(n) == 0; }

    QString text()
    {
        static const QString letters =
            QStringLiteral("abc XYZ 09 {}\\;*-'?\t\u00A0\u00AD\u0081\u008D\u008F\u0090\u009D"
                           "\u00E9\u20AC\u2122\u2013\u03B1\u05D0\u4E2D\uF0B7\uF020\uFFFD\u2028\f") +
            QString::fromUcs4(U"\U0001F600");
        QString result;
        for (int length = random_.bounded(1, 12); length > 0; --length) {
            const auto at = random_.bounded(letters.size());
            const QChar letter = letters[at];
            if (letter.isHighSurrogate())
                result += letters.sliced(at, 2);
            else if (!letter.isLowSurrogate())
                result += letter;
        }
        return result;
    }

    QTextCharFormat characterFormat()
    {
        static const QStringList families{QStringLiteral("Sans"), QStringLiteral("Tengwar Test"),
                                          QStringLiteral("Signs"), QStringLiteral("\u0428\u0440")};
        static const int charsets[] = {0, 2, 128, 204};
        CharacterFormat format;
        format.family = families[random_.bounded(families.size())];
        format.charset = oneIn(3) ? charsets[random_.bounded(4)] : 0;
        format.halfPoints = random_.bounded(1, 200);
        format.offset = oneIn(3) ? 10 * random_.bounded(-20, 20) : 0;
        format.script = static_cast<Script>(oneIn(3) ? random_.bounded(3) : 0);
        format.styles = CharacterStyles::fromInt(random_.bounded(256) & random_.bounded(256));
        if (format.styles & CharacterStyle::AllCapitals) // Qt's capitalization is one of them
            format.styles &= ~CharacterStyles(CharacterStyle::SmallCapitals);
        if (oneIn(3))
            format.colour = 0xFF000000U | random_.bounded(0x1000000U);
        QTextCharFormat result;
        format.applyTo(result);
        return result;
    }

    ParagraphFormat paragraphFormat()
    {
        static const Qt::Alignment alignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter,
                                                   Qt::AlignJustify};
        ParagraphFormat format;
        format.alignment = alignments[random_.bounded(4)];
        if (oneIn(2))
            format.left = random_.bounded(3000);
        if (oneIn(2))
            format.firstLine = random_.bounded(-1000, 1000);
        if (oneIn(3))
            format.right = random_.bounded(2000);
        if (oneIn(3))
            format.spaceBefore = random_.bounded(500);
        if (oneIn(3))
            format.spaceAfter = random_.bounded(500);
        format.bullet = oneIn(3);
        if (oneIn(2))
            format.bulletIndent = random_.bounded(800);
        for (int tabs = oneIn(3) ? random_.bounded(5) : 0; tabs > 0; --tabs)
            format.tabs.append(
                {random_.bounded(10000), static_cast<QTextOption::TabType>(random_.bounded(4))});
        return format;
    }

    QRandomGenerator random_;
};

} // namespace

/// What is written reads back as the same, and is written as the same bytes again.
class tst_RtfRoundTrip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomDocuments()
    {
        const quint32 first = QRandomGenerator::global()->generate();
        qInfo("first seed %u", first);
        for (quint32 seed = first; seed != first + 500; ++seed) {
            QTextDocument document;
            RandomDocument(seed).fill(document);
            const QByteArray written = writeRtf(document);
            QTextDocument again;
            QVERIFY(!readRtf(written, again));
            // In a Tengwar font, U+F0xx are other names for the code page's characters.
            QTextDocument third;
            QVERIFY(!readRtf(writeRtf(again), third));
            QCOMPARE(dump(third), dump(again));
            QCOMPARE(writeRtf(third), writeRtf(again));
            const QString text = document.toRawText();
            if (!text.contains(QChar(0xF0B7)) && !text.contains(QChar(0xF020)))
                QCOMPARE(dump(again).split(u'\n'), dump(document).split(u'\n'));
            if (dump(again) == dump(document))
                QCOMPARE(writeRtf(again), written);
        }
    }

    void unformattedText()
    {
        QTextDocument document;
        document.setDefaultFont(QFont(QStringLiteral("Some Font"), 9));
        QTextCursor(&document).insertText(QStringLiteral("one\ntwo"));
        QTextDocument again;
        QVERIFY(!readRtf(writeRtf(document), again));
        QCOMPARE(dump(again), dump(document));
    }

    void lastParagraphEmpty()
    {
        QTextDocument document;
        QTextCursor(&document).insertText(QStringLiteral("one\n\n"));
        QTextDocument again;
        QVERIFY(!readRtf(writeRtf(document), again));
        QCOMPARE(again.toPlainText(), QStringLiteral("one\n\n"));
    }

    void editedAfterReading()
    {
        QTextDocument document;
        QVERIFY(!readRtf("{\\rtf1{\\fonttbl{\\f0\\fcharset2 Signs;}}\\f0 ab}", document));
        QTextCursor cursor(&document);
        cursor.select(QTextCursor::Document);
        QTextCharFormat other;
        other.setFontFamilies({QStringLiteral("Sans")});
        cursor.mergeCharFormat(other);
        cursor.insertText(QStringLiteral("ab"));
        QTextDocument again;
        QVERIFY(!readRtf(writeRtf(document), again));
        QCOMPARE(again.toPlainText(), QStringLiteral("ab")); // the new font has no signs
    }

    void undoStaysAsItWas()
    {
        QTextDocument document;
        document.setUndoRedoEnabled(true);
        QVERIFY(!readRtf("{\\rtf1 text}", document));
        QVERIFY(document.isUndoRedoEnabled());
        QVERIFY(!document.isUndoAvailable());
        QCOMPARE(readRtf("text", document), RtfError());
        QCOMPARE(document.toPlainText(), QStringLiteral("text"));
    }
};

QTEST_MAIN(tst_RtfRoundTrip)
#include "tst_rtfroundtrip.moc"
