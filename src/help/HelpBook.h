#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <optional>
#include <vector>

/// A page of the help.
struct HelpPage
{
    QString name;  ///< such as "keys.html"; links name pages by it
    QString title; ///< as the list of contents shows it
    QString html;
    QString text; ///< its words without markup
};

/// A page that holds what was searched for.
struct HelpHit
{
    qsizetype page = 0;  ///< index into HelpBook::pages
    qsizetype count = 0; ///< how often the words occur, in title and text
};

/// The help as a book: pages in their order, and pictures.
///
/// Its file begins with a line of 64 hexadecimal digits, the SHA-256 sum of what follows: a JSON
/// object with an array "pages", objects of a "name" and a "html", and an object "pictures", which
/// has PNG files in base64 under their names.
class HelpBook
{
public:
    /// The book in those bytes. Nothing if they are damaged in any way or hold no page.
    [[nodiscard]] static std::optional<HelpBook> read(QByteArrayView bytes);

    [[nodiscard]] const std::vector<HelpPage> &pages() const { return pages_; }

    /// The page of that name; null if there is none.
    [[nodiscard]] const HelpPage *page(const QString &name) const;

    /// The bytes of a picture, such as "pictures/window.png"; empty if there is none.
    [[nodiscard]] QByteArray picture(const QString &name) const { return pictures_.value(name); }

    /// The pages that hold every one of the words, in capitals or small letters, those that hold
    /// them in their title or most often first. Nothing for no words.
    [[nodiscard]] std::vector<HelpHit> find(const QStringList &words) const;

private:
    std::vector<HelpPage> pages_;
    QHash<QString, QByteArray> pictures_;
};

/// What was typed into a search box, as words.
[[nodiscard]] QStringList searchedWords(const QString &typed);
