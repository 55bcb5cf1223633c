#include "app/Form1.h"
#include "app/MenuTable.h"
#include "app/Program.h"
#include "app/ToolbarTable.h"
#include "engine/LoadMode.h"
#include "engine/TranscribeText.h"
#include "help/HelpBook.h"
#include "platform/RichTextBox.h"
#include "support/RegistryFolder.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QXmlStreamReader>

using namespace Qt::Literals::StringLiterals;

/// The help that the program comes with tells the truth about it.
class tst_HelpPages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pagesAreWellFormed();
    void linksLeadSomewhere();
    void picturesAreThereAndUsed();
    void everyCommandIsDescribed_data();
    void everyCommandIsDescribed();
    void noCommandIsInvented();
    void everyShortcutIsListed_data();
    void everyShortcutIsListed();
    void namedKeysExist();
    void everyToolbarButtonIsNamed();
    void examplesAreWhatTheModeWrites();
    void opensByItsKey();

private:
    [[nodiscard]] QStringList matches(const QString &pattern) const;

    std::optional<HelpBook> book_;
};

namespace {

bool isCommand(std::size_t entry)
{
    const auto table = menuTable();
    const bool opens = entry + 1 < table.size() && table[entry + 1].depth > table[entry].depth;
    return !opens && table[entry].caption != "-"_L1;
}

/// As people say it: without the sign for the underlined letter and the dots.
QString spoken(QLatin1StringView caption)
{
    return QString(caption).remove(u'&').remove(u"..."_s);
}

void addCommands(bool withShortcut)
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("shortcut");
    for (std::size_t i = 0; i < menuTable().size(); ++i) {
        const MenuEntry &entry = menuTable()[i];
        if (isCommand(i) && (!withShortcut || !entry.shortcut.isEmpty()))
            QTest::newRow(entry.name.data())
                << QString(entry.name) << spoken(entry.caption) << QString(entry.shortcut);
    }
}

void addButtonsWithShortcut()
{
    for (const ToolbarEntry &entry : formattingToolbarTable()) {
        if (!entry.shortcut.isEmpty())
            QTest::newRow(entry.key.data())
                << QString() << QString(entry.tip) << QString(entry.shortcut);
    }
}

struct PageLinks
{
    QSet<QString> anchors;
    QStringList targets;
};

PageLinks linksOf(const HelpPage &page)
{
    QTextDocument document;
    document.setHtml(page.html);
    PageLinks links;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            for (const QString &anchor : format.anchorNames())
                links.anchors.insert(anchor);
            if (!format.anchorHref().isEmpty())
                links.targets.append(format.anchorHref());
        }
    }
    return links;
}

} // namespace

void tst_HelpPages::initTestCase()
{
    QFile file(QStringLiteral(QUILLON_PROGRAM_FOLDER) + u"/Quillon.hlp"_s);
    QVERIFY(file.open(QIODevice::ReadOnly));
    book_ = HelpBook::read(file.readAll());
    QVERIFY(book_);
}

/// What the pattern's first group catches in all pages.
QStringList tst_HelpPages::matches(const QString &pattern) const
{
    QStringList found;
    for (const HelpPage &page : book_->pages()) {
        auto each = QRegularExpression(pattern).globalMatch(page.html);
        while (each.hasNext())
            found += each.next().captured(1);
    }
    return found;
}

void tst_HelpPages::pagesAreWellFormed()
{
    QSet<QString> titles;
    for (const HelpPage &page : book_->pages()) {
        QXmlStreamReader xml(page.html);
        while (!xml.atEnd())
            xml.readNext();
        QVERIFY2(
            !xml.hasError(),
            qPrintable(
                u"%1, line %2: %3"_s.arg(page.name).arg(xml.lineNumber()).arg(xml.errorString())));
        QVERIFY2(page.text.startsWith(page.title + u'\n'), qPrintable(page.name));
        QVERIFY2(!titles.contains(page.title), qPrintable(page.title));
        titles.insert(page.title);
    }
}

void tst_HelpPages::linksLeadSomewhere()
{
    int count = 0;
    for (const HelpPage &page : book_->pages()) {
        for (const QString &target : linksOf(page).targets) {
            ++count;
            const QUrl url(target);
            const QString name = url.path().isEmpty() ? page.name : url.path();
            const HelpPage *linked = book_->page(name);
            QVERIFY2(linked, qPrintable(page.name + u" links to "_s + target));
            QVERIFY2(!url.hasFragment() || linksOf(*linked).anchors.contains(url.fragment()),
                     qPrintable(page.name + u" links to "_s + target));
        }
    }
    QVERIFY(count > 0);
}

void tst_HelpPages::picturesAreThereAndUsed()
{
    QStringList used = matches(u"<img src=\"([^\"]*)\""_s);
    for (const QString &name : std::as_const(used))
        QVERIFY2(!QImage::fromData(book_->picture(name)).isNull(), qPrintable(name));
    used.sort();
    used.removeDuplicates();
    QStringList kept;
    const QDir pictures(QStringLiteral(QUILLON_SOURCE_FOLDER "/data/help/pictures"));
    for (const QString &name : pictures.entryList(QDir::Files, QDir::Name))
        kept += u"pictures/"_s + name;
    QCOMPARE(used, kept);
}

void tst_HelpPages::everyCommandIsDescribed_data()
{
    addCommands(false);
}

void tst_HelpPages::everyCommandIsDescribed()
{
    QFETCH(QString, name);
    QFETCH(QString, caption);
    QFETCH(QString, shortcut);
    const QStringList terms = matches(u"<dt><a name=\"%1\"></a>([^\n]*)</dt>\n<dd>."_s.arg(name));
    QCOMPARE(terms.size(), 1);
    const QString key = shortcut.isEmpty() ? QString() : u" <kbd>%1</kbd>"_s.arg(shortcut);
    const QString dots = u"(\\.\\.\\.)?"_s;
    const QRegularExpression expected(u"^(?:[^:]*: )?"_s + QRegularExpression::escape(caption) +
                                      dots + QRegularExpression::escape(key) + u'$');
    QVERIFY2(expected.match(terms[0]).hasMatch(), qPrintable(terms[0]));
}

void tst_HelpPages::noCommandIsInvented()
{
    QSet<QString> names;
    for (const MenuEntry &entry : menuTable())
        names.insert(entry.name);
    for (const QString &name : matches(u"<dt><a name=\"([^\"]*)\""_s))
        QVERIFY2(names.contains(name), qPrintable(name));
}

void tst_HelpPages::everyShortcutIsListed_data()
{
    addCommands(true);
    addButtonsWithShortcut();
}

void tst_HelpPages::everyShortcutIsListed()
{
    QFETCH(QString, caption);
    QFETCH(QString, shortcut);
    const QString row = u"<tr><td><kbd>%1</kbd></td><td>%2</td></tr>"_s.arg(shortcut, caption);
    QVERIFY(book_->page(u"keys.html"_s)->html.contains(row));
}

void tst_HelpPages::namedKeysExist()
{
    // Those that no menu shows: of the window, the panes, the boxes, and the help itself.
    QSet<QString> known{u"F5"_s,        u"F6"_s,        u"Shift+F6"_s,  u"Esc"_s,
                        u"Ctrl+Tab"_s,  u"Alt"_s,       u"Menu"_s,      u"Enter"_s,
                        u"Shift+Del"_s, u"Ctrl+Ins"_s,  u"Shift+Ins"_s, u"Backspace"_s,
                        u"Alt+Left"_s,  u"Alt+Right"_s, u"Left"_s,      u"Right"_s,
                        u"Home"_s,      u"End"_s};
    for (const MenuEntry &entry : menuTable())
        known.insert(entry.shortcut);
    for (const ToolbarEntry &entry : formattingToolbarTable())
        known.insert(entry.shortcut);
    for (const QString &key : matches(u"<kbd>([^<]*)</kbd>"_s))
        QVERIFY2(known.contains(key), qPrintable(key));
}

void tst_HelpPages::everyToolbarButtonIsNamed()
{
    const QString text = book_->page(u"window.html"_s)->text;
    for (const auto &table : {standardToolbarTable(), formattingToolbarTable()}) {
        for (const ToolbarEntry &entry : table)
            QVERIFY2(text.contains(entry.tip, Qt::CaseInsensitive), entry.tip.data());
    }
}

void tst_HelpPages::examplesAreWhatTheModeWrites()
{
    ModeTable english;
    QVERIFY(LoadMode(QStringLiteral(QUILLON_PROGRAM_FOLDER "/Modes"), u"English"_s, english));
    const QRegularExpression example(
        u"<i>([a-z ]+)</i>[^<]*<span class=\"tengwar\">([^<]*)</span>"_s);
    auto each = example.globalMatch(book_->page(u"modes.html"_s)->html);
    QVERIFY(each.hasNext());
    while (each.hasNext()) {
        const QRegularExpressionMatch match = each.next();
        QString word = match.captured(1);
        TranscriptionContext context;
        QCOMPARE(TranscribeText(word, english, context),
                 QTextDocumentFragment::fromHtml(match.captured(2)).toPlainText());
    }
}

void tst_HelpPages::opensByItsKey()
{
    RegistryFolder registry;
    Program program(registry.registry, QStringLiteral(QUILLON_PROGRAM_FOLDER),
                    QStringLiteral(QUILLON_PROGRAM_FOLDER "/Fonts"));
    QVERIFY(program.Main());
    RichTextBox *pane = program.form().controls().rtbRoman;
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    QTest::keyClick(pane, Qt::Key_F1);
    QWidget *help = QApplication::activeWindow();
    QTRY_VERIFY((help = QApplication::activeWindow()) && help->objectName() == "frmHelp"_L1);
    program.form().activateWindow(); // the help stays open beside the window
    QVERIFY(QTest::qWaitForWindowActive(&program.form()));
    QVERIFY(help->isVisible());
    QTest::keyClick(pane, Qt::Key_F1);
    QTRY_COMPARE(QApplication::activeWindow(), help);
}

QTEST_MAIN(tst_HelpPages)
#include "tst_helppages.moc"
