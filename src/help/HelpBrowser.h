#pragma once

#include <QStringList>
#include <QTextBrowser>

class HelpBook;

/// Shows the pages of a book, in the fonts and colours of the theme and with pictures no wider than
/// itself. It reads nothing but what the book holds.
class HelpBrowser final : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HelpBrowser(QWidget *parent);

    /// From now on shows pages of this book, which outlives it.
    void setBook(const HelpBook &book) { book_ = &book; }

    void showPage(const QString &name);

    /// The name of the page that is shown.
    [[nodiscard]] QString shownPage() const;

    /// From now on marks these words in each page and goes to the first one.
    void setMarkedWords(const QStringList &words);

    QVariant loadResource(int type, const QUrl &url) override;

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void styleDocument();
    void renew();
    void markWords();
    void goToFirstMark();
    [[nodiscard]] int pictureRoom() const;

    const HelpBook *book_ = nullptr;
    QStringList markedWords_;
    int roomAtLoad_ = 0; ///< for which the shown page's pictures were scaled
};
