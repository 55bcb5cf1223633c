#include "platform/RichTextBox.h"

#include "engine/RuntimeError.h"
#include "rtf/RtfReader.h"
#include <QFile>
#include <QPrinter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

namespace {

const QString richText = u"one\xAD\xA0two\r\n\r\nthree\vfour\ffive"_qs;

std::optional<ErrorNumber> loadError(RichTextBox &box, const QString &path,
                                     std::optional<FileType> type = std::nullopt)
{
    try {
        box.LoadFile(path, type);
        return std::nullopt;
    } catch (const RuntimeError &error) {
        return error.number();
    }
}

} // namespace

class tst_RichTextBoxFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void richTextReadsBack();
    void savingAgainGivesTheSameBytes();
    void softHyphensAreSavedAsThemselves();
    void objectCharacterOfAFileIsNoSoftHyphen();
    void loadedTextIsALiveDocument();
    void loadingIsOneChange();
    void loadingWhileAChangeIsReported();
    void formerDocumentsGo();
    void loadingKeepsTheDefaultFont();
    void textLooksAsTheStartDid();
    void textKeepsItsForm_data();
    void textKeepsItsForm();
    void newTextTakesTheGivenForm();
    void typeIsTold_data();
    void typeIsTold();
    void mostLinesReadBack();
    void failuresKeepTheContent();
    void failedSaveKeepsTheFile();
    void printsPages_data();
    void printsPages();

private:
    void write(const QByteArray &bytes);
    [[nodiscard]] QByteArray content() const;

    std::unique_ptr<QTemporaryDir> folder_;
    QString path_;
};

void tst_RichTextBoxFiles::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
    path_ = folder_->filePath(u"file"_qs);
}

void tst_RichTextBoxFiles::write(const QByteArray &bytes)
{
    QFile file(path_);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray tst_RichTextBoxFiles::content() const
{
    QFile file(path_);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_RichTextBoxFiles::richTextReadsBack()
{
    RichTextBox box;
    box.setText(richText);
    box.setSelLength(3);
    box.setSelBold(true);
    box.SaveFile(path_, FileType::RichText);
    RichTextBox other;
    other.setText(u"former"_qs);
    other.LoadFile(path_);
    QCOMPARE(other.Text(), richText);
    QCOMPARE(other.SelStart(), 0);
    QCOMPARE(other.SelLength(), 0);
    other.setSelLength(3);
    QCOMPARE(other.SelFormat().bold, true);
    other.setSelLength(4);
    QVERIFY(!other.SelFormat().bold);
}

void tst_RichTextBoxFiles::savingAgainGivesTheSameBytes()
{
    RichTextBox box;
    box.setText(richText);
    box.SaveFile(path_, FileType::RichText);
    const QByteArray first = content();
    QCOMPARE(box.TextRTF(), first);
    box.LoadFile(path_);
    QCOMPARE(box.TextRTF(), first);
}

void tst_RichTextBoxFiles::softHyphensAreSavedAsThemselves()
{
    RichTextBox box;
    box.setText(u"a\xADz"_qs);
    QVERIFY2(box.TextRTF().contains("a\\'adz"), box.TextRTF().constData());
    box.SaveFile(path_, FileType::Text);
    QCOMPARE(content(), QByteArray("a\u00ADz"));
}

void tst_RichTextBoxFiles::objectCharacterOfAFileIsNoSoftHyphen()
{
    write("{\\rtf1 a\\u-4?z}");
    RichTextBox box;
    box.LoadFile(path_);
    QCOMPARE(box.Text(), u"a\uFFFDz"_qs);
}

void tst_RichTextBoxFiles::loadedTextIsALiveDocument()
{
    write("{\\rtf1 one\\par two}");
    RichTextBox box;
    box.LoadFile(path_);
    const QSignalSpy changed(&box, &RichTextBox::changed);
    const QSignalSpy moved(&box, &RichTextBox::selectionMoved);
    QTest::keyClicks(&box, u"x"_qs);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(moved.size(), 1);
    QCOMPARE(box.Text(), u"xone\r\ntwo"_qs);
    QVERIFY(!box.document()->isUndoRedoEnabled());
    QCOMPARE(box.find(u"two"_qs, 0, 99), 6);
}

void tst_RichTextBoxFiles::loadingIsOneChange()
{
    write("{\\rtf1 one}");
    RichTextBox box;
    box.setText(u"former"_qs);
    box.setSelStart(3);
    QSignalSpy changed(&box, &RichTextBox::changed);
    QSignalSpy moved(&box, &RichTextBox::selectionMoved);
    box.LoadFile(path_);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(moved.size(), 1);
    write("plain");
    box.LoadFile(path_);
    QCOMPARE(changed.size(), 2);
}

void tst_RichTextBoxFiles::loadingWhileAChangeIsReported()
{
    write("{\\rtf1 loaded}");
    RichTextBox box;
    connect(&box, &RichTextBox::changed, this, [&] {
        if (box.Text() == u"x"_qs)
            box.LoadFile(path_);
    });
    box.LoadFile(path_);
    box.setText({});
    QTest::keyClicks(&box, u"x"_qs);
    QCOMPARE(box.Text(), u"loaded"_qs);
    QTest::keyClicks(&box, u"y"_qs);
    QCOMPARE(box.Text(), u"yloaded"_qs);
}

void tst_RichTextBoxFiles::formerDocumentsGo()
{
    write("{\\rtf1 loaded}");
    RichTextBox box;
    for (int i = 0; i < 5; ++i)
        box.LoadFile(path_);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(box.findChildren<QTextDocument *>().size(), 1);
}

void tst_RichTextBoxFiles::loadingKeepsTheDefaultFont()
{
    write("plain");
    RichTextBox box;
    QFont font = box.font();
    font.setPointSize(33);
    box.setFont(font);
    box.LoadFile(path_);
    QCOMPARE(box.SelFormat().fontSize, 33.0);
    write("{\\rtf1 rich}");
    box.LoadFile(path_);
    QCOMPARE(box.document()->defaultFont().pointSize(), 33);
}

void tst_RichTextBoxFiles::textLooksAsTheStartDid()
{
    write("one\ntwo");
    RichTextBox box;
    box.setText(u"a\r\nb"_qs);
    box.setSelLength(1);
    box.setSelFontName(u"Some font"_qs);
    box.setSelBullet(true);
    box.setSelIndent(300);
    box.LoadFile(path_);
    box.selectAll();
    QCOMPARE(box.SelFormat().fontName, u"Some font"_qs);
    QCOMPARE(box.SelFormat().indent, 300);
    QCOMPARE(box.SelFormat().bullet, false);
    box.setText({});
    QCOMPARE(box.SelFormat().fontName, u"Some font"_qs);
    box.setText(u"three"_qs);
    box.selectAll();
    QCOMPARE(box.SelFormat().fontName, u"Some font"_qs);
}

void tst_RichTextBoxFiles::textKeepsItsForm_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("UTF-8, LF") << QByteArray("é\nb\n") << u"é\r\nb\r\n"_qs;
    QTest::newRow("mark, CR LF") << QByteArray("\xEF\xBB\xBF"
                                               "a\r\nb")
                                 << u"a\r\nb"_qs;
    QTest::newRow("UTF-16, CR") << QByteArray("\xFF\xFE"
                                              "a\0\r\0",
                                              6)
                                << u"a\r\n"_qs;
    QTest::newRow("code page") << QByteArray("\xE9\xAD\xA0\x81\r\n") << u"é\xAD\xA0\x81\r\n"_qs;
}

void tst_RichTextBoxFiles::textKeepsItsForm()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    write(bytes);
    RichTextBox box;
    box.LoadFile(path_);
    QCOMPARE(box.Text(), text);
    box.SaveFile(path_, FileType::Text);
    QCOMPARE(content(), bytes);
}

void tst_RichTextBoxFiles::newTextTakesTheGivenForm()
{
    RichTextBox box;
    box.setTextForm({TextCoding::CodePage1252, LineEnds::CrLf});
    box.setText(u"é\n€"_qs);
    box.SaveFile(path_, FileType::Text);
    QCOMPARE(content(), QByteArray("\xE9\r\n\x80"));
}

void tst_RichTextBoxFiles::typeIsTold_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("text");
    QTest::newRow("rich") << QByteArray("{\\rtf1 a}") << -1 << u"a"_qs;
    QTest::newRow("plain") << QByteArray("{a}") << -1 << u"{a}"_qs;
    QTest::newRow("rich as text") << QByteArray("{\\rtf1 a}") << int(FileType::Text)
                                  << u"{\\rtf1 a}"_qs;
    QTest::newRow("empty") << QByteArray() << -1 << QString();
}

void tst_RichTextBoxFiles::typeIsTold()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, type);
    QFETCH(QString, text);
    write(bytes);
    RichTextBox box;
    box.LoadFile(path_, type < 0 ? std::nullopt : std::optional(FileType(type)));
    QCOMPARE(box.Text(), text);
}

void tst_RichTextBoxFiles::mostLinesReadBack()
{
    constexpr int most = 500'000;
    write(QByteArray("a\n").repeated(most - 1) + 'a');
    RichTextBox box;
    box.LoadFile(path_);
    QCOMPARE(box.document()->blockCount(), most);
    QTextDocument read;
    QCOMPARE(readRtf(box.TextRTF(), read), std::nullopt);
    QCOMPARE(read.blockCount(), most);
}

void tst_RichTextBoxFiles::failuresKeepTheContent()
{
    RichTextBox box;
    box.setText(u"kept"_qs);
    box.setSelStart(2);
    QCOMPARE(loadError(box, path_), ErrorNumber::PathFileAccess);
    QCOMPARE(loadError(box, folder_->path()), ErrorNumber::PathFileAccess);
    write("no rich text");
    QCOMPARE(loadError(box, path_, FileType::RichText), ErrorNumber::DeviceIo);
    QCOMPARE(box.Text(), u"kept"_qs);
    QCOMPARE(box.SelStart(), 2);
    QCOMPARE(box.textForm(), TextForm());
}

void tst_RichTextBoxFiles::failedSaveKeepsTheFile()
{
    RichTextBox box;
    box.setText(u"text"_qs);
    for (const FileType type : {FileType::RichText, FileType::Text}) {
        try {
            box.SaveFile(path_ + u"/none/file"_qs, type);
            QFAIL("saved in no folder");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number(), ErrorNumber::PathNotFound);
        }
    }
}

void tst_RichTextBoxFiles::printsPages_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("selected");
    QTest::addColumn<qsizetype>("pages");
    QTest::newRow("empty") << QString() << 0 << qsizetype(1);
    QTest::newRow("one page") << u"one\xAD"_qs << 0 << qsizetype(1);
    QTest::newRow("page breaks") << u"one\ftwo\fthree"_qs << 0 << qsizetype(3);
    QTest::newRow("selection") << u"one\ftwo\fthree"_qs << 3 << qsizetype(1);
    QTest::newRow("long") << u"line\r\n"_qs.repeated(500) << 0 << qsizetype(-1);
}

void tst_RichTextBoxFiles::printsPages()
{
    QFETCH(QString, text);
    QFETCH(int, selected);
    QFETCH(qsizetype, pages);
    RichTextBox box;
    box.setText(text);
    box.setSelLength(selected);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path_);
    box.SelPrint(printer);
    const QByteArray pdf = content();
    QVERIFY(pdf.startsWith("%PDF-"));
    const qsizetype printed = pdf.count("/Type /Page\n");
    if (pages > 0)
        QCOMPARE(printed, pages);
    else
        QVERIFY(printed > 5 && printed < 20);
    QCOMPARE(box.Text(), text);
    QCOMPARE(box.SelLength(), selected);
}

QTEST_MAIN(tst_RichTextBoxFiles)
#include "tst_richtextboxfiles.moc"
