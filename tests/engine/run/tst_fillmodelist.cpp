#include "editor/Settings.h"
#include "engine/run/FillModeList.h"
#include "support/ModeFolder.h"

#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QTest>

class tst_FillModeList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsNamesInOrder();
    void selectsTheCurrentMode();
    void currentModeWithoutFileIsCleared();
    void emptyFolderLeavesTheCurrentMode_data();
    void emptyFolderLeavesTheCurrentMode();

private:
    static QStringList entries(const QComboBox &list)
    {
        QStringList names;
        for (int i = 0; i < list.count(); ++i)
            names.append(list.itemText(i));
        return names;
    }
};

void tst_FillModeList::listsNamesInOrder()
{
    ModeFolder folder;
    for (const QString &name : {u"sindarin"_qs, u"English"_qs, u"Quenya"_qs, u"Black Speech"_qs,
                                u"A & B"_qs, u"ñoldo"_qs, u""_qs})
        folder.add(name);
    folder.write(u"Other.MOD"_qs, {});
    folder.write(u"English.bak"_qs, {});
    QVERIFY(QDir(folder.path()).mkdir(u"Folder.mod"_qs));
    Settings settings;
    settings.ModePath = folder.path();
    QComboBox list;
    list.addItem(u"old"_qs);
    FillModeList(list, settings);
    QCOMPARE(entries(list), QStringList({u"A & B"_qs, u"Black Speech"_qs, u"English"_qs,
                                         u"Quenya"_qs, u"sindarin"_qs, u"ñoldo"_qs}));
}

void tst_FillModeList::selectsTheCurrentMode()
{
    ModeFolder folder;
    folder.add(u"One"_qs);
    folder.add(u"Two"_qs);
    Settings settings;
    settings.ModePath = folder.path();
    settings.CurrentMode = u"Two"_qs;
    QComboBox combo;
    FillModeList(combo, settings);
    QCOMPARE(combo.currentText(), u"Two"_qs);
    QListWidget list;
    FillModeList(list, settings);
    QCOMPARE(list.currentItem()->text(), u"Two"_qs);
    QCOMPARE(settings.CurrentMode, u"Two"_qs);
}

void tst_FillModeList::currentModeWithoutFileIsCleared()
{
    ModeFolder folder;
    folder.add(u"One"_qs);
    Settings settings;
    settings.ModePath = folder.path();
    settings.CurrentMode = u"one"_qs; // names are compared as they stand
    QComboBox list;
    FillModeList(list, settings);
    QCOMPARE(list.currentIndex(), -1);
    QCOMPARE(settings.CurrentMode, QString());
}

void tst_FillModeList::emptyFolderLeavesTheCurrentMode_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no such folder") << u"/nowhere/at/all"_qs;
    QTest::newRow("no path") << QString();
    QTest::newRow("no modes in it") << QString(QStringLiteral(QUILLON_SOURCE_FOLDER "/cmake"));
}

void tst_FillModeList::emptyFolderLeavesTheCurrentMode()
{
    QFETCH(QString, path);
    Settings settings;
    settings.ModePath = path;
    settings.CurrentMode = u"One"_qs;
    QComboBox list;
    list.addItem(u"One"_qs);
    FillModeList(list, settings);
    QCOMPARE(list.count(), 0);
    QCOMPARE(settings.CurrentMode, u"One"_qs);
}

QTEST_MAIN(tst_FillModeList)
#include "tst_fillmodelist.moc"
