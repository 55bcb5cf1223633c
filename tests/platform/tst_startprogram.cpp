#include "engine/RuntimeError.h"
#include "platform/StartProgram.h"
#include "support/RecordingProgram.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_StartProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void argumentsArrive_data();
    void argumentsArrive();
    void bareNamesAreNotSearchedFor();
    void failures_data();
    void failures();
};

namespace {

enum class Kind { Missing, MissingFolder, Folder, NotExecutable, NoProgram };

void make(Kind kind, const QString &path)
{
    if (kind == Kind::Folder)
        QVERIFY(QDir().mkpath(path));
    if (kind != Kind::NotExecutable && kind != Kind::NoProgram)
        return;
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("\x01\x02 no program\n");
    if (kind == Kind::NoProgram)
        file.setPermissions(file.permissions() | QFile::ExeOwner | QFile::ExeUser);
}

} // namespace

void tst_StartProgram::argumentsArrive_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("none") << u"editor"_s << QStringList();
    QTest::newRow("several") << u"editor"_s << QStringList{u"Black"_s, u"Speech"_s};
    QTest::newRow("blanks, quotes, signs")
        << u"my editor; \"$HOME\""_s << QStringList{u"a b"_s, u"\"c'"_s, u"*"_s, u"-é"_s};
}

void tst_StartProgram::argumentsArrive()
{
    QFETCH(QString, name);
    QFETCH(QStringList, arguments);
    const QTemporaryDir folder;
    const RecordingProgram program(folder.filePath(name));
    startProgram(program.path(), arguments);
    QTRY_VERIFY(program.wasStarted());
    QCOMPARE(program.commandLine(), QStringList(program.path()) + arguments);
}

void tst_StartProgram::bareNamesAreNotSearchedFor()
{
    QVERIFY_THROWS_EXCEPTION(RuntimeError, startProgram(u"true"_s));
}

void tst_StartProgram::failures_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<ErrorNumber>("expected");
    QTest::newRow("missing") << Kind::Missing << ErrorNumber::FileNotFound;
    QTest::newRow("missing folder") << Kind::MissingFolder << ErrorNumber::FileNotFound;
    QTest::newRow("folder") << Kind::Folder << ErrorNumber::PermissionDenied;
    QTest::newRow("not executable") << Kind::NotExecutable << ErrorNumber::PermissionDenied;
    QTest::newRow("no program") << Kind::NoProgram << ErrorNumber::PathFileAccess;
}

void tst_StartProgram::failures()
{
    QFETCH(Kind, kind);
    QFETCH(ErrorNumber, expected);
    const QTemporaryDir folder;
    const QString path =
        folder.filePath(kind == Kind::MissingFolder ? u"none/editor"_s : u"editor"_s);
    make(kind, path);
    try {
        startProgram(path);
        QFAIL("started");
    } catch (const RuntimeError &error) {
        QCOMPARE(error.number(), expected);
        QCOMPARE(error.where(), path);
    }
}

QTEST_GUILESS_MAIN(tst_StartProgram)
#include "tst_startprogram.moc"
