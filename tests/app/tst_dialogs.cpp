#include "about/frmAbout.h"
#include "editor/SharedState.h"
#include "editor/frmParagraph.h"
#include "modes/frmModes.h"
#include "platform/RichTextBox.h"
#include "preferences/frmBrowse.h"
#include "preferences/frmPreferences.h"
#include "search/frmFind.h"
#include "support/ModeFolder.h"
#include "support/RegistryFolder.h"
#include "tools/frmCalculator.h"
#include "tools/frmSpecialCharacters.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

namespace {

/// What dialogs are opened over.
struct World
{
    RegistryFolder registry;
    ModeFolder modes;
    SharedState state;
    RichTextBox source;
    RichTextBox target;

    World()
    {
        modes.add(u"Test"_qs);
        state.ProgramFolder = modes.path();
        state.Settings.ModePath = modes.path();
        state.Settings.GenericRomanFont = QApplication::font().family();
        state.Settings.GenericTengwarFont = QApplication::font().family();
        state.Settings.StandardUnit = u"mm"_qs;
        state.Settings.UnitFactor = 56.7;
    }
};

using MakeDialog = std::unique_ptr<QDialog> (*)(World &world);

std::unique_ptr<QDialog> makeFind(World &world)
{
    return std::make_unique<frmFind>(
        world.state, Panes{world.source, world.target}, [] { return false; }, nullptr);
}

std::unique_ptr<QDialog> makeReplace(World &world)
{
    world.state.TransferValue = u"Replace"_qs;
    return makeFind(world);
}

std::unique_ptr<QDialog> makePreferences(World &world)
{
    return std::make_unique<frmPreferences>(
        world.state, world.registry.settings, QStringList{QApplication::font().family()}, [] {},
        nullptr);
}

std::unique_ptr<QDialog> makeBrowse(World &world)
{
    return std::make_unique<frmBrowse>(world.state.Settings, world.modes.path(), nullptr);
}

std::unique_ptr<QDialog> makeModes(World &world)
{
    return std::make_unique<frmModes>(
        world.state, [] {}, nullptr);
}

std::unique_ptr<QDialog> makeParagraph(World &world)
{
    return std::make_unique<frmParagraph>(world.state.Settings, world.source.SelFormat(), nullptr);
}

std::unique_ptr<QDialog> makeNumerals(World &world)
{
    return std::make_unique<frmCalculator>(world.state, world.registry.settings, nullptr);
}

std::unique_ptr<QDialog> makeItems(World &world)
{
    auto dialog = makeNumerals(world);
    dialog->findChild<QTabWidget *>(u"TabStrip1"_qs)->setCurrentIndex(1);
    return dialog;
}

std::unique_ptr<QDialog> makeSpecialCharacters(World &world)
{
    return std::make_unique<frmSpecialCharacters>(world.state, nullptr);
}

std::unique_ptr<QDialog> makeAbout(World &world)
{
    return std::make_unique<frmAbout>(world.state.Settings, world.registry.registry, nullptr);
}

bool isField(const QWidget &widget)
{
    return qobject_cast<const QLineEdit *>(&widget) || qobject_cast<const QComboBox *>(&widget) ||
           qobject_cast<const QAbstractItemView *>(&widget);
}

/// Whether it is a part of another control.
bool isInner(const QWidget &widget)
{
    return widget.objectName().isEmpty() || widget.objectName().startsWith(u"qt_") ||
           isField(*widget.parentWidget());
}

/// The controls that show, without the parts that they are made of.
QList<QWidget *> controlsOf(const QDialog &dialog)
{
    QList<QWidget *> controls;
    for (QWidget *widget : dialog.findChildren<QWidget *>()) {
        if (widget->isVisible() && !isInner(*widget))
            controls += widget;
    }
    return controls;
}

QRect placeOf(const QWidget &widget)
{
    return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

QList<QWidget *> tabOrderOf(const QDialog &dialog)
{
    QList<QWidget *> order;
    for (QWidget *widget = dialog.nextInFocusChain(); widget != &dialog;
         widget = widget->nextInFocusChain()) {
        if (widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus) && !isInner(*widget))
            order += widget;
    }
    return order;
}

/// Whether who reads line by line, one column after the other, meets the first one before.
bool readsBefore(const QRect &first, const QRect &second)
{
    if (second.top() > first.bottom())
        return true;
    if (second.bottom() < first.top())
        return second.left() > first.right(); // the next column
    return second.left() > first.right() || second.left() >= first.left();
}

/// Whether a label, or a button in its place, tells what the field is for.
bool hasCaption(const QDialog &dialog, const QWidget &field)
{
    for (const auto *label : dialog.findChildren<QLabel *>()) {
        if (label->isVisible() && label->buddy() == &field)
            return true;
    }
    const QRect place = placeOf(field);
    for (const auto *button : dialog.findChildren<QRadioButton *>()) {
        const QRect beside = placeOf(*button);
        if (button->parentWidget() == field.parentWidget() && beside.right() < place.left() &&
            beside.intersects(place.adjusted(-place.left(), 0, 0, 0)))
            return true;
    }
    return false;
}

QList<QKeySequence> mnemonicsOf(const QDialog &dialog)
{
    QList<QKeySequence> keys;
    for (const QWidget *widget : controlsOf(dialog)) {
        if (const auto *button = qobject_cast<const QAbstractButton *>(widget))
            keys += button->shortcut();
        else if (const auto *label = qobject_cast<const QLabel *>(widget); label && label->buddy())
            keys += QKeySequence::mnemonic(label->text());
        else if (const auto *box = qobject_cast<const QGroupBox *>(widget))
            keys += QKeySequence::mnemonic(box->title());
        else if (const auto *tabs = qobject_cast<const QTabWidget *>(widget))
            for (int i = 0; i < tabs->count(); ++i)
                keys += QKeySequence::mnemonic(tabs->tabText(i));
    }
    keys.removeAll(QKeySequence());
    return keys;
}

} // namespace

Q_DECLARE_METATYPE(MakeDialog)

/// What holds for every dialog, at each size of the desktop's font.
class tst_Dialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void nothingIsClipped_data();
    void nothingIsClipped();
    void nothingOverlaps_data() { nothingIsClipped_data(); }
    void nothingOverlaps();
    void tabFollowsReading_data() { addDialogs(); }
    void tabFollowsReading();
    void fieldsHaveNames_data() { addDialogs(); }
    void fieldsHaveNames();
    void mnemonicsAreUnique_data() { addDialogs(); }
    void mnemonicsAreUnique();
    void escapeCloses_data() { addDialogs(); }
    void escapeCloses();

private:
    static void addDialogs();
    void open();

    QFont font_;
    std::unique_ptr<World> world_;
    std::unique_ptr<QDialog> dialog_;
};

namespace {

struct Named
{
    const char *name;
    MakeDialog make;
    QKeyCombination sharedKey = Qt::Key_unknown; ///< that captions give to two controls
};

constexpr Named Dialogs[] = {
    {"frmFind", makeFind},
    {"frmFind with replace", makeReplace},
    {"frmPreferences", makePreferences, Qt::ALT | Qt::Key_R},
    {"frmBrowse", makeBrowse},
    {"frmModes", makeModes},
    {"frmParagraph", makeParagraph},
    {"frmCalculator, numerals", makeNumerals},
    {"frmCalculator, items", makeItems},
    {"frmSpecialCharacters", makeSpecialCharacters},
    {"frmAbout", makeAbout},
};

} // namespace

void tst_Dialogs::addDialogs()
{
    QTest::addColumn<MakeDialog>("make");
    QTest::addColumn<QKeySequence>("sharedKey");
    for (const Named &dialog : Dialogs)
        QTest::newRow(dialog.name) << dialog.make << QKeySequence(dialog.sharedKey);
}

void tst_Dialogs::init()
{
    font_ = QApplication::font();
    world_ = std::make_unique<World>();
}

void tst_Dialogs::cleanup()
{
    dialog_.reset();
    QApplication::setFont(font_);
}

void tst_Dialogs::open()
{
    QFETCH(MakeDialog, make);
    dialog_ = make(*world_);
    dialog_->show();
    QVERIFY(QTest::qWaitForWindowActive(dialog_.get()));
}

void tst_Dialogs::nothingIsClipped_data()
{
    QTest::addColumn<MakeDialog>("make");
    QTest::addColumn<double>("scale");
    for (const Named &dialog : Dialogs) {
        for (const double scale : {1.0, 1.5, 2.0})
            QTest::addRow("%s at %g", dialog.name, scale) << dialog.make << scale;
    }
}

void tst_Dialogs::nothingIsClipped()
{
    QFETCH(double, scale);
    QFont font = font_;
    font.setPointSizeF(font.pointSizeF() * scale);
    QApplication::setFont(font);
    open();
    for (const QWidget *control : controlsOf(*dialog_)) {
        const QSize needed = control->minimumSizeHint();
        const auto size = [](QSize each) {
            return u"%1 x %2"_qs.arg(each.width()).arg(each.height());
        };
        QVERIFY2(control->width() >= needed.width() && control->height() >= needed.height(),
                 qPrintable(u"%1 is %2 and needs %3"_qs.arg(control->objectName(),
                                                            size(control->size()), size(needed))));
        QVERIFY2(control->parentWidget()->rect().contains(control->geometry()),
                 qPrintable(control->objectName()));
    }
}

void tst_Dialogs::nothingOverlaps()
{
    QFETCH(double, scale);
    QFont font = font_;
    font.setPointSizeF(font.pointSizeF() * scale);
    QApplication::setFont(font);
    open();
    const QList<QWidget *> controls = controlsOf(*dialog_);
    for (const QWidget *one : controls) {
        for (const QWidget *other : controls) {
            if (one == other || one->parentWidget() != other->parentWidget())
                continue;
            QVERIFY2(!one->geometry().intersects(other->geometry()),
                     qPrintable(one->objectName() + u" / "_qs + other->objectName()));
        }
    }
}

void tst_Dialogs::tabFollowsReading()
{
    open();
    const QList<QWidget *> order = tabOrderOf(*dialog_);
    QVERIFY(order.size() > 1);
    // The chain is a ring; it begins where the reader does.
    for (qsizetype i = 1; i < order.size(); ++i)
        QVERIFY2(readsBefore(placeOf(*order[i - 1]), placeOf(*order[i])),
                 qPrintable(order[i - 1]->objectName() + u" / "_qs + order[i]->objectName()));
}

void tst_Dialogs::fieldsHaveNames()
{
    open();
    QVERIFY(!dialog_->windowTitle().isEmpty());
    for (const QWidget *control : controlsOf(*dialog_)) {
        if (!isField(*control))
            continue;
        const QByteArray name = control->objectName().toLatin1();
        QVERIFY2(!control->accessibleName().isEmpty(), name.constData());
        QVERIFY2(hasCaption(*dialog_, *control), name.constData());
    }
}

void tst_Dialogs::mnemonicsAreUnique()
{
    QFETCH(QKeySequence, sharedKey);
    open();
    QSet<QKeySequence> seen;
    QList<QKeySequence> keys = mnemonicsOf(*dialog_);
    keys.removeOne(sharedKey);
    for (const QKeySequence &key : keys) {
        QVERIFY2(!seen.contains(key), qPrintable(key.toString()));
        seen += key;
    }
}

void tst_Dialogs::escapeCloses()
{
    open();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!dialog_->isVisible());
    QCOMPARE(dialog_->result(), int(QDialog::Rejected));
}

QTEST_MAIN(tst_Dialogs)
#include "tst_dialogs.moc"
