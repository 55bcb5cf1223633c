#include "help/HelpBrowser.h"
#include "help/HelpCommands.h"
#include "help/frmHelp.h"

#include "HelpBytes.h"
#include "editor/SharedState.h"
#include "support/MessageBoxes.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize PictureSize(3000, 400);

QByteArray page(const QByteArray &title, const QByteArray &body)
{
    return "<html><head><title>" + title + "</title></head><body>" + body + "</body></html>";
}

QByteArray picture()
{
    QImage image(PictureSize, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return png;
}

QByteArray bookBytes()
{
    QByteArray longText;
    for (int i = 0; i < 200; ++i)
        longText += "<p>A line to scroll past.</p>";
    return helpBytes(
        {{QStringLiteral("one.html"), page("One", "<p><a href=\"two.html\">onwards</a></p>")},
         {QStringLiteral("two.html"), page("Two", "<p>tengwar " + longText + " quillon</p>")},
         {QStringLiteral("three.html"), page("Three", "<p><img src=\"pictures/wide.png\"></p>")},
         {QStringLiteral("pictures/wide.png"), picture()}});
}

/// The window, open, with its controls.
struct Help
{
    frmHelp window{*HelpBook::read(bookBytes())};

    Help()
    {
        window.show();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("The window did not become active");
    }

    template<typename Control> [[nodiscard]] Control &find(const char *name) const
    {
        return *window.findChild<Control *>(QLatin1StringView(name));
    }
    [[nodiscard]] HelpBrowser &pageBox() const { return find<HelpBrowser>("rtbPage"); }
    [[nodiscard]] QString shownPage() const { return pageBox().shownPage(); }
    [[nodiscard]] QListWidget &contents() const { return find<QListWidget>("lstContents"); }
    [[nodiscard]] QListWidget &hits() const { return find<QListWidget>("lstHits"); }
    [[nodiscard]] QLineEdit &search() const { return find<QLineEdit>("txtSearch"); }

    [[nodiscard]] QString selected(const QListWidget &list) const
    {
        return list.currentItem() ? list.currentItem()->text() : QString();
    }
    void clickFirstLink() const
    {
        QTextCursor start(pageBox().document());
        start.setPosition(3);
        QTest::mouseClick(pageBox().viewport(), Qt::LeftButton, {},
                          pageBox().cursorRect(start).center());
    }
    void clickPage(int row) const
    {
        QTest::mouseClick(contents().viewport(), Qt::LeftButton, {},
                          contents().visualItemRect(contents().item(row)).center());
    }
};

QTextImageFormat shownPicture(const HelpBrowser &browser)
{
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (it.fragment().charFormat().isImageFormat())
                return it.fragment().charFormat().toImageFormat();
        }
    }
    return {};
}

qreal pictureWidth(const HelpBrowser &browser)
{
    const QUrl name(shownPicture(browser).name());
    return browser.document()
        ->resource(QTextDocument::ImageResource, name)
        .value<QImage>()
        .deviceIndependentSize()
        .width();
}

} // namespace

class tst_frmHelp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensAtTheFirstPage()
    {
        const Help help;
        QCOMPARE(help.contents().count(), 3);
        QCOMPARE(help.shownPage(), u"one.html"_s);
        QCOMPARE(help.selected(help.contents()), u"One"_s);
        QVERIFY(help.contents().hasFocus());
        QVERIFY(!help.find<QPushButton>("cmdBack").isEnabled());
        QVERIFY(!help.find<QPushButton>("cmdForward").isEnabled());
    }

    void contentsByMouseAndKeys()
    {
        const Help help;
        help.clickPage(2);
        QCOMPARE(help.shownPage(), u"three.html"_s);
        QTest::keyClick(&help.contents(), Qt::Key_Up);
        QCOMPARE(help.shownPage(), u"two.html"_s);
        QTest::keyClick(&help.contents(), Qt::Key_Return);
        QVERIFY(help.pageBox().hasFocus());
    }

    void linksByMouse()
    {
        const Help help;
        help.clickFirstLink();
        QCOMPARE(help.shownPage(), u"two.html"_s);
        QCOMPARE(help.selected(help.contents()), u"Two"_s);
    }

    void linksByKeys()
    {
        const Help help;
        help.pageBox().setFocus();
        QTest::keyClick(&help.pageBox(), Qt::Key_Tab);
        QTest::keyClick(&help.pageBox(), Qt::Key_Return);
        QCOMPARE(help.shownPage(), u"two.html"_s);
    }

    void backAndForwardByButtons()
    {
        const Help help;
        auto &back = help.find<QPushButton>("cmdBack");
        auto &forward = help.find<QPushButton>("cmdForward");
        help.clickPage(1);
        help.clickPage(2);
        QTest::mouseClick(&back, Qt::LeftButton);
        QCOMPARE(help.shownPage(), u"two.html"_s);
        QCOMPARE(help.selected(help.contents()), u"Two"_s);
        QTest::mouseClick(&back, Qt::LeftButton);
        QCOMPARE(help.shownPage(), u"one.html"_s);
        QVERIFY(!back.isEnabled());
        QTest::mouseClick(&forward, Qt::LeftButton);
        QTest::mouseClick(&forward, Qt::LeftButton);
        QCOMPARE(help.shownPage(), u"three.html"_s);
        QVERIFY(!forward.isEnabled());
    }

    void backAndForwardByKeys_data()
    {
        QTest::addColumn<QByteArray>("focus");
        for (const char *control : {"lstContents", "rtbPage", "txtSearch"})
            QTest::newRow(control) << QByteArray(control);
    }

    void backAndForwardByKeys()
    {
        QFETCH(QByteArray, focus);
        const Help help;
        help.clickPage(1);
        auto &control = help.find<QWidget>(focus.constData());
        control.setFocus();
        QTest::keyClick(&control, Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(help.shownPage(), u"one.html"_s);
        QTest::keyClick(&control, Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(help.shownPage(), u"two.html"_s);
    }

    void searchListsPagesAndMarksWords()
    {
        const Help help;
        QTest::keyClick(&help.contents(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(help.search().hasFocus());
        QTest::keyClicks(&help.search(), u"QUILLON teng"_s);
        QVERIFY(help.hits().isVisible());
        QVERIFY(!help.contents().isVisible());
        QCOMPARE(help.hits().count(), 1);
        QCOMPARE(help.shownPage(), u"one.html"_s);
        QTest::keyClick(&help.search(), Qt::Key_Return);
        QCOMPARE(help.shownPage(), u"two.html"_s);
        QStringList marked;
        for (const auto &mark : help.pageBox().extraSelections())
            marked += mark.cursor.selectedText();
        QCOMPARE(marked, QStringList({u"quillon"_s, u"teng"_s}));
    }

    void searchShowsTheFirstMark()
    {
        const Help help;
        help.search().setFocus();
        QTest::keyClicks(&help.search(), u"quillon"_s);
        QTest::keyClick(&help.search(), Qt::Key_Return);
        const QTextCursor mark = help.pageBox().extraSelections().constFirst().cursor;
        QVERIFY(help.pageBox().verticalScrollBar()->value() > 0);
        QVERIFY(help.pageBox().viewport()->rect().contains(help.pageBox().cursorRect(mark)));
    }

    void searchWithoutResult()
    {
        const Help help;
        help.search().setFocus();
        QTest::keyClicks(&help.search(), u"elephant"_s);
        QCOMPARE(help.hits().count(), 0);
        QVERIFY(help.find<QLabel>("lblHits").isVisible());
        QTest::keyClick(&help.search(), Qt::Key_Return);
        QCOMPARE(help.shownPage(), u"one.html"_s);
    }

    void escEmptiesTheSearchThenCloses()
    {
        const Help help;
        help.search().setFocus();
        QTest::keyClicks(&help.search(), u"quillon"_s);
        QTest::keyClick(&help.search(), Qt::Key_Escape);
        QVERIFY(help.search().text().isEmpty());
        QVERIFY(help.contents().isVisible());
        QVERIFY(help.pageBox().extraSelections().isEmpty());
        QVERIFY(!help.find<QLabel>("lblHits").isVisible());
        QTest::keyClick(&help.search(), Qt::Key_Escape);
        QVERIFY(!help.window.isVisible());
    }

    void picturesFitTheWindow()
    {
        Help help;
        for (const int width : {1200, 600, 900}) {
            help.window.resize(width, 500);
            help.clickPage(2);
            QTRY_VERIFY(pictureWidth(help.pageBox()) <= help.pageBox().viewport()->width());
            QVERIFY(pictureWidth(help.pageBox()) > help.pageBox().viewport()->width() * 0.8);
            QVERIFY(!help.pageBox().horizontalScrollBar()->isVisible());
        }
    }

    void resizingKeepsTheHistory()
    {
        Help help;
        help.clickPage(1);
        help.window.resize(700, 500);
        QCOMPARE(help.shownPage(), u"two.html"_s);
        QTest::mouseClick(&help.find<QPushButton>("cmdBack"), Qt::LeftButton);
        QCOMPARE(help.shownPage(), u"one.html"_s);
    }

    void followsThemeAndFont()
    {
        Help help;
        QPalette dark(QColor(0x30, 0x30, 0x30));
        dark.setColor(QPalette::Link, Qt::yellow);
        help.window.setPalette(dark);
        QFont large = help.window.font();
        large.setPointSize(31);
        help.window.setFont(large);
        QTextCursor link(help.pageBox().document());
        link.setPosition(3);
        QCOMPARE(link.charFormat().foreground().color(), QColor(Qt::yellow));
        QCOMPARE(help.pageBox().document()->defaultFont().pointSize(), 31);
    }

    void everyControlHasAName()
    {
        const Help help;
        for (const QWidget *control : help.window.findChildren<QWidget *>()) {
            if (control->focusPolicy() == Qt::NoFocus || control->objectName().startsWith("qt_"_L1))
                continue;
            const auto *button = qobject_cast<const QPushButton *>(control);
            QVERIFY2(!control->accessibleName().isEmpty() || (button && !button->text().isEmpty()),
                     qPrintable(control->objectName()));
        }
    }

    void missingFile()
    {
        const QTemporaryDir folder;
        SharedState state;
        state.HelpFile = folder.filePath(u"Quillon.hlp"_s);
        QWidget window;
        HelpCommands commands(state, window);
        const MessageBoxes boxes;
        commands.showContents();
        QCOMPARE(boxes.seen().size(), std::size_t(1));
        QCOMPARE(boxes.seen()[0].icon, QMessageBox::Critical);
        QVERIFY(boxes.seen()[0].text.startsWith("The help file "_L1 + state.HelpFile +
                                                " could not be opened: "_L1));
    }

    void damagedFile()
    {
        const QTemporaryDir folder;
        SharedState state;
        state.HelpFile = folder.filePath(u"Quillon.hlp"_s);
        const auto write = [&state](const QByteArray &bytes) {
            QFile file(state.HelpFile);
            QVERIFY(file.open(QIODevice::WriteOnly));
            QCOMPARE(file.write(bytes), bytes.size());
        };
        QWidget window;
        HelpCommands commands(state, window);
        const MessageBoxes boxes;
        write(bookBytes().chopped(3000));
        commands.showContents();
        QCOMPARE(boxes.seen().size(), std::size_t(1));
        QVERIFY(boxes.seen()[0].text.startsWith("The help file "_L1 + state.HelpFile +
                                                " is damaged. "_L1));
        write(bookBytes()); // mended, it opens
        commands.showContents();
        QCOMPARE(boxes.seen().size(), std::size_t(1));
    }
};

QTEST_MAIN(tst_frmHelp)
#include "tst_frmhelp.moc"
