#include "help/HelpBook.h"

#include "help/TarArchive.h"

#include <QCryptographicHash>
#include <QRegularExpression>
#include <QTextDocument>
#include <algorithm>

namespace {

constexpr qsizetype TitleWeight = 100; // a page about the word comes before those that mention it

QHash<QString, QByteArray> readSums(const QByteArray &listing)
{
    QHash<QString, QByteArray> sums;
    for (const QByteArray &line : listing.split('\n')) {
        const qsizetype gap = line.indexOf("  ");
        if (gap > 0)
            sums.insert(QString::fromUtf8(line.mid(gap + 2)), QByteArray::fromHex(line.left(gap)));
    }
    return sums;
}

bool areIntact(const std::vector<TarEntry> &files, const QHash<QString, QByteArray> &sums)
{
    return qsizetype(files.size()) == sums.size() &&
           std::all_of(files.begin(), files.end(), [&sums](const TarEntry &file) {
               return sums.value(file.name) ==
                      QCryptographicHash::hash(file.content, QCryptographicHash::Sha256);
           });
}

HelpPage readPage(const TarEntry &file)
{
    QTextDocument document;
    const QString html = QString::fromUtf8(file.content);
    document.setHtml(html);
    return {file.name, document.metaInformation(QTextDocument::DocumentTitle), html,
            document.toPlainText()};
}

qsizetype occurrences(const HelpPage &page, const QString &word)
{
    return page.text.count(word, Qt::CaseInsensitive) +
           TitleWeight * page.title.count(word, Qt::CaseInsensitive);
}

} // namespace

std::optional<HelpBook> HelpBook::read(QByteArrayView bytes)
{
    std::optional<std::vector<TarEntry>> files = readTar(bytes);
    if (!files || files->empty() || files->back().name != QStringLiteral("SHA256SUMS"))
        return std::nullopt;
    const QHash<QString, QByteArray> sums = readSums(files->back().content);
    files->pop_back();
    if (!areIntact(*files, sums))
        return std::nullopt;
    HelpBook book;
    for (const TarEntry &file : *files) {
        if (file.name.endsWith(QStringLiteral(".html")))
            book.pages_.push_back(readPage(file));
        else
            book.pictures_.insert(file.name, file.content);
    }
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
