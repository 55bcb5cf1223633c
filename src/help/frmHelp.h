#pragma once

#include "help/HelpBook.h"

#include <QWidget>
#include <memory>

class QListWidget;
namespace Ui {
class frmHelp;
}

/// The help's window: a list of contents beside the page, a box to search all pages, and buttons to
/// walk back and forward. While words are searched for, the list is that of the pages that hold
/// them, and the words are marked in the page.
class frmHelp final : public QWidget
{
    Q_OBJECT

public:
    /// Shows the book's first page.
    explicit frmHelp(HelpBook book);
    ~frmHelp() override;

private:
    void connectControls();
    void connectKeys();
    void search();
    void followPage();
    void openFirstHit();
    void escape();
    [[nodiscard]] QListWidget &shownList() const;

    HelpBook book_;
    std::unique_ptr<Ui::frmHelp> ui_;
};
