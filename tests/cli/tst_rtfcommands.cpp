#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

class tst_RtfCommands : public QObject
{
    Q_OBJECT

private:
    struct Result
    {
        int status = -1;
        QByteArray output;
        QByteArray complaint;
    };

    static Result run(const QStringList &arguments)
    {
        QProcess process;
        process.start(QStringLiteral(QUILLON_PROGRAM_FOLDER "/quillon-cli"), arguments);
        if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
            return {};
        return {process.exitCode(), process.readAllStandardOutput(),
                process.readAllStandardError()};
    }

    QString save(const QString &name, const QByteArray &bytes) const
    {
        QFile file(folder_.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("the temporary folder can't be written");
        return file.fileName();
    }

    static QByteArray bytesOf(const QString &name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    const QTemporaryDir folder_;

private Q_SLOTS:
    void printsText()
    {
        const QString name = save(QStringLiteral("in.rtf"),
                                  "{\\rtf1 caf\\'e9\\line b\\par{\\*\\pn\\pnlvlblt}c\\par}");
        const Result result = run({QStringLiteral("rtf2text"), name});
        QCOMPARE(result.complaint, QByteArray());
        QCOMPARE(result.output, QByteArray("caf\xC3\xA9\nb\n\xE2\x80\xA2 c\n"));
        QCOMPARE(result.status, 0);
    }

    void rewrites()
    {
        const QString in = save(QStringLiteral("in.rtf"), "{\\rtf1{\\b a}b}");
        const QString out = folder_.filePath(QStringLiteral("out.rtf"));
        QCOMPARE(run({QStringLiteral("rtf2rtf"), in, out}).status, 0);
        const QByteArray once = bytesOf(out);
        QVERIFY(once.startsWith("{\\rtf1\\ansi"));
        QCOMPARE(run({QStringLiteral("rtf2rtf"), out, out}).status, 0);
        QCOMPARE(bytesOf(out), once);
        QCOMPARE(run({QStringLiteral("rtf2text"), out}).output, QByteArray("ab\n"));
    }

    void failures()
    {
        const QString text = save(QStringLiteral("in.txt"), "text");
        const QString out = save(QStringLiteral("out.rtf"), "old");
        for (const QStringList &arguments : {QStringList{QStringLiteral("rtf2text"), text},
                                             QStringList{QStringLiteral("rtf2rtf"), text, out}}) {
            const Result result = run(arguments);
            QCOMPARE(result.status, 1);
            QCOMPARE(result.output, QByteArray());
            QVERIFY(result.complaint.endsWith("in.txt: not RTF at byte 0\n"));
        }
        QCOMPARE(bytesOf(out), QByteArray("old"));
        const QString missing = folder_.filePath(QStringLiteral("missing.rtf"));
        QCOMPARE(run({QStringLiteral("rtf2text"), missing}).status, 1);
        QVERIFY(run({QStringLiteral("rtf2text"), folder_.path()}).status == 1);
        const QString in = save(QStringLiteral("in.rtf"), "{\\rtf1 a}");
        const QString nowhere = folder_.filePath(QStringLiteral("missing/out.rtf"));
        QCOMPARE(run({QStringLiteral("rtf2rtf"), in, nowhere}).status, 1);
    }

    void usage()
    {
        QCOMPARE(run({QStringLiteral("rtf2text")}).status, 2);
        QCOMPARE(run({QStringLiteral("rtf2rtf"), QStringLiteral("one")}).status, 2);
        QCOMPARE(run({QStringLiteral("rtf2text"), QStringLiteral("--wrong")}).status, 2);
        const Result help = run({QStringLiteral("rtf2rtf"), QStringLiteral("--help")});
        QCOMPARE(help.status, 0);
        QVERIFY(help.output.contains("IN OUT"));
    }
};

QTEST_GUILESS_MAIN(tst_RtfCommands)
#include "tst_rtfcommands.moc"
