#include "help/HelpBook.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTextDocument>
#include <algorithm>

namespace {

constexpr qsizetype TitleWeight = 100; // a page about the word comes before those that mention it

/// What follows the line with the sum, if that is its sum.
std::optional<QByteArray> intactContent(QByteArrayView bytes)
{
    constexpr qsizetype LineLength = 64 + 1;
    if (bytes.size() <= LineLength)
        return std::nullopt;
    const QByteArray content = bytes.sliced(LineLength).toByteArray();
    const QByteArray sum = QCryptographicHash::hash(content, QCryptographicHash::Sha256);
    return bytes.first(LineLength) == sum.toHex() + '\n' ? std::optional(content) : std::nullopt;
}

HelpPage readPage(const QJsonObject &page)
{
    const QString html = page[QStringLiteral("html")].toString();
    QTextDocument document;
    document.setHtml(html);
    return {page[QStringLiteral("name")].toString(),
            document.metaInformation(QTextDocument::DocumentTitle), html, document.toPlainText()};
}

qsizetype occurrences(const HelpPage &page, const QString &word)
{
    return page.text.count(word, Qt::CaseInsensitive) +
           TitleWeight * page.title.count(word, Qt::CaseInsensitive);
}

} // namespace

std::optional<HelpBook> HelpBook::read(QByteArrayView bytes)
{
    const std::optional<QByteArray> content = intactContent(bytes);
    if (!content)
        return std::nullopt;
    const QJsonObject file = QJsonDocument::fromJson(*content).object();
    HelpBook book;
    const QJsonArray pages = file[QStringLiteral("pages")].toArray();
    for (const auto &page : pages)
        book.pages_.push_back(readPage(page.toObject()));
    const QJsonObject pictures = file[QStringLiteral("pictures")].toObject();
    for (auto picture = pictures.begin(); picture != pictures.end(); ++picture)
        book.pictures_.insert(picture.key(),
                              QByteArray::fromBase64(picture.value().toString().toLatin1()));
    return book.pages_.empty() ? std::nullopt : std::optional(book);
}

const HelpPage *HelpBook::page(const QString &name) const
{
    const auto found = std::find_if(pages_.begin(), pages_.end(),
                                    [&name](const HelpPage &each) { return each.name == name; });
    return found != pages_.end() ? &*found : nullptr;
}

std::vector<HelpHit> HelpBook::find(const QStringList &words) const
{
    std::vector<HelpHit> hits;
    for (qsizetype i = 0; i < qsizetype(pages_.size()) && !words.isEmpty(); ++i) {
        const HelpPage &page = pages_[std::size_t(i)];
        HelpHit hit{i};
        for (const QString &word : words) {
            const qsizetype count = occurrences(page, word);
            hit.count = count > 0 && hit.count >= 0 ? hit.count + count : -1;
        }
        if (hit.count > 0)
            hits.push_back(hit);
    }
    std::stable_sort(hits.begin(), hits.end(),
                     [](const HelpHit &a, const HelpHit &b) { return a.count > b.count; });
    return hits;
}

QStringList searchedWords(const QString &typed)
{
    static const QRegularExpression Gap(QStringLiteral("\\s+"));
    return typed.split(Gap, Qt::SkipEmptyParts);
}
