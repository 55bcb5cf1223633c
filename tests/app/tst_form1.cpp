#include "app/KeyPreview.h"
#include "app/Splitter.h"
#include "app/ToolbarCombo.h"
#include "engine/RuntimeError.h"
#include "platform/MessageBox.h"
#include "support/FormFixture.h"
#include "support/MessageBoxes.h"

#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

class tst_Form1 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void load();
    void timers();
    void focusMakesAPaneActive();
    void captionsGiveTheirPaneTheFocus();
    void longCaptionsDoNotWidenAnything();
    void setRtbFocusNeedsAnActivePane();
    void refreshKey_data();
    void refreshKey();
    void refreshKeyNeedsNoModifiers();
    void refreshRereadsTheModes();
    void abortKey_data();
    void abortKey();
    void keysStillReachTheirControl();
    void messages();
    void messagesWhileMinimised();
    void progress();
    void largerFontsGetMoreRoom();
    void tinyWindowsDoNoHarm();
    void rightToLeftDesktopsLeaveThePanesAlone_data();
    void rightToLeftDesktopsLeaveThePanesAlone();
    void closingAsks();
    void errorsWhileClosingKeepTheWindowOpen();
};

void tst_Form1::load()
{
    SharedState state;
    state.Settings.GenericRomanFont = u"DejaVu Serif"_s;
    FormFixture fixture; // records nothing of its own load
    Form1 form(state);
    form.Load({fixture.run, fixture, fixture, fixture}, {u"DejaVu Sans"_s});
    QCOMPARE(fixture.calls, (QStringList{u"NewDocument rtbRoman"_s, u"NewDocument rtbTengwar"_s}));
    QCOMPARE(form.windowTitle(), programTitle());
    QCOMPARE(form.controls().cboModeName->font().family(), u"DejaVu Serif"_s);
    QVERIFY(form.controls().rtbRoman->font().family() != u"DejaVu Serif"_s);
    form.show();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    QVERIFY(form.controls().rtbRoman->hasFocus());
    QCOMPARE(state.ActivePane, PaneCode::Source);
}

void tst_Form1::timers()
{
    const FormFixture fixture;
    const auto *status = fixture.find<QTimer>("tmrStatus");
    QCOMPARE(status->interval(), 1000);
    QVERIFY(!status->isActive());
    const auto *autoGenerate = fixture.find<QTimer>("tmrAutoGenerate");
    QCOMPARE(autoGenerate->interval(), 500);
    QVERIFY(autoGenerate->isActive());
}

void tst_Form1::focusMakesAPaneActive()
{
    FormFixture fixture;
    fixture.find("rtbTengwar")->setFocus();
    QCOMPARE(fixture.state.ActivePane, PaneCode::Target);
    QCOMPARE(fixture.calls, (QStringList{u"ShowFormat rtbTengwar"_s, u"ShowSelText rtbTengwar"_s,
                                         u"UpdateUndoButtons 2"_s}));
    fixture.find("cboFontSize")->setFocus();
    QCOMPARE(fixture.state.ActivePane, PaneCode::Target);
}

void tst_Form1::captionsGiveTheirPaneTheFocus()
{
    const FormFixture fixture;
    QTest::mouseClick(fixture.find("lblTengwarCaption"), Qt::LeftButton);
    QVERIFY(fixture.find("rtbTengwar")->hasFocus());
    QTest::mouseClick(fixture.find("lblRomanCaption"), Qt::LeftButton);
    QVERIFY(fixture.find("rtbRoman")->hasFocus());
}

void tst_Form1::longCaptionsDoNotWidenAnything()
{
    FormFixture fixture;
    CaptionLabel *caption = fixture.form.controls().lblRomanCaption;
    const QRect before = caption->geometry();
    caption->setCaption(u"Source - "_s + QString(400, u'w') + u"<b>.rtf"_s);
    fixture.form.resize(fixture.form.size() + QSize(10, 0));
    QTRY_COMPARE(caption->geometry(), before);
    QCOMPARE(caption->textFormat(), Qt::PlainText);
}

void tst_Form1::setRtbFocusNeedsAnActivePane()
{
    FormFixture fixture;
    QWidget *combo = fixture.find("cboModeName");
    combo->setFocus();
    fixture.state.ActivePane = PaneCode::Both;
    fixture.form.SetRTBFocus();
    QVERIFY(combo->hasFocus());
    fixture.state.ActivePane = PaneCode::Target;
    fixture.form.SetRTBFocus();
    QVERIFY(fixture.find("rtbTengwar")->hasFocus());
}

void tst_Form1::refreshKey_data()
{
    QTest::addColumn<QByteArray>("control");
    for (const char *name : {"rtbRoman", "rtbTengwar", "cboModeName", "cboFontName", "Form1"})
        QTest::newRow(name) << QByteArray(name);
}

void tst_Form1::refreshKey()
{
    QFETCH(QByteArray, control);
    FormFixture fixture;
    QWidget *receiver = control == "Form1" ? &fixture.form : fixture.find(control.constData());
    int refreshed = 0;
    const auto *preview = fixture.form.findChild<KeyPreview *>();
    QObject::connect(preview, &KeyPreview::refreshPressed, preview, [&refreshed] { ++refreshed; });
    QTest::keyClick(receiver, Qt::Key_F5);
    QCOMPARE(refreshed, 1);
    QTest::keyClick(receiver, Qt::Key_F5);
    QCOMPARE(refreshed, 2);
}

void tst_Form1::refreshKeyNeedsNoModifiers()
{
    const FormFixture fixture;
    const auto *preview = fixture.form.findChild<KeyPreview *>();
    QObject::connect(preview, &KeyPreview::refreshPressed, preview, [] { QFAIL("refreshed"); });
    for (const auto modifier : {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier})
        QTest::keyClick(fixture.find("rtbRoman"), Qt::Key_F5, modifier);
}

void tst_Form1::refreshRereadsTheModes()
{
    QTemporaryDir folder;
    FormFixture fixture;
    fixture.state.Settings.ModePath = folder.path();
    const auto *modes = fixture.find<QComboBox>("cboModeName");
    QCOMPARE(modes->count(), 0);
    QFile mode(folder.filePath(u"English.mod"_s));
    QVERIFY(mode.open(QIODevice::WriteOnly));
    QTest::keyClick(fixture.find("rtbRoman"), Qt::Key_F5);
    QCOMPARE(modes->count(), 1);
    QCOMPARE(modes->itemText(0), u"English"_s);
}

void tst_Form1::abortKey_data()
{
    refreshKey_data();
}

void tst_Form1::abortKey()
{
    QFETCH(QByteArray, control);
    FormFixture fixture;
    QVERIFY(!fixture.state.AbortRequested);
    QWidget *receiver = control == "Form1" ? &fixture.form : fixture.find(control.constData());
    QTest::keyClick(receiver, Qt::Key_Escape);
    QVERIFY(fixture.state.AbortRequested);
}

void tst_Form1::keysStillReachTheirControl()
{
    const FormFixture fixture;
    QList<int> keys;
    const auto *pane = fixture.find<RichTextBox>("rtbRoman");
    QObject::connect(pane, &RichTextBox::keyDown, pane,
                     [&keys](const KeyPress &key) { keys += key.key; });
    QTest::keyClick(fixture.find("rtbRoman"), Qt::Key_F5);
    QTest::keyClick(fixture.find("rtbRoman"), Qt::Key_Escape);
    QCOMPARE(keys, (QList<int>{Qt::Key_F5, Qt::Key_Escape}));
}

void tst_Form1::messages()
{
    FormFixture fixture;
    const auto *panel = fixture.find<QLabel>("Messages");
    fixture.form.setWindowTitle(u"something else"_s);
    fixture.form.DisplayMessage(u"<b>bold</b> & plain"_s, u"short"_s);
    QCOMPARE(panel->text(), u"<b>bold</b> & plain"_s);
    QCOMPARE(panel->textFormat(), Qt::PlainText);
    QCOMPARE(fixture.form.windowTitle(), programTitle());
    fixture.form.DisplayMessage(QString());
    QVERIFY(panel->text().isEmpty());

    const int width = fixture.form.width();
    fixture.form.DisplayMessage(QString(1000, u'w'));
    QCoreApplication::processEvents();
    QCOMPARE(fixture.form.width(), width);
}

void tst_Form1::messagesWhileMinimised()
{
    FormFixture fixture;
    fixture.form.showMinimized();
    QVERIFY(fixture.form.isMinimized());
    fixture.form.DisplayMessage(u"46% done."_s, u"45.67% done."_s);
    QCOMPARE(fixture.find<QLabel>("Messages")->text(), u"46% done."_s);
    QCOMPARE(fixture.form.windowTitle(), u"45.67% done. - "_s + programTitle());
    fixture.form.DisplayMessage(u"more"_s);
    QCOMPARE(fixture.form.windowTitle(), u"45.67% done. - "_s + programTitle());
    fixture.form.showNormal();
    QCOMPARE(fixture.form.windowTitle(), programTitle());
}

void tst_Form1::progress()
{
    FormFixture fixture;
    const auto *bar = fixture.find<QProgressBar>("Progress");
    QVERIFY(!bar->isVisible());
    fixture.form.showProgress(0.42);
    QVERIFY(bar->isVisible());
    QCOMPARE(bar->value(), 42);
    fixture.form.showProgress(std::nullopt);
    QVERIFY(!bar->isVisible());
}

void tst_Form1::largerFontsGetMoreRoom()
{
    FormFixture fixture;
    CaptionLabel *caption = fixture.form.controls().lblRomanCaption;
    const int before = caption->height();
    QFont font = caption->font();
    font.setPointSize(3 * font.pointSize());
    caption->setFont(font);
    QTRY_VERIFY(caption->height() > 2 * before);
    QCOMPARE(fixture.find("rtbRoman")->y(), caption->geometry().bottom() + 1);
    QCOMPARE(fixture.find("rtbTengwar")->y(), fixture.find("rtbRoman")->y());
}

void tst_Form1::tinyWindowsDoNoHarm()
{
    FormFixture fixture;
    for (const QSize size : {QSize(100, 80), QSize(30, 10), QSize(1, 1), QSize(700, 500)}) {
        fixture.form.resize(size);
        QCoreApplication::processEvents();
        for (const char *name : {"rtbRoman", "rtbTengwar", "imgRuler", "lblRomanCaption"})
            QVERIFY(fixture.find(name)->width() >= 0 && fixture.find(name)->height() >= 0);
    }
    QVERIFY(fixture.find("rtbRoman")->height() > 200);
}

void tst_Form1::rightToLeftDesktopsLeaveThePanesAlone_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("roman letters") << u"naur"_s;
    QTest::newRow("signs without a direction") << u"1234%"_s;
}

void tst_Form1::rightToLeftDesktopsLeaveThePanesAlone()
{
    QFETCH(const QString, text);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    const auto restore = qScopeGuard([] { QGuiApplication::setLayoutDirection(Qt::LeftToRight); });
    const FormFixture fixture;
    const FormControls &controls = fixture.form.controls();
    QVERIFY(controls.rtbRoman->geometry().right() < controls.imgRuler->x());
    QVERIFY(controls.imgRuler->geometry().right() < controls.rtbTengwar->x());
    QVERIFY(controls.lblRomanCaption->x() < controls.lblTengwarCaption->x());
    for (RichTextBox *pane : {controls.rtbRoman, controls.rtbTengwar}) {
        pane->setText(text);
        pane->setSelStart(0);
        QVERIFY(pane->cursorRect().left() < pane->viewport()->width() / 4);
    }
}

void tst_Form1::closingAsks()
{
    FormFixture fixture;
    int unloaded = 0;
    QObject::connect(&fixture.form, &Form1::unloaded, &fixture.form, [&unloaded] { ++unloaded; });
    fixture.saveAnswer = SaveAnswer::Cancel;
    QVERIFY(!fixture.form.close());
    QCOMPARE(unloaded, 0);
    QVERIFY(fixture.form.isVisible());
    fixture.saveAnswer = SaveAnswer::Proceed;
    QVERIFY(fixture.form.close());
    QCOMPARE(unloaded, 1);
    QCOMPARE(fixture.calls, (QStringList{u"AskSaveChanges 3"_s, u"AskSaveChanges 3"_s}));
}

void tst_Form1::errorsWhileClosingKeepTheWindowOpen()
{
    struct FailingDocuments final : Documents
    {
        void NewDocument(RichTextBox &) override {}
        SaveAnswer AskSaveChanges(PaneCode) override
        {
            throw RuntimeError(ErrorNumber::PermissionDenied);
        }
    };
    FormFixture fixture;
    FailingDocuments documents;
    fixture.form.Load({fixture.run, documents, fixture, fixture}, {});
    const MessageBoxes boxes;
    QVERIFY(!fixture.form.close());
    QCOMPARE(boxes.seen().size(), 1U);
    QVERIFY(fixture.form.isVisible());
}

QTEST_MAIN(tst_Form1)
#include "tst_form1.moc"
