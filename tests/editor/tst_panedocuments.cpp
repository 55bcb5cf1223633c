#include "editor/DocumentsFixture.h"
#include "support/MessageBoxes.h"

#include <memory>

/// New documents, the question whether to save, and what each operation leaves alone.
class tst_PaneDocuments : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { fixture_ = std::make_unique<DocumentsFixture>(); }
    void cleanup() { fixture_.reset(); }

    void marksEveryChange();
    void startsFromTheTemplate();
    void newLeavesTheMark_data();
    void newLeavesTheMark();
    void newEndsOnCancel();
    void newTellsOfAMissingTemplate();
    void newPassesOverADamagedTemplate();
    void asksForEachChangedPane_data();
    void asksForEachChangedPane();
    void asksWithTheNameOfTheFile();
    void neverAsksAboutACleanPane();
    void cancelEndsTheQuestions();
    void knowsPanesByTheirNames();

private:
    std::unique_ptr<DocumentsFixture> fixture_;
};

void tst_PaneDocuments::marksEveryChange()
{
    DocumentsFixture &f = *fixture_;
    QCOMPARE(f.source->Tag(), QString());
    QTest::keyClicks(f.source, QStringLiteral("a"));
    QCOMPARE(f.source->Tag(), dirty);
    QCOMPARE(f.target->Tag(), QString());
    f.source->setTag({});
    f.source->setSelStart(0);
    f.source->setSelLength(1);
    QCOMPARE(f.source->Tag(), QString());
    f.source->setSelBold(true);
    QCOMPARE(f.source->Tag(), dirty);
}

void tst_PaneDocuments::startsFromTheTemplate()
{
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    f.source->setTag({});
    f.documents.NewDocument(*f.source);
    f.documents.NewDocument(*f.target);
    QCOMPARE(f.source->Text(), QString());
    QCOMPARE(f.source->SelFormat().fontName.value(), QStringLiteral("DejaVu Sans"));
    QCOMPARE(f.source->SelFormat().fontSize.value(), 15.0);
    QCOMPARE(f.target->SelFormat().fontName.value(), QStringLiteral("DejaVu Serif"));
    QCOMPARE(f.captions, (QStringList{QStringLiteral("1 Source"), QStringLiteral("2 Target")}));
    QCOMPARE(f.cleared, (QStringList{QStringLiteral("rom*"), QStringLiteral("tng*")}));
    QCOMPARE(f.documents.SourceFileName(), QString());
}

void tst_PaneDocuments::newLeavesTheMark_data()
{
    QTest::addColumn<QString>("mark");
    QTest::newRow("untouched") << QString();
    QTest::newRow("changed") << dirty;
}

void tst_PaneDocuments::newLeavesTheMark()
{
    QFETCH(const QString, mark);
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    f.source->setTag(mark);
    MessageBoxes boxes({QMessageBox::No});
    f.documents.NewDocument(*f.source);
    QCOMPARE(boxes.seen().size(), mark.isEmpty() ? 0U : 1U);
    QCOMPARE(f.source->Text(), QString());
    QCOMPARE(f.source->Tag(), mark);
}

void tst_PaneDocuments::newEndsOnCancel()
{
    DocumentsFixture &f = *fixture_;
    f.target->setText(QStringLiteral("abc"));
    MessageBoxes boxes({QMessageBox::Cancel});
    f.documents.NewDocument(*f.target);
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(f.target->Text(), QStringLiteral("abc"));
    QVERIFY(f.captions.isEmpty());
    QVERIFY(f.cleared.isEmpty());
}

void tst_PaneDocuments::newTellsOfAMissingTemplate()
{
    DocumentsFixture &f = *fixture_;
    f.write(QStringLiteral("letter.txt"), "abc");
    f.documents.openDropped(*f.target, f.path(QStringLiteral("letter.txt")));
    f.captions.clear();
    f.cleared.clear();
    QFile::remove(f.path(QStringLiteral("Target.tpl")));
    MessageBoxes boxes;
    f.documents.NewDocument(*f.target);
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].text,
             QStringLiteral("Warning! Could not find the template file Target.tpl. Please save an "
                            "empty RTF document with the name Target.tpl in the folder ") +
                 f.folder.path() + QLatin1Char('.'));
    QCOMPARE(boxes.seen()[0].icon, QMessageBox::Critical);
    QCOMPARE(boxes.seen()[0].buttons, QMessageBox::Ok);
    QCOMPARE(f.target->Text(), QStringLiteral("abc"));
    QCOMPARE(f.documents.TargetFileName(), f.path(QStringLiteral("letter.txt")));
    QVERIFY(f.captions.isEmpty());
    QVERIFY(f.cleared.isEmpty());
}

void tst_PaneDocuments::newPassesOverADamagedTemplate()
{
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    f.source->setTag({});
    f.write(QStringLiteral("Source.tpl"), "no RTF");
    MessageBoxes boxes;
    f.documents.NewDocument(*f.source);
    QVERIFY(boxes.seen().empty());
    QCOMPARE(f.source->Text(), QStringLiteral("abc"));
    QVERIFY(f.captions.isEmpty());
}

void tst_PaneDocuments::asksForEachChangedPane_data()
{
    QTest::addColumn<int>("panes");
    QTest::addColumn<QStringList>("questions");
    const QString source =
        QStringLiteral("The source file has been changed. Do you want to save the changes?");
    const QString target =
        QStringLiteral("The target file has been changed. Do you want to save the changes?");
    QTest::newRow("none") << 0 << QStringList();
    QTest::newRow("source") << 1 << QStringList{source};
    QTest::newRow("target") << 2 << QStringList{target};
    QTest::newRow("both") << 3 << QStringList{source, target};
}

void tst_PaneDocuments::asksForEachChangedPane()
{
    QFETCH(const int, panes);
    QFETCH(const QStringList, questions);
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    f.target->setText(QStringLiteral("def"));
    MessageBoxes boxes({QMessageBox::No, QMessageBox::No});
    QCOMPARE(f.documents.AskSaveChanges(PaneCode(panes)), SaveAnswer::Proceed);
    QStringList asked;
    for (const MessageBoxes::Seen &box : boxes.seen()) {
        asked += box.text;
        QCOMPARE(box.icon, QMessageBox::Question);
        QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    }
    QCOMPARE(asked, questions);
    QCOMPARE(f.source->Tag(), dirty);
    QVERIFY2(f.rescuedNames().isEmpty(), "the user let the text go");
}

void tst_PaneDocuments::asksWithTheNameOfTheFile()
{
    DocumentsFixture &f = *fixture_;
    const QString path = f.path(QStringLiteral("a & <b>.txt"));
    f.write(QStringLiteral("a & <b>.txt"), "abc");
    f.documents.openDropped(*f.source, path);
    QTest::keyClicks(f.source, QStringLiteral("x"));
    MessageBoxes boxes({QMessageBox::Yes});
    QCOMPARE(f.documents.AskSaveChanges(PaneCode::Both), SaveAnswer::Proceed);
    QCOMPARE(boxes.seen().size(), 1U);
    QCOMPARE(boxes.seen()[0].text,
             QStringLiteral("The source file ") + path +
                 QStringLiteral(" has been changed. Do you want to save the changes?"));
    QCOMPARE(f.read(QStringLiteral("a & <b>.txt")), QByteArray("xabc"));
    QCOMPARE(f.source->Tag(), QString());
}

void tst_PaneDocuments::neverAsksAboutACleanPane()
{
    DocumentsFixture &f = *fixture_;
    f.target->setText(QStringLiteral("def"));
    f.target->setTag({});
    MessageBoxes boxes;
    QCOMPARE(f.documents.AskSaveChanges(PaneCode::Both), SaveAnswer::Proceed);
    QVERIFY(boxes.seen().empty());
}

void tst_PaneDocuments::cancelEndsTheQuestions()
{
    DocumentsFixture &f = *fixture_;
    f.source->setText(QStringLiteral("abc"));
    f.target->setText(QStringLiteral("def"));
    MessageBoxes boxes({QMessageBox::Cancel});
    const SaveAnswer answer = f.documents.AskSaveChanges(PaneCode::Both);
    QCOMPARE(int(answer), -1);
    QCOMPARE(boxes.seen().size(), 1U);
}

void tst_PaneDocuments::knowsPanesByTheirNames()
{
    DocumentsFixture &f = *fixture_;
    RichTextBox other;
    other.setObjectName(QStringLiteral("rtbOther"));
    other.setText(QStringLiteral("abc"));
    f.documents.NewDocument(other);
    f.documents.OpenDocument(other);
    f.documents.openDropped(other, f.path(QStringLiteral("Source.tpl")));
    f.documents.SaveDocument(other);
    f.documents.SaveDocumentAs(other);
    f.documents.PrintDocument(other);
    QCOMPARE(other.Text(), QStringLiteral("abc"));
    QVERIFY(f.captions.isEmpty());
    QVERIFY(f.cleared.isEmpty());
}

QTEST_MAIN(tst_PaneDocuments)
#include "tst_panedocuments.moc"
