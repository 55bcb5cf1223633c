#include "editor/ApplyFormFonts.h"
#include "editor/Settings.h"

#include <QFont>
#include <QTest>
#include <QWidget>

class tst_ApplyFormFonts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fontsByTag();
};

void tst_ApplyFormFonts::fontsByTag()
{
    QWidget form;
    auto *group = new QWidget(&form);
    const auto control = [group](const char *tag) {
        auto *made = new QWidget(group);
        if (tag)
            made->setProperty("Tag", QString::fromLatin1(tag));
        QFont font;
        font.setFamilies({QStringLiteral("Before")});
        font.setPointSize(17);
        font.setItalic(true);
        made->setFont(font);
        return made;
    };
    const QWidget *text = control("text");
    const QWidget *tengwar = control("tengwar");
    const QWidget *changed = control("Dirty");
    const QWidget *untagged = control(nullptr);

    Settings settings;
    settings.GenericRomanFont = QStringLiteral("Roman Font");
    settings.GenericTengwarFont = QStringLiteral("Tengwar Font");
    ApplyFormFonts(form, settings);

    QCOMPARE(text->font().family(), QStringLiteral("Roman Font"));
    QCOMPARE(tengwar->font().family(), QStringLiteral("Tengwar Font"));
    QCOMPARE(changed->font().family(), QStringLiteral("Before"));
    QCOMPARE(untagged->font().family(), QStringLiteral("Before"));
    QCOMPARE(text->font().pointSize(), 17);
    QVERIFY(tengwar->font().italic());
}

QTEST_MAIN(tst_ApplyFormFonts)
#include "tst_applyformfonts.moc"
