#include "rtf/RtfFormat.h"

#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>

class tst_RtfFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void characterOffsetsAddUp()
    {
        QTextCharFormat format;
        CharacterFormat attributes;
        attributes.family = QStringLiteral("Sans");
        attributes.offset = 30;
        attributes.applyTo(format);
        attributes = CharacterFormat::of(format, {});
        QCOMPARE(attributes.offset, 30);
        QVERIFY(format.baselineOffset() > 0);
        attributes.offset += 30;
        attributes.applyTo(format);
        QCOMPARE(CharacterFormat::of(format, {}).offset, 60);
        QCOMPARE(CharacterFormat::of(format, {}), attributes);
        attributes.offset = 0;
        attributes.applyTo(format);
        QVERIFY(!format.hasProperty(QTextFormat::TextBaselineOffset));
    }

    void charsetGoesWithItsFont()
    {
        CharacterFormat attributes;
        attributes.family = QStringLiteral("Signs");
        attributes.charset = 2;
        QVERIFY(attributes.isSymbolFont());
        QTextCharFormat format;
        attributes.applyTo(format);
        format.setFontFamilies({QStringLiteral("Sans")});
        QCOMPARE(CharacterFormat::of(format, {}).charset, 0);
        attributes.family = QStringLiteral("My TENGWAR");
        QVERIFY(!attributes.isSymbolFont());
    }

    void lengthsBecomePixels()
    {
        ParagraphFormat attributes;
        attributes.left = 720;
        attributes.firstLine = -360;
        attributes.right = 7;
        attributes.tabs = {{1440, QTextOption::RightTab}};
        QTextBlockFormat format;
        attributes.applyTo(format);
        QCOMPARE(format.leftMargin(), 48.0);
        QCOMPARE(format.textIndent(), -24.0);
        QCOMPARE(format.tabPositions().constFirst().position, 48.0); // from the left margin
        QCOMPARE(ParagraphFormat::of(format), attributes);
    }

    void bulletsComeAndGo()
    {
        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText(QStringLiteral("one\ntwo\nthree"));
        ParagraphFormat attributes;
        attributes.bullet = true;
        attributes.bulletIndent = 300;
        cursor.setPosition(1);
        cursor.setPosition(5, QTextCursor::KeepAnchor);
        applyParagraphFormat(cursor, attributes);
        const QTextBlock first = document.begin();
        QVERIFY(first.textList() != nullptr);
        QCOMPARE(first.next().textList(), first.textList());
        QVERIFY(document.lastBlock().textList() == nullptr);
        QCOMPARE(first.blockFormat().leftMargin(), 20.0);
        applyParagraphFormat(QTextCursor(document.lastBlock()), attributes);
        QVERIFY(document.lastBlock().textList() != nullptr);

        attributes.bullet = false;
        applyParagraphFormat(cursor, attributes);
        QVERIFY(first.textList() == nullptr);
        QCOMPARE(ParagraphFormat::of(first.blockFormat()), attributes);
    }

    void pageBreaksBreakPages_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("pages");
        QTest::newRow("none") << QStringLiteral("one\ntwo") << 1;
        QTest::newRow("within a paragraph") << QStringLiteral("one\ftwo") << 2;
        QTest::newRow("at a paragraph's end") << QStringLiteral("one\f\ntwo") << 2;
        QTest::newRow("at a paragraph's start") << QStringLiteral("one\n\ftwo") << 2;
        QTest::newRow("at the end") << QStringLiteral("one\f") << 1;
        QTest::newRow("several") << QStringLiteral("one\ftwo\fthree\n\ffour") << 4;
    }

    void pageBreaksBreakPages()
    {
        QFETCH(const QString, text);
        QTextDocument document;
        QTextCursor(&document).insertText(text);
        applyPageBreaks(document);
        document.setPageSize({400, 600});
        QTEST(document.pageCount(), "pages");
        QVERIFY(!document.toPlainText().contains(u'\f'));
    }
};

QTEST_MAIN(tst_RtfFormat)
#include "tst_rtfformat.moc"
