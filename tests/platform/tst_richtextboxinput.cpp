#include "platform/RichTextBox.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

Q_DECLARE_METATYPE(ChangeReason)

namespace {

using Keys = QList<QKeyCombination>;
using Reasons = QList<ChangeReason>;

constexpr Reasons::value_type typing = ChangeReason::Typing;
constexpr Reasons::value_type editingKey = ChangeReason::EditingKey;

} // namespace

class tst_RichTextBoxInput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void keysAnnounceChanges_data();
    void keysAnnounceChanges();
    void announcementPrecedesTheChange();
    void swallowedKeysDoNothing();
    void keyDownComesBeforeTheChange();
    void typedCharacters_data();
    void typedCharacters();
    void undoKeysDoNothing();
    void caretMovesOverParagraphEnds();
    void inputMethodCommits();
    void inputMethodReplacesSelection();
    void pressInSelectionStartsNoDrag();
    void middleButton();
    void droppedTextIsPlain();
    void droppedFilesAreHandedOn();
    void clipboardCarriesPlainText();
    void contextMenuIsAskedFor();
    void focusActivates();
    void selectionStaysVisible();
    void paletteChangeKeepsSelectionVisible();

private:
    void drop(const QMimeData &data);

    std::unique_ptr<QWidget> window_;
    RichTextBox *box_ = nullptr;
    QLineEdit *other_ = nullptr;
    Reasons reasons_;
};

void tst_RichTextBoxInput::init()
{
    window_ = std::make_unique<QWidget>();
    auto *layout = new QVBoxLayout(window_.get());
    box_ = new RichTextBox;
    other_ = new QLineEdit;
    layout->addWidget(box_);
    layout->addWidget(other_);
    reasons_.clear();
    connect(box_, &RichTextBox::aboutToChange, this,
            [this](ChangeReason reason) { reasons_ += reason; });
    window_->show();
    window_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));
    box_->setFocus();
    box_->setText(u"one two\r\nthree four"_qs);
    reasons_.clear();
}

void tst_RichTextBoxInput::cleanup()
{
    window_.reset();
}

void tst_RichTextBoxInput::keysAnnounceChanges_data()
{
    QTest::addColumn<Keys>("keys");
    QTest::addColumn<Reasons>("reasons");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const Keys &keys, const Reasons &reasons,
                        const QString &start) {
        QTest::newRow(name) << keys << reasons << QString(start + u"\r\nthree four"_qs);
    };
    row("letter", {Qt::Key_X}, {typing}, u"one xtwo"_qs);
    row("letter with Shift", {Qt::SHIFT | Qt::Key_X}, {typing}, u"one xtwo"_qs);
    row("keypad digit", {Qt::KeypadModifier | Qt::Key_1}, {typing}, u"one 1two"_qs);
    row("tab", {Qt::Key_Tab}, {typing}, u"one \ttwo"_qs);
    row("Enter", {Qt::Key_Return}, {typing}, u"one \r\ntwo"_qs);
    row("Enter of the keypad", {Qt::KeypadModifier | Qt::Key_Enter}, {typing}, u"one \r\ntwo"_qs);
    row("soft line break", {Qt::SHIFT | Qt::Key_Return}, {typing}, u"one \vtwo"_qs);
    row("Backspace", {Qt::Key_Backspace}, {typing}, u"onetwo"_qs);
    row("Shift+Backspace", {Qt::SHIFT | Qt::Key_Backspace}, {typing}, u"onetwo"_qs);
    row("Delete", {Qt::Key_Delete}, {typing}, u"one wo"_qs);
    row("Ctrl+Backspace", {Qt::CTRL | Qt::Key_Backspace}, {editingKey}, u"two"_qs);
    row("Ctrl+Delete", {Qt::CTRL | Qt::Key_Delete}, {editingKey}, u"one "_qs);
    row("Shift+Delete without selection", {Qt::SHIFT | Qt::Key_Delete}, {}, u"one two"_qs);
    row("Shift+Delete cuts", {Qt::SHIFT | Qt::Key_Right, Qt::SHIFT | Qt::Key_Delete}, {editingKey},
        u"one wo"_qs);
    row("Shift+Insert pastes", {Qt::SHIFT | Qt::Key_Insert}, {editingKey}, u"one CLIPtwo"_qs);
    row("Ctrl+V pastes", {Qt::CTRL | Qt::Key_V}, {editingKey}, u"one CLIPtwo"_qs);
    row("Ctrl+Insert copies", {Qt::SHIFT | Qt::Key_Right, Qt::CTRL | Qt::Key_Insert}, {},
        u"one two"_qs);
    row("arrows", {Qt::Key_Left, Qt::Key_Right, Qt::Key_Down, Qt::Key_Up, Qt::Key_Home}, {},
        u"one two"_qs);
    row("commands",
        {Qt::CTRL | Qt::Key_B, Qt::CTRL | Qt::SHIFT | Qt::Key_X, Qt::Key_F5, Qt::Key_Escape}, {},
        u"one two"_qs);
    row("writing direction", {Qt::Key_Direction_R}, {}, u"one two"_qs);
}

void tst_RichTextBoxInput::keysAnnounceChanges()
{
    QFETCH(Keys, keys);
    QFETCH(Reasons, reasons);
    QFETCH(QString, text);
    QGuiApplication::clipboard()->setText(u"CLIP"_qs);
    box_->setSelStart(4);
    for (const QKeyCombination key : keys)
        QTest::keyClick(box_, key.key(), key.keyboardModifiers());
    QCOMPARE(reasons_, reasons);
    QCOMPARE(box_->Text(), text);
    QCOMPARE(box_->textCursor().blockFormat().layoutDirection(), Qt::LayoutDirectionAuto);
}

void tst_RichTextBoxInput::announcementPrecedesTheChange()
{
    QStringList texts;
    connect(box_, &RichTextBox::aboutToChange, this, [&] { texts += box_->Text(); });
    box_->setText(u"ab"_qs);
    QTest::keyClick(box_, Qt::Key_Delete);
    QTest::keyClicks(box_, u"c"_qs);
    QCOMPARE(texts, (QStringList{u"ab"_qs, u"b"_qs}));
    QCOMPARE(box_->Text(), u"cb"_qs);
}

void tst_RichTextBoxInput::swallowedKeysDoNothing()
{
    connect(box_, &RichTextBox::keyDown, this,
            [](KeyPress &key) { key.swallowed = key.key != Qt::Key_A; });
    box_->setText({});
    QTest::keyClicks(box_, u"bab"_qs);
    QTest::keyClick(box_, Qt::Key_Return);
    QTest::keyClick(box_, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(box_->Text(), u"a"_qs);
    QCOMPARE(reasons_, Reasons{typing});
}

void tst_RichTextBoxInput::keyDownComesBeforeTheChange()
{
    QStringList events;
    connect(box_, &RichTextBox::keyDown, this, [&](const KeyPress &key) {
        events += u"key %1 %2"_qs.arg(key.key).arg(int(key.modifiers));
    });
    connect(box_, &RichTextBox::aboutToChange, this, [&] { events += u"about"_qs; });
    connect(box_, &RichTextBox::changed, this, [&] { events += u"changed"_qs; });
    QTest::keyClick(box_, Qt::Key_Q);
    QCOMPARE(events, (QStringList{u"key 81 0"_qs, u"about"_qs, u"changed"_qs}));
}

void tst_RichTextBoxInput::typedCharacters_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("soft hyphen") << u"\xAD"_qs;
    QTest::newRow("no-break space") << u"\xA0"_qs;
    QTest::newRow("beyond the base plane") << u"😀"_qs;
    QTest::newRow("private use") << u"\uE000"_qs;
    QTest::newRow("joiner") << u"\u200D"_qs;
}

void tst_RichTextBoxInput::typedCharacters()
{
    QFETCH(QString, text);
    box_->setText(u"ab"_qs);
    box_->setSelStart(1);
    QTest::sendKeyEvent(QTest::Press, box_, Qt::Key_unknown, text, Qt::NoModifier);
    QCOMPARE(box_->Text(), QString(u"a"_qs + text + u"b"_qs));
    QCOMPARE(box_->SelStart(), 1 + int(text.size()));
    QCOMPARE(reasons_, Reasons{typing});
}

void tst_RichTextBoxInput::undoKeysDoNothing()
{
    QTest::keyClicks(box_, u"x"_qs);
    const QString text = box_->Text();
    QTest::keyClick(box_, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(box_, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(box_->Text(), text);
}

void tst_RichTextBoxInput::caretMovesOverParagraphEnds()
{
    box_->setSelStart(7);
    QTest::keyClick(box_, Qt::Key_Right);
    QCOMPARE(box_->SelStart(), 9);
    QTest::keyClick(box_, Qt::Key_Left, Qt::ShiftModifier);
    QCOMPARE(box_->SelText(), u"\r\n"_qs);
    QCOMPARE(box_->SelStart(), 7);
    QTest::keyClick(box_, Qt::Key_Delete);
    QCOMPARE(box_->Text(), u"one twothree four"_qs);
}

void tst_RichTextBoxInput::inputMethodCommits()
{
    box_->setText(u"ab"_qs);
    box_->setSelStart(1);
    QInputMethodEvent preedit(u"x"_qs, {});
    QCoreApplication::sendEvent(box_, &preedit);
    QCOMPARE(reasons_, Reasons());
    QCOMPARE(box_->Text(), u"ab"_qs);
    QInputMethodEvent commit;
    commit.setCommitString(u"y\xADz"_qs);
    QCoreApplication::sendEvent(box_, &commit);
    QCOMPARE(reasons_, Reasons{ChangeReason::InputMethod});
    QCOMPARE(box_->Text(), u"ay\xADzb"_qs);
}

void tst_RichTextBoxInput::inputMethodReplacesSelection()
{
    box_->setText(u"abc"_qs);
    box_->setSelStart(1);
    box_->setSelLength(1);
    QInputMethodEvent preedit(u"x"_qs, {});
    QCoreApplication::sendEvent(box_, &preedit);
    QCOMPARE(reasons_, Reasons{ChangeReason::InputMethod});
    QCOMPARE(box_->Text(), u"ac"_qs);
}

void tst_RichTextBoxInput::pressInSelectionStartsNoDrag()
{
    box_->selectAll();
    const QPoint inside = box_->cursorRect(QTextCursor(box_->document())).center() + QPoint(9, 0);
    QTest::mousePress(box_->viewport(), Qt::LeftButton, Qt::NoModifier, inside);
    QCOMPARE(box_->SelLength(), 0);
    QTest::mouseMove(box_->viewport(), inside + QPoint(0, 200));
    QTest::mouseRelease(box_->viewport(), Qt::LeftButton, Qt::NoModifier, inside + QPoint(0, 200));
    QCOMPARE(box_->Text(), u"one two\r\nthree four"_qs);
    QCOMPARE(reasons_, Reasons());
}

void tst_RichTextBoxInput::middleButton()
{
    QClipboard &clipboard = *QGuiApplication::clipboard();
    const bool pastes = clipboard.supportsSelection();
    if (pastes)
        clipboard.setText(u"PRIMARY\xAD"_qs, QClipboard::Selection);
    const QPoint start = box_->cursorRect(QTextCursor(box_->document())).center();
    QTest::mouseClick(box_->viewport(), Qt::MiddleButton, Qt::NoModifier, start);
    QCOMPARE(reasons_, pastes ? Reasons{ChangeReason::PrimaryPaste} : Reasons());
    QCOMPARE(box_->Text().startsWith(u"PRIMARY\xADone"_qs), pastes);
}

void tst_RichTextBoxInput::drop(const QMimeData &data)
{
    const QPoint start = box_->cursorRect(QTextCursor(box_->document())).center();
    QDragEnterEvent enter(start, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box_->viewport(), &enter);
    QVERIFY(enter.isAccepted());
    QDragMoveEvent move(start, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box_->viewport(), &move);
    QVERIFY(move.isAccepted());
    QDropEvent event(start, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box_->viewport(), &event);
}

void tst_RichTextBoxInput::droppedTextIsPlain()
{
    QMimeData data;
    data.setText(u"new\xAD\n"_qs);
    data.setHtml(u"<b>new</b>"_qs);
    QStringList texts;
    connect(box_, &RichTextBox::aboutToChange, this, [&] { texts += box_->Text(); });
    drop(data);
    QCOMPARE(texts, QStringList{u"one two\r\nthree four"_qs});
    QCOMPARE(reasons_, Reasons{ChangeReason::Drop});
    QCOMPARE(box_->Text(), u"new\xAD\r\none two\r\nthree four"_qs);
    QCOMPARE(box_->fontWeight(), int(QFont::Normal));
}

void tst_RichTextBoxInput::droppedFilesAreHandedOn()
{
    const QSignalSpy files(box_, &RichTextBox::filesDropped);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(u"/tmp/a b.rtf"_qs), QUrl(u"https://example.org/x"_qs)});
    drop(data);
    QCOMPARE(files.size(), 1);
    QCOMPARE(files[0][0].toStringList(), QStringList{u"/tmp/a b.rtf"_qs});
    QCOMPARE(reasons_, Reasons());
    QCOMPARE(box_->Text(), u"one two\r\nthree four"_qs);
}

void tst_RichTextBoxInput::clipboardCarriesPlainText()
{
    box_->setText(u"a\xAD\xA0z\vb\r\nc"_qs);
    box_->selectAll();
    box_->setFontWeight(QFont::Bold);
    QTest::keyClick(box_, Qt::Key_C, Qt::ControlModifier);
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    QCOMPARE(data->formats(), QStringList{u"text/plain"_qs});
    QCOMPARE(data->text(), u"a\xAD\xA0z\vb\r\nc"_qs);
}

void tst_RichTextBoxInput::contextMenuIsAskedFor()
{
    const QSignalSpy asked(box_, &QWidget::customContextMenuRequested);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(box_->viewport(), &event);
    QCOMPARE(asked.size(), 1);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
}

void tst_RichTextBoxInput::focusActivates()
{
    const QSignalSpy activated(box_, &RichTextBox::activated);
    other_->setFocus();
    QCOMPARE(activated.size(), 0);
    box_->setFocus();
    QCOMPARE(activated.size(), 1);
}

void tst_RichTextBoxInput::selectionStaysVisible()
{
    box_->selectAll();
    const auto highlighted = [this] {
        const QImage image = box_->viewport()->grab().toImage();
        const QRgb highlight = box_->palette().color(QPalette::Active, QPalette::Highlight).rgb();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                count += image.pixel(x, y) == highlight ? 1 : 0;
        }
        return count;
    };
    const int focused = highlighted();
    QVERIFY(focused > 100);
    other_->setFocus();
    QVERIFY(!box_->hasFocus());
    QCOMPARE(highlighted(), focused);
}

void tst_RichTextBoxInput::paletteChangeKeepsSelectionVisible()
{
    QPalette dark = window_->palette();
    dark.setColor(QPalette::Active, QPalette::Highlight, Qt::red);
    dark.setColor(QPalette::Inactive, QPalette::Highlight, Qt::gray);
    window_->setPalette(dark);
    QCOMPARE(box_->palette().color(QPalette::Active, QPalette::Highlight), QColor(Qt::red));
    QCOMPARE(box_->palette().color(QPalette::Inactive, QPalette::Highlight), QColor(Qt::red));
}

QTEST_MAIN(tst_RichTextBoxInput)
#include "tst_richtextboxinput.moc"
