#include "editor/DefaultFonts.h"

#include <QTest>

class tst_DefaultFonts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tengwarFont_data();
    void tengwarFont();
    void textFont_data();
    void textFont();
};

namespace {

void addColumns()
{
    QTest::addColumn<QStringList>("installed");
    QTest::addColumn<QString>("chosen");
}

QStringList list(const char *names)
{
    return QString::fromLatin1(names).split(QLatin1Char(','), Qt::SkipEmptyParts);
}

void row(const char *name, const char *installed, const char *chosen)
{
    QTest::newRow(name) << list(installed) << QString::fromLatin1(chosen);
}

} // namespace

void tst_DefaultFonts::tengwarFont_data()
{
    addColumns();
    row("the first of the classic ones",
        "Sans,Tengwar Noldor,Tengwar Sindarin,Tengwar Quenya,Tengwar Zeta", "Tengwar Quenya");
    row("the second", "Tengwar Noldor,Tengwar Sindarin,Tengwar Zeta", "Tengwar Sindarin");
    row("the third", "Sans,Tengwar Noldor,Tengwar Zeta", "Tengwar Noldor");
    row("exact names only", "Sans,Tengwar Quenya Alt,My TENGWAR,Serif", "My TENGWAR");
    row("the last with the word in its name", "Tengwar Alpha,Sans,Tengwa Beta,Serif",
        "Tengwa Beta");
    row("else the first", "Sans,Serif", "Sans");
    row("no fonts", "", "");
}

void tst_DefaultFonts::tengwarFont()
{
    QFETCH(QStringList, installed);
    QTEST(ChooseDefaultTengwarFont(installed), "chosen");
}

void tst_DefaultFonts::textFont_data()
{
    addColumns();
    row("first choice", "Sans,MS Sans Serif,Arial,Verdana", "Verdana");
    row("second choice", "Sans,MS Sans Serif,Arial", "Arial");
    row("third choice", "Sans,MS Sans Serif", "MS Sans Serif");
    row("exact names only", "Sans,Arial Narrow,verdana", "Sans");
    row("no fonts", "", "");
}

void tst_DefaultFonts::textFont()
{
    QFETCH(QStringList, installed);
    QTEST(ChooseDefaultTextFont(installed), "chosen");
}

QTEST_APPLESS_MAIN(tst_DefaultFonts)
#include "tst_defaultfonts.moc"
