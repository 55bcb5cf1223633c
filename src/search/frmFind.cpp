#include "search/frmFind.h"

#include "editor/ApplyFormFonts.h"
#include "editor/SelectAllOnFocus.h"
#include "editor/SharedState.h"
#include "platform/MessageBox.h"
#include "platform/RichTextBox.h"
#include "platform/RunCommand.h"
#include "platform/SoftHyphenEdit.h"
#include "search/TranscribeTyped.h"
#include "ui_frmFind.h"

#include <QKeyEvent>
#include <QLocale>
#include <QScreen>

namespace {

bool userWantsToWrap(QWidget *dialog)
{
    const Message question = {.text =
                                  QStringLiteral("The search has reached the end of the document. "
                                                 "Do you wish to continue from the top?"),
                              .title = QStringLiteral("Search"),
                              .buttons = QMessageBox::Yes | QMessageBox::No};
    return showMessage(dialog, question) == QMessageBox::Yes;
}

void tellNotFound(QWidget *dialog)
{
    showMessage(dialog, {QStringLiteral("Search string was not found!"),
                         QStringLiteral("Finished search"), QMessageBox::Warning});
}

} // namespace

frmFind::frmFind(SharedState &state, const Panes &panes, std::function<bool()> isTranscribing,
                 QWidget *parent)
    : QDialog(parent), state_(state), panes_(panes), isTranscribing_(std::move(isTranscribing)),
      ui_(std::make_unique<Ui::frmFind>()), replaceAll_(state, *this)
{
    ui_->setupUi(this);
    ApplyFormFonts(*this, state_.Settings);
    connectControls();
    takeTransfer();
    enableControls();
}

frmFind::~frmFind() = default;

void frmFind::connectControls()
{
    const auto onClick = [this](QAbstractButton *button, void (frmFind::*command)()) {
        connect(button, &QAbstractButton::clicked, this,
                [this, command] { runCommand(this, [this, command] { (this->*command)(); }); });
    };
    onClick(ui_->cmdFind, &frmFind::find);
    onClick(ui_->cmdReplace, &frmFind::replace);
    onClick(ui_->cmdReplaceAll, &frmFind::replaceAll);
    onClick(ui_->cmdShowReplace, &frmFind::toggleReplaceControls);
    onClick(ui_->cmdClose, &frmFind::reject);
    connect(ui_->optTengwarSearch, &QRadioButton::toggled, this, &frmFind::chooseSearchMode);
    connect(ui_->optTengwarReplace, &QRadioButton::toggled, this, [this](bool isChosen) {
        if (isChosen)
            refill(*ui_->txtRomanReplace, *ui_->txtTengwarReplace);
    });
    connect(&replaceAll_, &ReplaceAll::progressed, this, &frmFind::showProgress);
    connect(&replaceAll_, &ReplaceAll::finished, this, &frmFind::enableControls);
    for (QLineEdit *box : {ui_->txtTengwarSearch, ui_->txtTengwarReplace})
        showSoftHyphens(*box);
    for (QLineEdit *box : {ui_->txtRomanSearch, ui_->txtTengwarSearch, ui_->txtRomanReplace,
                           ui_->txtTengwarReplace}) {
        SelectAllOnFocus(*box);
        box->installEventFilter(this);
    }
}

void frmFind::takeTransfer()
{
    if (state_.ActivePane == PaneCode::Target) {
        ui_->txtTengwarSearch->setText(state_.TransferText);
        ui_->optTengwarSearch->setChecked(true);
        ui_->txtTengwarSearch->setFocus();
    } else {
        if (state_.ActivePane == PaneCode::Source)
            ui_->txtRomanSearch->setText(state_.TransferText);
        ui_->txtRomanSearch->setFocus();
    }
    ui_->fraReplaceWith->hide();
    ui_->cmdReplace->hide();
    ui_->cmdReplaceAll->hide();
    if (state_.TransferValue.toString() == QLatin1String("Replace"))
        showReplaceControls();
    state_.TransferValue.clear();
}

void frmFind::showReplaceControls()
{
    if (ui_->fraReplaceWith->isHidden())
        toggleReplaceControls();
}

void frmFind::toggleReplaceControls()
{
    const bool isShown = ui_->fraReplaceWith->isHidden();
    ui_->fraReplaceWith->setVisible(isShown);
    ui_->cmdReplace->setVisible(isShown);
    ui_->cmdReplaceAll->setVisible(isShown);
    ui_->cmdShowReplace->setText(isShown ? QStringLiteral(">> &Hide replace")
                                         : QStringLiteral("<< &Show replace"));
    layout()->activate();
    resize(width(), minimumSizeHint().height());
}

void frmFind::chooseSearchMode()
{
    const bool isRoman = ui_->optRomanSearch->isChecked();
    ui_->fraOptions->setEnabled(isRoman);
    ui_->chkWord->setEnabled(isRoman);
    ui_->chkCase->setEnabled(isRoman);
    if (!isRoman)
        refill(*ui_->txtRomanSearch, *ui_->txtTengwarSearch);
}

void frmFind::refill(const QLineEdit &roman, QLineEdit &tengwar)
{
    if (roman.text().isEmpty())
        return;
    clearAbort();
    if (const std::optional<QString> text = transcribeTyped(roman.text(), state_.Settings))
        tengwar.setText(*text);
}

void frmFind::clearAbort()
{
    if (!isTranscribing_())
        state_.AbortRequested = false;
}

QString frmFind::sought() const
{
    return ui_->optRomanSearch->isChecked() ? ui_->txtRomanSearch->text()
                                            : heldText(*ui_->txtTengwarSearch);
}

FindFlags frmFind::flags() const
{
    // Upper and lower case letters are different signs there.
    if (ui_->optTengwarSearch->isChecked())
        return FindFlag::MatchCase;
    FindFlags flags;
    flags.setFlag(FindFlag::WholeWord, ui_->chkWord->isChecked());
    flags.setFlag(FindFlag::MatchCase, ui_->chkCase->isChecked());
    return flags;
}

QString frmFind::replacement() const
{
    return ui_->optRomanReplace->isChecked() ? ui_->txtRomanReplace->text()
                                             : heldText(*ui_->txtTengwarReplace);
}

void frmFind::find()
{
    RichTextBox *pane = panes_.pane(state_.ActivePane);
    if (pane == nullptr)
        return;
    int start = pane->SelStart();
    // One character on, so that the next press finds the next match. So a match at the very start
    // of the text is never found, not even after the wrap.
    while (pane->find(sought(), start + 1, pane->TextLength(), flags()) < 0) {
        if (start < 1 || !userWantsToWrap(this)) {
            tellNotFound(this);
            return;
        }
        start = 0;
    }
    hasFound_ = true;
    enableControls();
    uncover(*pane);
}

/// Moves the dialog out of the lines of the match if it covers them: below or above or, where the
/// screen has no room for that, beside the match.
void frmFind::uncover(const RichTextBox &pane)
{
    QTextCursor start = pane.textCursor();
    start.setPosition(start.selectionStart());
    const QRect inPane = pane.cursorRect(start) | pane.cursorRect();
    const QWidget &viewport = *pane.viewport();
    const QRect match(viewport.mapToGlobal(inPane.topLeft()), inPane.size());
    const QRect lines(viewport.mapToGlobal(QPoint(0, inPane.top())),
                      QSize(viewport.width(), inPane.height()));
    const QRect frame = frameGeometry();
    if (!frame.intersects(lines))
        return;
    const QRect screen = this->screen()->availableGeometry();
    for (const QPoint place : {QPoint(frame.left(), lines.bottom() + 1),
                               QPoint(frame.left(), lines.top() - frame.height()),
                               QPoint(match.right() + 1, frame.top()),
                               QPoint(match.left() - frame.width(), frame.top())}) {
        if (screen.contains(QRect(place, frame.size()))) {
            move(place);
            return;
        }
    }
}

void frmFind::replace()
{
    if (RichTextBox *pane = panes_.pane(state_.ActivePane)) {
        pane->setSelText(replacement());
        find();
    }
}

void frmFind::replaceAll()
{
    RichTextBox *pane = panes_.pane(state_.ActivePane);
    if (pane == nullptr)
        return;
    clearAbort();
    replaceAll_.start(*pane, TextSearch(sought(), flags()), replacement());
}

void frmFind::showProgress(qint64 replaced)
{
    ui_->lblProgress->setText(
        QStringLiteral("%1 replaced so far. Press Esc to stop.").arg(QLocale().toString(replaced)));
    enableControls();
}

void frmFind::enableControls()
{
    const bool isIdle = !replaceAll_.isRunning();
    const bool hadFocus = ui_->cmdClose->hasFocus();
    ui_->inputs->setEnabled(isIdle);
    ui_->cmdFind->setEnabled(isIdle);
    ui_->cmdShowReplace->setEnabled(isIdle);
    ui_->cmdReplace->setEnabled(isIdle && hasFound_);
    ui_->cmdReplaceAll->setEnabled(isIdle);
    if (isIdle)
        ui_->lblProgress->clear();
    else if (!hadFocus)
        ui_->cmdClose->setFocus();
}

void frmFind::reject()
{
    replaceAll_.stop();
    QDialog::reject();
}

void frmFind::keyPressEvent(QKeyEvent *event)
{
    if (replaceAll_.isRunning() && event->matches(QKeySequence::Cancel))
        replaceAll_.stop();
    else
        QDialog::keyPressEvent(event);
}

bool frmFind::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyRelease) {
        if (watched == ui_->txtRomanSearch && ui_->optTengwarSearch->isChecked())
            refill(*ui_->txtRomanSearch, *ui_->txtTengwarSearch);
        else if (watched == ui_->txtRomanReplace && ui_->optTengwarReplace->isChecked())
            refill(*ui_->txtRomanReplace, *ui_->txtTengwarReplace);
    }
    return QDialog::eventFilter(watched, event);
}
