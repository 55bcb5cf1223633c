#include "preferences/frmBrowse.h"

#include "editor/Settings.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>

namespace {

/// Two folders beside each other, one with modes, and the dialog opened at the first.
struct Browser
{
    QTemporaryDir folder;
    QString first = folder.filePath(QStringLiteral("first"));
    QString second = folder.filePath(QStringLiteral("second"));
    std::unique_ptr<frmBrowse> dialog;

    Browser()
    {
        QDir().mkpath(first);
        QDir().mkpath(second);
        for (const char *name : {"Quenya.mod", "Sindarin.mod", "notes.txt", "Quenya.bak"}) {
            QFile file(second + u'/' + QLatin1StringView(name));
            if (!file.open(QIODevice::WriteOnly))
                qFatal("The test's folder can't be written");
        }
        dialog = std::make_unique<frmBrowse>(Settings(), first, nullptr);
        dialog->show();
        if (!QTest::qWaitForWindowActive(dialog.get()))
            qFatal("The window did not become active");
    }

    template<typename Control> [[nodiscard]] Control &find(const char *name) const
    {
        return *dialog->findChild<Control *>(QLatin1StringView(name));
    }

    [[nodiscard]] QString path() const { return find<QLabel>("lblPath").text(); }

    [[nodiscard]] QStringList modes() const
    {
        QStringList names;
        const auto &list = find<QListWidget>("File1");
        for (int row = 0; row < list.count(); ++row)
            names += list.item(row)->text();
        return names;
    }

    /// Goes from the first folder to the second, as soon as the tree knows it.
    void goDown() const
    {
        QTreeView &tree = find<QTreeView>("Dir1");
        QTRY_COMPARE(tree.model()->rowCount(tree.currentIndex().parent()), 2);
        QTest::keyClick(&tree, Qt::Key_Down);
        QTRY_COMPARE(path(), second);
    }
};

bool isInSight(const QTreeView &tree)
{
    const QRect place = tree.visualRect(tree.currentIndex());
    return place.isValid() && tree.viewport()->rect().contains(place.center());
}

} // namespace

class tst_frmBrowse : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensAtTheStartFolder()
    {
        const Browser browser;
        QCOMPARE(browser.dialog->windowTitle(), QStringLiteral("Select Folder"));
        QCOMPARE(browser.path(), browser.first);
        QCOMPARE(browser.modes(), QStringList());
        QCOMPARE(browser.find<QPushButton>("cmdOK").text(), QStringLiteral("Select"));
        QCOMPARE(browser.dialog->focusWidget()->objectName(), QStringLiteral("Dir1"));
    }

    void theFolderIsInSight()
    {
        const Browser browser;
        const QTreeView &tree = browser.find<QTreeView>("Dir1");
        QTRY_COMPARE(tree.model()->rowCount(tree.currentIndex().parent()), 2);
        QTRY_VERIFY(isInSight(tree));
    }

    void theFolderIsInSightAmongMany()
    {
        constexpr int Many = 80;
        const QTemporaryDir above;
        for (int i = 0; i < Many; ++i)
            QVERIFY(QDir(above.path()).mkpath(QString::number(100 + i) + QStringLiteral("/a/b")));
        frmBrowse dialog(Settings(), above.filePath(QStringLiteral("170/a/b")), nullptr);
        const QTreeView &tree = *dialog.findChild<QTreeView *>(QStringLiteral("Dir1"));
        const QSignalSpy sorted(tree.model(), &QAbstractItemModel::layoutChanged);
        dialog.show();
        const QModelIndex among = tree.currentIndex().parent().parent().parent();
        QTRY_COMPARE(tree.model()->rowCount(among), Many);
        QTRY_VERIFY(!sorted.isEmpty());
        QTRY_VERIFY(isInSight(tree));
    }

    void listsTheModesOfTheFolder()
    {
        const Browser browser;
        browser.goDown();
        QCOMPARE(browser.modes(),
                 QStringList({QStringLiteral("Quenya.mod"), QStringLiteral("Sindarin.mod")}));
    }

    void selectedByEnter()
    {
        const Browser browser;
        browser.goDown();
        QTest::keyClick(&browser.find<QTreeView>("Dir1"), Qt::Key_Return);
        QCOMPARE(browser.dialog->result(), int(QDialog::Accepted));
        QVERIFY(!browser.dialog->isVisible());
        QCOMPARE(browser.dialog->chosenFolder(), browser.second);
    }

    void cancelled_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("Escape") << true;
        QTest::newRow("Cancel") << false;
    }

    void cancelled()
    {
        QFETCH(bool, byKey);
        const Browser browser;
        browser.goDown();
        if (byKey)
            QTest::keyClick(&browser.find<QTreeView>("Dir1"), Qt::Key_Escape);
        else
            QTest::mouseClick(&browser.find<QPushButton>("cmdCancel"), Qt::LeftButton);
        QVERIFY(!browser.dialog->isVisible());
        QCOMPARE(browser.dialog->chosenFolder(), QString());
    }

    void drivesAreListedOnlyWhereThereIsAChoice()
    {
        const Browser browser;
        const bool hasChoice = QDir::drives().size() > 1;
        QCOMPARE(browser.find<QComboBox>("Drive1").isVisible(), hasChoice);
        QCOMPARE(browser.find<QLabel>("lblDrive").isVisible(), hasChoice);
        QCOMPARE(browser.find<QComboBox>("Drive1").count(), int(QDir::drives().size()));
    }

    void aLongPathDoesNotWidenTheDialog()
    {
        const Browser browser;
        const QString deep = browser.folder.filePath(QString(200, u'x'));
        QVERIFY(QDir().mkpath(deep));
        frmBrowse dialog(Settings(), deep, nullptr);
        QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("lblPath"))->text(), deep);
        QVERIFY(dialog.minimumSizeHint().width() <= browser.dialog->minimumSizeHint().width());
    }
};

QTEST_MAIN(tst_frmBrowse)
#include "tst_frmbrowse.moc"
