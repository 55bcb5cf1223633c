#include "editor/DocumentsFixture.h"
#include "support/PrintDialogs.h"

#include <QProcess>
#include <memory>

namespace {

/// What a program says about a file; empty if there is no such program.
QString output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

/// Print, into PDF files that are read back.
class tst_Printing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture_ = std::make_unique<DocumentsFixture>(); }
    void cleanup() { fixture_.reset(); }

    void printsThePane();
    void printsTheSelection();
    void cancelPrintsNothing();

private:
    [[nodiscard]] QString printed() const
    {
        return output(QStringLiteral("pdftotext"),
                      {fixture_->path(QStringLiteral("out.pdf")), QStringLiteral("-")});
    }

    std::unique_ptr<DocumentsFixture> fixture_;
};

void tst_Printing::printsThePane()
{
    DocumentsFixture &f = *fixture_;
    f.target->setText(QStringLiteral("Ai! laurie lantar\r\nlassi surinen"));
    f.target->setSelLength(f.target->TextLength());
    f.target->setSelFontName(QStringLiteral("DejaVu Serif"));
    f.target->setSelStart(0);
    f.target->setTag({});
    PrintDialogs dialogs(f.path(QStringLiteral("out.pdf")));
    f.documents.PrintDocument(*f.target);
    QCOMPARE(dialogs.count(), 1);
    QCOMPARE(printed().simplified(), QStringLiteral("Ai! laurie lantar lassi surinen"));
    const QString fonts = output(QStringLiteral("pdffonts"), {f.path(QStringLiteral("out.pdf"))});
    QVERIFY2(fonts.contains(QStringLiteral("DejaVuSerif")), qPrintable(fonts));
    QCOMPARE(f.target->Tag(), QString());
}

void tst_Printing::printsTheSelection()
{
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("one two three"));
    f.source->setSelStart(4);
    f.source->setSelLength(3);
    PrintDialogs dialogs(f.path(QStringLiteral("out.pdf")));
    f.documents.PrintDocument(*f.source);
    QCOMPARE(printed().simplified(), QStringLiteral("two"));
    QCOMPARE(f.source->SelText(), QStringLiteral("two"));
}

void tst_Printing::cancelPrintsNothing()
{
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    PrintDialogs dialogs;
    f.documents.PrintDocument(*f.source);
    QCOMPARE(dialogs.count(), 1);
    QVERIFY(!f.exists(QStringLiteral("out.pdf")));
}

QTEST_MAIN(tst_Printing)
#include "tst_printing.moc"
