#include "help/frmHelp.h"

#include "ui_frmHelp.h"

#include <QScreen>
#include <QShortcut>

namespace {

constexpr int PageName = Qt::UserRole;

void addPage(QListWidget &list, const HelpPage &page)
{
    auto *item = new QListWidgetItem(page.title, &list);
    item->setData(PageName, page.name);
}

/// Selects the page in the list without opening it anew; nothing is selected for an unknown one.
void selectPage(QListWidget &list, const QString &name)
{
    const QSignalBlocker blocker(list);
    list.setCurrentRow(-1);
    for (int row = 0; row < list.count(); ++row) {
        if (list.item(row)->data(PageName) == name)
            list.setCurrentRow(row);
    }
}

/// What the list needs to show the longest title.
int titleWidth(const QListWidget &list)
{
    const int scrollBar = list.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return list.sizeHintForColumn(0) + 2 * list.frameWidth() + scrollBar;
}

QSize startingSize(const QWidget &window)
{
    constexpr int Columns = 150;
    constexpr int Lines = 46;
    const QFontMetrics metrics(window.font());
    const QSize wanted(Columns * metrics.averageCharWidth(), Lines * metrics.lineSpacing());
    return wanted.boundedTo(window.screen()->availableSize() * 0.9);
}

} // namespace

frmHelp::frmHelp(HelpBook book) : book_(std::move(book)), ui_(std::make_unique<Ui::frmHelp>())
{
    ui_->setupUi(this);
    ui_->lblHits->hide();
    ui_->splitter->setStretchFactor(0, 0);
    ui_->splitter->setStretchFactor(1, 1);
    ui_->rtbPage->setBook(book_);
    for (const HelpPage &page : book_.pages())
        addPage(*ui_->lstContents, page);
    connectControls();
    connectKeys();
    resize(startingSize(*this));
    const int listWidth = titleWidth(*ui_->lstContents);
    ui_->splitter->setSizes({listWidth, width() - listWidth});
    ui_->rtbPage->showPage(book_.pages().front().name);
    ui_->lstContents->setFocus();
}

frmHelp::~frmHelp() = default;

void frmHelp::connectControls()
{
    const HelpBrowser *page = ui_->rtbPage;
    connect(ui_->cmdBack, &QPushButton::clicked, page, &QTextBrowser::backward);
    connect(ui_->cmdForward, &QPushButton::clicked, page, &QTextBrowser::forward);
    connect(page, &QTextBrowser::backwardAvailable, ui_->cmdBack, &QWidget::setEnabled);
    connect(page, &QTextBrowser::forwardAvailable, ui_->cmdForward, &QWidget::setEnabled);
    connect(page, &QTextBrowser::historyChanged, this, &frmHelp::followPage);
    connect(ui_->txtSearch, &QLineEdit::textChanged, this, &frmHelp::search);
    connect(ui_->txtSearch, &QLineEdit::returnPressed, this, &frmHelp::openFirstHit);
    for (QListWidget *list : {ui_->lstContents, ui_->lstHits}) {
        connect(list, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem *item) {
            if (item != nullptr)
                ui_->rtbPage->showPage(item->data(PageName).toString());
        });
        connect(list, &QListWidget::itemActivated, ui_->rtbPage, qOverload<>(&QWidget::setFocus));
    }
}

void frmHelp::connectKeys()
{
    const auto *back = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Left), this);
    connect(back, &QShortcut::activated, ui_->rtbPage, &QTextBrowser::backward);
    const auto *forward = new QShortcut(QKeySequence(Qt::ALT | Qt::Key_Right), this);
    connect(forward, &QShortcut::activated, ui_->rtbPage, &QTextBrowser::forward);
    const auto *find = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this);
    connect(find, &QShortcut::activated, ui_->txtSearch, [this] {
        ui_->txtSearch->setFocus();
        ui_->txtSearch->selectAll();
    });
    const auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(escape, &QShortcut::activated, this, &frmHelp::escape);
}

void frmHelp::search()
{
    const QStringList words = searchedWords(ui_->txtSearch->text());
    const std::vector<HelpHit> hits = book_.find(words);
    {
        const QSignalBlocker blocker(ui_->lstHits);
        ui_->lstHits->clear();
        for (const HelpHit &hit : hits)
            addPage(*ui_->lstHits, book_.pages()[std::size_t(hit.page)]);
    }
    QListWidget *list = words.isEmpty() ? ui_->lstContents : ui_->lstHits;
    ui_->lists->setCurrentWidget(list);
    ui_->lblHits->setVisible(!words.isEmpty() && hits.empty());
    ui_->lblHits->setText(tr("No page has all of these words."));
    ui_->rtbPage->setMarkedWords(words);
    followPage();
}

void frmHelp::followPage()
{
    selectPage(shownList(), ui_->rtbPage->shownPage());
}

void frmHelp::openFirstHit()
{
    if (ui_->lists->currentWidget() != ui_->lstHits || ui_->lstHits->count() == 0)
        return;
    ui_->lstHits->setFocus();
    ui_->lstHits->setCurrentRow(0);
}

void frmHelp::escape()
{
    if (ui_->txtSearch->text().isEmpty())
        close();
    else
        ui_->txtSearch->clear();
}

QListWidget &frmHelp::shownList() const
{
    return *(ui_->lists->currentWidget() == ui_->lstHits ? ui_->lstHits : ui_->lstContents);
}
