#include "help/HelpBrowser.h"

#include "help/HelpBook.h"

#include <QEvent>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>
#include <utility>

namespace {

// Pictures are taken of windows at this scale, to look sharp on dense screens as well.
constexpr qreal PictureScale = 2;
constexpr qreal TengwarSize = 1.5; // tengwar are small beside letters of the same size
constexpr int PageMargin = 16;

QUrl pageUrl(const QString &name)
{
    return QUrl(QStringLiteral("help:/") + name);
}

QString nameIn(const QUrl &url)
{
    return url.path().mid(1);
}

QColor blend(const QColor &colour, const QColor &ground, qreal share)
{
    const auto mix = [share](float a, float b) { return float(a * share + b * (1 - share)); };
    return QColor::fromRgbF(mix(colour.redF(), ground.redF()),
                            mix(colour.greenF(), ground.greenF()),
                            mix(colour.blueF(), ground.blueF()));
}

} // namespace

HelpBrowser::HelpBrowser(QWidget *parent) : QTextBrowser(parent)
{
    setOpenExternalLinks(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // or pictures would change their room
    document()->setDocumentMargin(PageMargin);
    styleDocument();
    connect(this, &QTextBrowser::sourceChanged, this, &HelpBrowser::markWords);
}

void HelpBrowser::showPage(const QString &name)
{
    if (shownPage() != name)
        setSource(pageUrl(name));
    goToFirstMark();
}

QString HelpBrowser::shownPage() const
{
    return nameIn(source());
}

void HelpBrowser::setMarkedWords(const QStringList &words)
{
    if (words == markedWords_)
        return;
    markedWords_ = words;
    markWords();
    goToFirstMark();
}

QVariant HelpBrowser::loadResource(int type, const QUrl &url)
{
    if (book_ == nullptr)
        return {};
    if (type == QTextDocument::HtmlResource) {
        roomAtLoad_ = pictureRoom();
        const HelpPage *page = book_->page(nameIn(url));
        return page != nullptr ? page->html : QVariant();
    }
    const QImage picture = QImage::fromData(book_->picture(nameIn(pageUrl({}).resolved(url))));
    if (picture.isNull())
        return {};
    const qreal width = std::min<qreal>(picture.width() / PictureScale, pictureRoom());
    QImage shown =
        picture.scaledToWidth(qRound(width * devicePixelRatioF()), Qt::SmoothTransformation);
    shown.setDevicePixelRatio(devicePixelRatioF());
    return shown;
}

void HelpBrowser::changeEvent(QEvent *event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        renew();
}

void HelpBrowser::resizeEvent(QResizeEvent *event)
{
    QTextBrowser::resizeEvent(event);
    if (pictureRoom() != roomAtLoad_)
        renew();
}

void HelpBrowser::styleDocument()
{
    const QPalette &colours = palette();
    const QColor ground = colours.color(QPalette::Base);
    const QString soft = blend(colours.color(QPalette::Text), ground, 0.12).name();
    document()->setDefaultStyleSheet(
        QStringLiteral("a { color: %1 }"
                       "kbd { font-family: '%2'; background-color: %3 }"
                       "table { border-collapse: collapse; border-color: %3; margin-top: 8px;"
                       " margin-bottom: 8px }"
                       "th { background-color: %3; text-align: left }"
                       "td { vertical-align: middle }"
                       "dt { font-weight: bold; margin-top: 6px }"
                       "dd { margin-bottom: 6px }"
                       ".tengwar { font-family: 'Tengwar Quillon'; font-size: %4pt }"
                       ".caption { color: %5 }")
            .arg(colours.color(QPalette::Link).name(), font().family(), soft)
            .arg(fontInfo().pointSizeF() * TengwarSize)
            .arg(blend(colours.color(QPalette::Text), ground, 0.7).name()));
}

void HelpBrowser::renew()
{
    styleDocument();
    if (source().isEmpty())
        return;
    const int place = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(place);
}

void HelpBrowser::markWords()
{
    QList<ExtraSelection> marks;
    for (const QString &word : std::as_const(markedWords_)) {
        for (QTextCursor found = document()->find(word); !found.isNull();
             found = document()->find(word, found)) {
            ExtraSelection mark;
            mark.cursor = found;
            mark.format.setBackground(palette().highlight());
            mark.format.setForeground(palette().highlightedText());
            marks.append(mark);
        }
    }
    setExtraSelections(marks);
}

void HelpBrowser::goToFirstMark()
{
    const QList<ExtraSelection> marks = extraSelections();
    const auto first = std::min_element(
        marks.begin(), marks.end(), [](const ExtraSelection &a, const ExtraSelection &b) {
            return a.cursor.selectionStart() < b.cursor.selectionStart();
        });
    if (first == marks.end())
        return;
    QTextCursor cursor = first->cursor;
    cursor.setPosition(cursor.selectionStart());
    setTextCursor(cursor);
    ensureCursorVisible();
}

int HelpBrowser::pictureRoom() const
{
    return std::max(viewport()->width() - 2 * PageMargin, 1);
}
