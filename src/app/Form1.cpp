#include "app/Form1.h"

#include "app/CaptionLabel.h"
#include "app/FocusTravel.h"
#include "app/KeyPreview.h"
#include "app/MenuBuilder.h"
#include "app/PaneShortcuts.h"
#include "app/PlaceControls.h"
#include "app/Splitter.h"
#include "app/ToolbarCombo.h"
#include "editor/ApplyFormFonts.h"
#include "editor/FormatDisplay.h"
#include "editor/SharedState.h"
#include "editor/UndoJournal.h"
#include "engine/run/FillModeList.h"
#include "engine/run/TranscriptionRun.h"
#include "platform/MessageBox.h"
#include "platform/RichTextBox.h"
#include "platform/RunCommand.h"
#include "platform/ScreenUnits.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QScreen>

namespace {

constexpr std::chrono::milliseconds StatusInterval(1000);
constexpr std::chrono::milliseconds AutoGenerateInterval(500);

void fillFontSizes(QComboBox &list)
{
    constexpr int Smallest = 6;
    constexpr int Largest = 72;
    for (int size = Smallest; size <= Largest; size += 2)
        list.addItem(QString::number(size));
    list.clearEditText();
}

} // namespace

Form1::Form1(SharedState &state) : state_(state), controls_(), commands_(*this)
{
    setObjectName(QStringLiteral("Form1"));
    auto *inner = new QWidget(this);
    setCentralWidget(inner);
    inner->installEventFilter(this);
    controls_ = makeFormControls(*inner);

    tmrStatus_.setObjectName(QStringLiteral("tmrStatus"));
    tmrStatus_.setParent(this);
    tmrStatus_.setInterval(StatusInterval);
    tmrAutoGenerate_.setObjectName(QStringLiteral("tmrAutoGenerate"));
    tmrAutoGenerate_.setParent(this);
    tmrAutoGenerate_.start(AutoGenerateInterval);

    wireKeys(buildMenus(*menuBar(), menuTable()));
    wirePanes();
    wireCombos();
    connectFocusTravel(*this);
}

void Form1::Load(const FormSubjects &subjects, const QStringList &fonts)
{
    subjects_.emplace(subjects);
    refillModeList();
    FillFontList(fonts);
    fillFontSizes(*controls_.cboFontSize);
    setWindowTitle(programTitle());
    ApplyFormFonts(*this, state_.Settings);
    subjects_->documents.NewDocument(*controls_.rtbRoman);
    subjects_->documents.NewDocument(*controls_.rtbTengwar);
    controls_.rtbRoman->setFocus();
}

RichTextBox *Form1::pane(PaneCode code) const
{
    switch (code) {
    case PaneCode::Source:
        return controls_.rtbRoman;
    case PaneCode::Target:
        return controls_.rtbTengwar;
    case PaneCode::None:
    case PaneCode::Both:
        break;
    }
    return nullptr;
}

qint64 Form1::innerWidth() const
{
    const int pixels = isMaximized() ? screen()->availableGeometry().width() : width();
    return toTwips(pixels, twipsPerPixelX(*this));
}

void Form1::restoreSplit(qint64 twips)
{
    controls_.imgRuler->setLeft(twips);
    if (windowState() & (Qt::WindowMaximized | Qt::WindowMinimized))
        waitingSplit_ = twips;
    MoveControls();
}

void Form1::MoveControls()
{
    if (isMinimized())
        return;
    layout()->activate(); // a window not yet shown hasn't given its inner area a size
    WindowMeasures measures = measure(controls_, *centralWidget());
    if (waitingSplit_) {
        measures.split = *waitingSplit_;
        if (clampSplit(measures.split, measures.width) == measures.split)
            waitingSplit_.reset();
    }
    placeControls(controls_, layOutWindow(measures));
}

void Form1::DisplayMessage(const QString &message, const QString &shortMessage)
{
    controls_.Messages->setText(message);
    if (!isMinimized())
        setWindowTitle(programTitle());
    else if (!shortMessage.isEmpty())
        setWindowTitle(shortMessage + QStringLiteral(" - ") + programTitle());
}

void Form1::showProgress(std::optional<double> progress)
{
    controls_.Progress->setVisible(progress.has_value());
    controls_.Progress->setValue(qRound(progress.value_or(0) * controls_.Progress->maximum()));
    if (!progress)
        setWindowTitle(programTitle()); // a minimised window has shown the progress there
}

void Form1::FillFontList(const QStringList &fonts)
{
    controls_.cboFontName->clear();
    controls_.cboFontName->addItems(fonts);
    controls_.cboFontName->clearEditText();
}

void Form1::IndicateRTB(const RichTextBox &pane)
{
    subjects_->format.ShowFormat(pane);
    subjects_->format.ShowSelText(pane);
}

void Form1::refillModeList()
{
    FillModeList(*controls_.cboModeName, state_.Settings);
}

void Form1::SetRTBFocus()
{
    if (RichTextBox *active = pane(state_.ActivePane))
        active->setFocus();
}

bool Form1::eventFilter(QObject *watched, QEvent *event)
{
    // a control asks for another layout when a new font or style changes its height
    const bool isMoving = event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest;
    if (watched == centralWidget() && isMoving)
        MoveControls();
    return QMainWindow::eventFilter(watched, event);
}

void Form1::changeEvent(QEvent *event)
{
    QMainWindow::changeEvent(event);
    const bool becameVisible = event->type() == QEvent::WindowStateChange && !isMinimized();
    if (becameVisible) {
        setWindowTitle(programTitle());
        MoveControls();
    }
}

void Form1::closeEvent(QCloseEvent *event)
{
    if (subjects_->run.isRunning()) {
        event->ignore();
        subjects_->run.whenIdle([this] { close(); });
        return;
    }
    SaveAnswer answer = SaveAnswer::Cancel;
    runCommand(this, [&] { answer = subjects_->documents.AskSaveChanges(PaneCode::Both); });
    event->setAccepted(answer != SaveAnswer::Cancel);
    if (event->isAccepted())
        Q_EMIT unloaded();
}

void Form1::wirePanes()
{
    const auto wire = [this](PaneCode code, CaptionLabel *label, QLatin1StringView menuItem) {
        connect(pane(code), &RichTextBox::activated, this, [this, code] { activatePane(code); });
        connect(label, &CaptionLabel::clicked, pane(code), qOverload<>(&QWidget::setFocus));
        connect(label, &CaptionLabel::captionChanged, this, [this, menuItem](QString caption) {
            caption.replace(QLatin1Char('&'), QStringLiteral("&&"));
            commands_.action(menuItem).setText(QLatin1Char('&') + caption);
        });
    };
    wire(PaneCode::Source, controls_.lblRomanCaption, QLatin1StringView("mnuPSource"));
    wire(PaneCode::Target, controls_.lblTengwarCaption, QLatin1StringView("mnuPTarget"));
    connect(controls_.imgRuler, &Splitter::moved, this, [this] {
        waitingSplit_.reset();
        MoveControls();
    });
    connect(controls_.imgRuler, &Splitter::finished, this, &Form1::SetRTBFocus);
}

void Form1::wireCombos()
{
    for (ToolbarCombo *combo :
         {controls_.cboModeName, controls_.cboFontName, controls_.cboFontSize})
        connect(combo, &ToolbarCombo::finished, this, &Form1::SetRTBFocus, Qt::QueuedConnection);
}

void Form1::wireKeys(const QList<QAction *> &menuItems)
{
    auto *preview = new KeyPreview(*this);
    connect(preview, &KeyPreview::abortPressed, this, [this] { state_.AbortRequested = true; });
    connect(preview, &KeyPreview::refreshPressed, this,
            [this] { runCommand(this, [this] { refillModeList(); }); });
    for (QWidget *control : centralWidget()->findChildren<QWidget *>()) {
        if (control->focusPolicy() != Qt::NoFocus && !control->focusProxy())
            preview->watch(*control);
    }
    QList<QAction *> items = menuItems;
    for (const QToolBar *toolbar : {controls_.Toolbar1, controls_.tbrFormat}) {
        for (QAction *button : toolbar->actions()) {
            if (button->shortcut().isEmpty())
                continue;
            addAction(button); // the key works also while the toolbar is hidden
            items += button;
        }
    }
    auto *shortcuts = new PaneShortcuts(items, this);
    shortcuts->watch(*controls_.rtbRoman);
    shortcuts->watch(*controls_.rtbTengwar);
}

void Form1::activatePane(PaneCode code)
{
    state_.ActivePane = code;
    if (!subjects_)
        return;
    runCommand(this, [this, code] {
        IndicateRTB(*pane(code));
        subjects_->journal.UpdateUndoButtons(code);
    });
}
