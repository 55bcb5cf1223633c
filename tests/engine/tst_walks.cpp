#include "LiteralWalk.h"
#include "engine/CodePage.h"
#include "engine/TranscribeText.h"
#include "engine/TranscriptionStream.h"

#include <QRandomGenerator>
#include <QTest>

/// Holds the fast walk and the walk in pieces against the literal one, on random tables and texts
/// made so that rules meet: few letters, control characters, short and long windows, odd
/// conditions.
class tst_Walks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void agree();
    void agreeOnLargeTables();
    void agreeAtEveryCut();

private:
    [[nodiscard]] int below(int bound) { return static_cast<int>(random_.bounded(bound)); }
    [[nodiscard]] QChar character();
    [[nodiscard]] QString text(int shortest, int longest);
    [[nodiscard]] QString field(int longest);
    [[nodiscard]] QString condition();
    [[nodiscard]] ModeTable table(int rules);
    void compare(const ModeTable &table, const QString &text);

    QRandomGenerator random_;
};

void tst_Walks::initTestCase()
{
    const quint32 seed = qEnvironmentVariableIsSet("QUILLON_SEED")
                             ? qEnvironmentVariableIntValue("QUILLON_SEED")
                             : QRandomGenerator::global()->generate();
    qInfo("QUILLON_SEED=%u", seed);
    random_.seed(seed);
}

QChar tst_Walks::character()
{
    static const QString common = u"aaabbbcdt  "_qs;
    static const QString odd = u"ABÉé\r\n\n\x01\x1F!'-/0,.\u00A0\u00AD€ŷ\u0080\uFF21"_qs;
    return below(8) != 0 ? common.at(below(static_cast<int>(common.size())))
                         : odd.at(below(static_cast<int>(odd.size())));
}

QString tst_Walks::text(int shortest, int longest)
{
    QString text;
    const int length = shortest + below(longest - shortest + 1);
    while (text.size() < length) {
        if (below(60) == 0)
            text += below(2) == 0 ? u"😀"_qs : u"\t"_qs;
        else
            text += character();
    }
    return text;
}

/// A field as a file can hold it: no TAB, only the code page.
QString tst_Walks::field(int longest)
{
    QString field = text(0, longest);
    field.removeIf([](QChar c) { return c == u'\t' || !codePageByte(c.unicode()); });
    return field;
}

QString tst_Walks::condition()
{
    switch (below(6)) {
    case 0:
        return u"\r"_qs;
    case 1:
        return u"\r"_qs + field(2);
    case 2:
        return field(2);
    default:
        return {};
    }
}

ModeTable tst_Walks::table(int rules)
{
    ModeTable table;
    table.CaseMode = static_cast<qint16>(below(20) == 0 ? 2 : below(2));
    for (int i = 0; i < rules; ++i) {
        const int longest = below(4) == 0 ? 20 : 3;
        // The file cannot hold an empty one, a table built by hand can.
        table.appendRule(field(longest), QString::number(i) + u';', condition(), condition(),
                         field(2));
    }
    return table;
}

void tst_Walks::compare(const ModeTable &table, const QString &text)
{
    LiteralWalk literal{table, u"?"_qs};
    literal.run(text);

    TranscriptionContext context;
    context.UndefinedText = u"?"_qs;
    context.UndefinedAlert = true;
    int steps = 0;
    context.Yield = [&steps] { ++steps; };
    QString folded = text;
    QCOMPARE(TranscribeText(folded, table, context), literal.output);
    QCOMPARE(context.AlertIsDue, literal.hadUndefined);
    QCOMPARE(steps, literal.steps);
}

void tst_Walks::agree()
{
    for (int i = 0; i < 3000 && !QTest::currentTestFailed(); ++i) {
        const ModeTable rules = table(below(30));
        for (int j = 0; j < 10; ++j)
            compare(rules, text(0, j < 5 ? 20 : 40));
    }
}

void tst_Walks::agreeOnLargeTables()
{
    for (int i = 0; i < 10 && !QTest::currentTestFailed(); ++i)
        compare(table(500 + below(200)), text(200, 300));
}

void tst_Walks::agreeAtEveryCut()
{
    for (int i = 0; i < 150 && !QTest::currentTestFailed(); ++i) {
        const ModeTable rules = table(20);
        const QString whole = text(0, 60);
        LiteralWalk literal{rules, u"?"_qs};
        literal.run(whole);
        for (qsizetype cut = 0; cut <= whole.size(); ++cut) {
            QString output;
            TranscriptionStream stream(
                rules, u"?"_qs, [&](Step::Kind, qint64, QStringView part) { output += part; });
            stream.feed(QStringView(whole).first(cut));
            if (cut % 2 == 0)
                stream.feed(QStringView(whole).sliced(cut));
            else
                for (const QChar &unit : QStringView(whole).sliced(cut))
                    stream.feed(QStringView(&unit, 1));
            stream.finish();
            QCOMPARE(output, literal.output);
            QCOMPARE(stream.hadUndefined(), literal.hadUndefined);
        }
    }
}

QTEST_APPLESS_MAIN(tst_Walks)
#include "tst_walks.moc"
