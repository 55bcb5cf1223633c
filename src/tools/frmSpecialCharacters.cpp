#include "tools/frmSpecialCharacters.h"

#include "editor/ApplyFormFonts.h"
#include "editor/SelectAllOnFocus.h"
#include "editor/SharedState.h"
#include "platform/ScreenUnits.h"
#include "platform/SoftHyphenEdit.h"
#include "ui_frmSpecialCharacters.h"

#include <QEvent>
#include <QScreen>

namespace {

constexpr int TwipsLeftOfScreen = 120;

} // namespace

frmSpecialCharacters::frmSpecialCharacters(SharedState &state, QWidget *parent)
    : QDialog(parent), state_(state), ui_(std::make_unique<Ui::frmSpecialCharacters>())
{
    ui_->setupUi(this);
    ApplyFormFonts(*this, state_.Settings);
    showFont(state_.TransferValue.toString());
    SelectAllOnFocus(*ui_->txtCharacters);
    showSoftHyphens(*ui_->txtCharacters);
    ui_->txtCharacters->installEventFilter(this);
    connect(ui_->grdChars, &CharacterGrid::currentCellChanged, this,
            &frmSpecialCharacters::showCell);
    connect(ui_->grdChars, &CharacterGrid::cellActivated, this, &frmSpecialCharacters::collect);
    connect(ui_->txtCharacters, &QLineEdit::textChanged, this,
            &frmSpecialCharacters::showCollected);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmSpecialCharacters::accept);
    connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmSpecialCharacters::reject);
    ui_->grdChars->setCurrentIndex(ui_->grdChars->model()->index(0, 0));
    ui_->txtCharacters->setText(state_.TransferText);
    resize(screen()->availableGeometry().width() -
               toPixels(TwipsLeftOfScreen, twipsPerPixelX(*this)),
           sizeHint().height());
}

frmSpecialCharacters::~frmSpecialCharacters() = default;

void frmSpecialCharacters::showFont(const QString &name)
{
    if (name.isEmpty())
        return;
    for (QWidget *control :
         std::initializer_list<QWidget *>{ui_->grdChars, ui_->lblSample, ui_->txtCharacters}) {
        QFont font = control->font();
        font.setFamilies({name});
        control->setFont(font);
    }
}

void frmSpecialCharacters::showCell(const QModelIndex &cell)
{
    QString description = CharacterModel::description(cell);
    description.replace(u'&', QStringLiteral("&&")); // no mnemonic
    ui_->lblCharacter->setText(QStringLiteral("Selected character: ") + description);
    ui_->lblSample->setText(CharacterModel::character(cell));
}

void frmSpecialCharacters::collect(const QModelIndex &cell)
{
    ui_->txtCharacters->insert(CharacterModel::character(cell));
}

void frmSpecialCharacters::showCollected()
{
    const QString selected = ui_->txtCharacters->selectedText();
    ui_->lblSample->setText(selected.isEmpty() ? ui_->txtCharacters->text() : selected);
}

void frmSpecialCharacters::accept()
{
    state_.TransferText = heldText(*ui_->txtCharacters);
    QDialog::accept();
}

void frmSpecialCharacters::reject()
{
    state_.TransferText.clear();
    QDialog::reject();
}

bool frmSpecialCharacters::eventFilter(QObject *watched, QEvent *event)
{
    QLineEdit *box = ui_->txtCharacters;
    if (watched == box && event->type() == QEvent::FocusOut && box->hasSelectedText()) {
        const int start = box->selectionStart();
        const int length = box->selectionLength();
        watched->event(event); // deselects
        box->setSelection(start, length);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}
