// Draws the specimen sheet of the font: every sign with its code, all letters with all marks, and
// verses at several sizes.
//
// usage: quillon_specimen FONTS DOCS, which writes DOCS/specimen.png and DOCS/specimen.pdf

#include "MarkPlaces.h"

#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QRawFont>
#include <QStringDecoder>

#include <functional>
#include <optional>
#include <vector>

namespace {

constexpr int pageWidth = 1240;
constexpr int pageHeight = 1754;
constexpr int margin = 60;
constexpr int signSize = 42;
const QColor labelColour(0x80, 0x80, 0x80);
const QColor supportColour(0xc8, 0xc8, 0xc8);

QFont tengwar(int pixels, bool bold = false, bool italic = false)
{
    QFont font(QStringLiteral("Tengwar Quillon"));
    font.setPixelSize(pixels);
    font.setBold(bold);
    font.setItalic(italic);
    return font;
}

QFont labelFont(int pixels)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixels);
    return font;
}

void label(QPainter &painter, double x, double y, const QString &text, int pixels = 11)
{
    painter.setFont(labelFont(pixels));
    painter.setPen(labelColour);
    painter.drawText(QPointF(x, y), text);
}

void sign(QPainter &painter, double x, double y, int pixels, const QString &text,
          const QColor &colour = Qt::black)
{
    painter.setFont(tengwar(pixels));
    painter.setPen(colour);
    painter.drawText(QPointF(x, y), text);
}

/// The place of a mark among its four codes, or nothing for other signs.
template<size_t count>
std::optional<size_t> placeOf(QChar mark, const std::array<MarkPlaces::Tehta, count> &tehtar)
{
    for (const MarkPlaces::Tehta &tehta : tehtar)
        for (size_t place = 0; place < tehta.codes.size(); ++place)
            if (mark == QChar(tehta.codes[place]))
                return place;
    return std::nullopt;
}

/// A letter that the sign can be shown on, or nothing for what stands alone.
QString supportOf(QChar mark)
{
    if (const auto place = placeOf(mark, MarkPlaces::tehtarAbove))
        return QStringLiteral("563`").sliced(static_cast<qsizetype>(*place), 1);
    if (const auto place = placeOf(mark, MarkPlaces::tehtarBelow))
        return QStringLiteral("561`").sliced(static_cast<qsizetype>(*place), 1);
    for (const MarkPlaces::Bar &bar : MarkPlaces::bars)
        if (mark == QChar(bar.wide) || mark == QChar(bar.single))
            return mark == QChar(bar.wide) ? QStringLiteral("5") : QStringLiteral("6");
    constexpr std::array<std::pair<std::u16string_view, char16_t>, 7> others{{
        {u"(", u'5'},
        {u"O+\u00a3\u00c5\u00c7", u'6'},
        {u">}", u'`'},
        {u"|\u00a2\u00c6", u'h'},
        {u"\u00a1", u'y'},
        {u"_\u00a5", u'j'},
        {MarkPlaces::insideLambe, u'j'},
    }};
    for (const auto &[marks, support] : others)
        if (QStringView(marks).contains(mark))
            return QChar(support);
    return QString();
}

void drawSign(QPainter &painter, double x, double y, int code)
{
    QString text = QStringDecoder("windows-1252").decode(QByteArray(1, static_cast<char>(code)));
    label(painter, x, y - 50, QString::number(code, 16).toUpper());
    if (!QRawFont::fromFont(tengwar(signSize)).supportsCharacter(text.front()))
        return;
    label(painter, x + 24, y - 50, text);
    // Layout hides the soft hyphen; its sign stands among the symbols too.
    if (code == 0xad)
        text = QStringLiteral("\uf0ad");
    const QString support = supportOf(text.front());
    sign(painter, x + 6, y, signSize, support, supportColour);
    const double advance = QFontMetricsF(tengwar(signSize)).horizontalAdvance(support);
    sign(painter, x + 6 + advance, y, signSize, text);
}

void drawSigns(QPainter &painter)
{
    label(painter, margin, 50, QStringLiteral("Tengwar Quillon: the signs and their codes"), 22);
    constexpr int columns = 14;
    constexpr double cell = (pageWidth - 2.0 * margin) / columns;
    constexpr double rowHeight = 102;
    for (int code = 0x20; code <= 0xff; ++code) {
        const int row = (code - 0x20) / columns;
        const int column = (code - 0x20) % columns;
        drawSign(painter, margin + cell * column, 130 + rowHeight * row, code);
    }
}

using Columns = std::vector<std::function<QString(QChar letter)>>;

/// Rows of letters, each with every mark of the columns in the place that belongs to the letter.
void drawGrid(QPainter &painter, const QString &title, QStringView letters, const Columns &columns)
{
    label(painter, margin, 50, title, 22);
    const double cell = (pageWidth - 2.0 * margin) / static_cast<double>(columns.size());
    const double rowHeight = (pageHeight - 110.0) / static_cast<double>(letters.size());
    double y = 100;
    for (const QChar letter : letters) {
        double x = margin;
        for (const auto &mark : columns) {
            sign(painter, x, y, signSize, letter + mark(letter));
            x += cell;
        }
        y += rowHeight;
    }
}

std::function<QString(QChar)> placed(const MarkPlaces::Tehta &tehta,
                                     const std::array<MarkPlaces::Place, 4> &places)
{
    return [&tehta, &places](QChar letter) {
        for (size_t place = 0; place < places.size(); ++place)
            if (QStringView(places[place].letters).contains(letter))
                return QString(QChar(tehta.codes[place]));
        return QString();
    };
}

std::function<QString(QChar)> placed(const MarkPlaces::Bar &bar)
{
    return [&bar](QChar letter) {
        return QString(
            QChar(QStringView(MarkPlaces::doubled).contains(letter) ? bar.wide : bar.single));
    };
}

Columns columnsAbove(QStringView)
{
    Columns columns;
    for (const MarkPlaces::Tehta &tehta : MarkPlaces::tehtarAbove)
        columns.push_back(placed(tehta, MarkPlaces::above));
    for (const size_t bar : {0, 1, 4, 5})
        columns.push_back(placed(MarkPlaces::bars[bar]));
    return columns;
}

Columns columnsBelow(QStringView letters)
{
    Columns columns;
    for (const MarkPlaces::Tehta &tehta : MarkPlaces::tehtarBelow)
        columns.push_back(placed(tehta, MarkPlaces::below));
    for (const size_t bar : {2, 3, 6, 7})
        columns.push_back(placed(MarkPlaces::bars[bar]));
    columns.push_back([](QChar letter) {
        for (const MarkPlaces::Hook &hook : MarkPlaces::hooks)
            if (QStringView(hook.letters).contains(letter))
                return QString(QChar(hook.code));
        return QString();
    });
    if (letters.contains(u'j')) // the marks inside bowls
        for (const char16_t inside : MarkPlaces::insideLambe)
            columns.push_back([inside](QChar letter) {
                return QStringView(MarkPlaces::lambeAndAlda).contains(letter)
                           ? QString(QChar(inside))
                           : QString();
            });
    return columns;
}

const std::array verses{
    u"AE5,Ex 26Yw1EjYz^H AE5,Ex xwP%1EjY",
    u"AE5,Ex 37zE1EjYz^H X# w6Ykt^ AT`B z7qpT1EjY",
    u"lE j.E7T`V jE4#6 jE,T 8~M7T5$5 -",
    u"h\u00cd~V5% ~M5~N1Tt$ yR 7~Ct#6 `CmE7Y5 =",
    u"`C jRw7R3F xjT35^`BjR 8jTr%75$ q5{$`C t~B7`BjR",
    u"l5i6 2.7`6 ]7]6 yh7`] \u203a ql2h yljjh6 ] y`5h",
    u"1x{$y6E 1zR|1w~Nz \u00f0\u00f1\u00f2\u00f3\u00f4\u00f5\u00f6\u00f7\u00f8\u00f9\u00fa\u00fb",
};

void drawVerses(QPainter &painter)
{
    label(painter, margin, 50, QStringLiteral("Verses"), 22);
    double y = 60;
    const auto line = [&](int pixels, size_t verse, bool bold, bool italic) {
        const QFont font = tengwar(pixels, bold, italic);
        painter.setFont(font);
        painter.setPen(Qt::black);
        painter.drawText(QPointF(margin, y + QFontMetricsF(font).ascent()),
                         QString::fromUtf16(verses[verse]));
        y += QFontMetricsF(font).lineSpacing();
    };
    for (const int pixels : {12, 14, 16, 20, 24, 48, 64}) {
        for (size_t verse = 0; verse < (pixels > 40 ? 2 : pixels > 20 ? 4 : verses.size()); ++verse)
            line(pixels, verse, false, false);
        y += 14;
    }
    for (const auto &[bold, italic] : {std::pair{true, false}, {false, true}, {true, true}}) {
        line(16, 3, bold, italic);
        line(36, 2, bold, italic);
    }
}

using Page = std::function<void(QPainter &)>;

std::vector<Page> pages()
{
    const QString letters = QStringLiteral("1qaz2wsx3edc4rfv5tgb6yhn!QAZ@WSX7ujm8ik,9ol.]`~\u00bd");
    const QString others = QStringLiteral(
        "*IK<\u2021\u2022\u2013\u0161\u00ae\u00a6\u00a7\u00b3\u00be\u00bf\u00bc\u00c4"
        "\u00f0\u00f1\u00f2\u00f3\u00f4\u00f5\u00f6\u00f7\u00f8\u00f9\u00fa\u00fb");
    const auto grid = [](const QString &title, const QString &rows,
                         Columns (*columns)(QStringView)) {
        return [=](QPainter &painter) { drawGrid(painter, title, rows, columns(rows)); };
    };
    return {
        drawSigns,
        grid(QStringLiteral("Letters with marks above, I"), letters.first(24), columnsAbove),
        grid(QStringLiteral("Letters with marks above, II"), letters.sliced(24), columnsAbove),
        grid(QStringLiteral("Rare letters and numerals with marks above"), others, columnsAbove),
        grid(QStringLiteral("Letters with marks below, I"), letters.first(24), columnsBelow),
        grid(QStringLiteral("Letters with marks below, II"), letters.sliced(24), columnsBelow),
        grid(QStringLiteral("Rare letters and numerals with marks below"), others, columnsBelow),
        drawVerses};
}

void writePicture(const QString &file, const std::vector<Page> &all)
{
    QImage image(pageWidth, pageHeight * static_cast<int>(all.size()), QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    for (const Page &page : all) {
        page(painter);
        painter.translate(0, pageHeight);
    }
    painter.end();
    image.save(file);
}

void writePdf(const QString &file, const std::vector<Page> &all)
{
    QPdfWriter writer(file);
    writer.setTitle(QStringLiteral("Tengwar Quillon"));
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF());
    QPainter painter(&writer);
    const double scale = writer.width() / static_cast<double>(pageWidth);
    painter.scale(scale, scale);
    for (const Page &page : all) {
        if (&page != &all.front())
            writer.newPage();
        page(painter);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    if (argc != 3)
        qFatal("usage: quillon_specimen FONTS DOCS");
    const QDir fonts(QString::fromLocal8Bit(argv[1]));
    for (const QString &name : fonts.entryList({QStringLiteral("*.otf")}))
        QFontDatabase::addApplicationFont(fonts.filePath(name));
    const QDir docs(QString::fromLocal8Bit(argv[2]));
    docs.mkpath(QStringLiteral("."));
    writePicture(docs.filePath(QStringLiteral("specimen.png")), pages());
    writePdf(docs.filePath(QStringLiteral("specimen.pdf")), pages());
    return 0;
}
