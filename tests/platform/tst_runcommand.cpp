#include "platform/MessageBox.h"
#include "platform/RunCommand.h"
#include "support/BracketTranslator.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <new>

namespace {

/// What a user sees of a message box.
struct Seen
{
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons;
    QWidget *parent = nullptr;
    bool isPlain = false;
};

} // namespace

class tst_RunCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { seen_.clear(); }
    void commandThatSucceeds();
    void runtimeErrorIsShown();
    void placeOfTheErrorIsShown();
    void exhaustedMemoryIsShown();
    void errorsAreTranslated();
    void commandsWithinCommands();
    void messages_data();
    void messages();
    void closingAnswersAsEscape();

private:
    /// Answers the next message box with a button, or by closing it.
    void answerNext(QMessageBox::StandardButton button);

    QList<Seen> seen_;
};

void tst_RunCommand::answerNext(QMessageBox::StandardButton button)
{
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [this, timer, button] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr || box->objectName() != u"messageBox"_qs)
            return;
        timer->deleteLater();
        seen_ += {box->windowTitle(),     box->text(),         box->icon(),
                  box->standardButtons(), box->parentWidget(), box->textFormat() == Qt::PlainText};
        if (button == QMessageBox::NoButton)
            QTest::keyClick(box, Qt::Key_Escape);
        else
            QTest::mouseClick(box->button(button), Qt::LeftButton);
    });
    timer->start(0);
}

void tst_RunCommand::commandThatSucceeds()
{
    int runs = 0;
    QVERIFY(runCommand(nullptr, [&] { ++runs; }));
    QCOMPARE(runs, 1);
    QVERIFY(seen_.isEmpty());
}

void tst_RunCommand::runtimeErrorIsShown()
{
    QWidget window;
    bool isReached = false;
    answerNext(QMessageBox::Ok);
    QVERIFY(!runCommand(&window, [&] {
        throw RuntimeError(ErrorNumber::Overflow);
        isReached = true;
    }));
    QVERIFY(!isReached);
    QCOMPARE(seen_.size(), 1);
    QCOMPARE(seen_[0].title, u"Quillon"_qs);
    QCOMPARE(seen_[0].text, u"Run-time error '6':\n\nOverflow"_qs);
    QCOMPARE(seen_[0].buttons, QMessageBox::Ok);
    QCOMPARE(seen_[0].parent, &window);
    QVERIFY(seen_[0].isPlain);
}

void tst_RunCommand::placeOfTheErrorIsShown()
{
    answerNext(QMessageBox::Ok);
    QVERIFY(!runCommand(nullptr,
                        [] { throw RuntimeError(ErrorNumber::PathFileAccess, u"/tmp/<b>&x"_qs); }));
    QCOMPARE(seen_.value(0).text, u"Run-time error '75':\n\nPath/File access error\n/tmp/<b>&x"_qs);
}

void tst_RunCommand::exhaustedMemoryIsShown()
{
    answerNext(QMessageBox::Ok);
    QVERIFY(!runCommand(nullptr, [] { throw std::bad_alloc(); }));
    QCOMPARE(seen_.value(0).text, u"Run-time error '7':\n\nOut of memory"_qs);
}

void tst_RunCommand::errorsAreTranslated()
{
    const BracketTranslator translator("RuntimeError");
    answerNext(QMessageBox::Ok);
    QVERIFY(!runCommand(nullptr, [] { throw RuntimeError(ErrorNumber::DiskFull, u"/x"_qs); }));
    QCOMPARE(seen_.value(0).text, u"[Run-time error '61':\n\n][Disk full]\n/x"_qs);
}

void tst_RunCommand::commandsWithinCommands()
{
    int after = 0;
    answerNext(QMessageBox::Ok);
    QVERIFY(runCommand(nullptr, [&] {
        QVERIFY(!runCommand(nullptr, [] { throw RuntimeError(ErrorNumber::TypeMismatch); }));
        ++after;
    }));
    QCOMPARE(after, 1);
    QCOMPARE(seen_.size(), 1);
}

void tst_RunCommand::messages_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QMessageBox::Icon>("icon");
    QTest::addColumn<QMessageBox::StandardButtons>("buttons");
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<QString>("shownTitle");
    using Box = QMessageBox;
    QTest::newRow("untitled") << QString() << Box::Information << Box::StandardButtons(Box::Ok)
                              << Box::Ok << u"Quillon"_qs;
    QTest::newRow("titled") << u"Search & <i>"_qs << Box::NoIcon
                            << Box::StandardButtons(Box::Yes | Box::No) << Box::No
                            << u"Search & <i>"_qs;
    QTest::newRow("question") << u"T"_qs << Box::Question
                              << Box::StandardButtons(Box::Yes | Box::No | Box::Cancel) << Box::Yes
                              << u"T"_qs;
}

void tst_RunCommand::messages()
{
    QFETCH(QString, title);
    QFETCH(QMessageBox::Icon, icon);
    QFETCH(QMessageBox::StandardButtons, buttons);
    QFETCH(QMessageBox::StandardButton, answer);
    QFETCH(QString, shownTitle);
    const QString text = u"<b>Not bold</b> && \"quoted\"\nsecond line"_qs;
    answerNext(answer);
    const auto given =
        showMessage(nullptr, {.text = text, .title = title, .icon = icon, .buttons = buttons});
    QCOMPARE(given, answer);
    QCOMPARE(seen_.size(), 1);
    QCOMPARE(seen_[0].title, shownTitle);
    QCOMPARE(seen_[0].text, text);
    QCOMPARE(seen_[0].icon, icon);
    QCOMPARE(seen_[0].buttons, buttons);
    QVERIFY(seen_[0].isPlain);
}

void tst_RunCommand::closingAnswersAsEscape()
{
    answerNext(QMessageBox::NoButton);
    const auto buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    QCOMPARE(showMessage(nullptr, {.text = u"?"_qs, .buttons = buttons}), QMessageBox::Cancel);
    answerNext(QMessageBox::NoButton);
    QCOMPARE(showMessage(nullptr, {.text = u"!"_qs}), QMessageBox::Ok);
}

QTEST_MAIN(tst_RunCommand)
#include "tst_runcommand.moc"
