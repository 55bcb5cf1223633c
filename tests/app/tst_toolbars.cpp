#include "app/ToolbarCombo.h"
#include "engine/RuntimeError.h"
#include "support/FormFixture.h"
#include "support/MessageBoxes.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QMenu>
#include <QTimer>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

class tst_Toolbars : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keys();
    void everyButtonHasPictureAndTip();
    void pictureFollowsThePalette();
    void combosSitAtTheirPlaceholders();
    void buttonsAreDisabledUntilConnected();
    void buttonsActOnThePaneThatLastHadTheFocus();
    void checkMarksFollowTheProgramNotTheClick();
    void mixedButtonsLookDifferent();
    void errorsOfCommandsAreShown();
    void choosingGivesTheFocusBack();
    void closingTheListGivesTheFocusBack();
    void escapeAndEnterGiveTheFocusBack();
    void theWheelNeedsTheFocus();
    void narrowWindowsHideNothingForGood();

private:
    static QToolButton *button(const FormFixture &fixture, const char *name);
};

QToolButton *tst_Toolbars::button(const FormFixture &fixture, const char *name)
{
    auto *toolbar = fixture.find<QToolBar>(QByteArray(name).split('.').first().constData());
    return qobject_cast<QToolButton *>(toolbar->widgetForAction(fixture.action(name)));
}

void tst_Toolbars::keys()
{
    const FormFixture fixture;
    QStringList names;
    for (const char *toolbar : {"Toolbar1", "tbrFormat"}) {
        for (const QAction *action : fixture.find<QToolBar>(toolbar)->actions())
            names += action->isSeparator() ? u"-"_s : action->objectName();
    }
    QCOMPARE(names.join(u' '),
             u"Toolbar1.New Toolbar1.Open Toolbar1.Save Toolbar1.Print - "
             "Toolbar1.Cut Toolbar1.Copy Toolbar1.Paste - Toolbar1.Undo Toolbar1.Redo - "
             "Toolbar1.Mode Toolbar1.Transcribe "
             "tbrFormat.FontName tbrFormat.FontSize - "
             "tbrFormat.FormatBold tbrFormat.FormatItalic tbrFormat.FormatUnderline - "
             "tbrFormat.FormatLarger tbrFormat.FormatSmaller - "
             "tbrFormat.LeftAlign tbrFormat.CenterAlign tbrFormat.RightAlign - "
             "tbrFormat.BulletedList"_s);
}

void tst_Toolbars::everyButtonHasPictureAndTip()
{
    const FormFixture fixture;
    const auto buttons = fixture.form.findChildren<QToolButton *>();
    int seen = 0;
    for (const QToolButton *tool : buttons) {
        if (!tool->defaultAction())
            continue;
        ++seen;
        const QByteArray name = tool->defaultAction()->objectName().toLatin1();
        QVERIFY2(!tool->toolTip().isEmpty(), name.constData());
        QCOMPARE(tool->focusPolicy(), Qt::NoFocus);
        for (const int size : {16, 24, 48}) {
            const QImage picture = tool->icon().pixmap(size, size).toImage();
            QCOMPARE(picture.width(), size);
            int inked = 0;
            for (int y = 0; y < size; ++y) {
                for (int x = 0; x < size; ++x)
                    inked += qAlpha(picture.pixel(x, y)) > 128 ? 1 : 0;
            }
            QVERIFY2(inked > size * size / 20 && inked < size * size / 2, name.constData());
        }
    }
    QCOMPARE(seen, 19);
}

void tst_Toolbars::pictureFollowsThePalette()
{
    const FormFixture fixture;
    const QIcon icon = fixture.action("Toolbar1.Save")->icon();
    const auto darkest = [&icon] {
        const QImage picture = icon.pixmap(24, 24).toImage();
        int sum = 0;
        int count = 0;
        for (int y = 0; y < 24; ++y) {
            for (int x = 0; x < 24; ++x) {
                if (picture.pixelColor(x, y).alpha() < 250)
                    continue;
                sum += picture.pixelColor(x, y).lightness();
                ++count;
            }
        }
        return sum / count;
    };
    const QPalette before = QGuiApplication::palette();
    const auto restore = qScopeGuard([&] { QGuiApplication::setPalette(before); });
    QPalette palette = before;
    palette.setColor(QPalette::ButtonText, Qt::black);
    QGuiApplication::setPalette(palette);
    QVERIFY(darkest() < 10);
    palette.setColor(QPalette::ButtonText, Qt::white);
    QGuiApplication::setPalette(palette);
    QVERIFY(darkest() > 245);
}

void tst_Toolbars::combosSitAtTheirPlaceholders()
{
    const FormFixture fixture;
    const std::pair<const char *, const char *> combos[] = {{"Toolbar1.Mode", "cboModeName"},
                                                            {"tbrFormat.FontName", "cboFontName"},
                                                            {"tbrFormat.FontSize", "cboFontSize"}};
    for (const auto &[place, combo] : combos) {
        const auto *toolbar = qobject_cast<QToolBar *>(fixture.find(combo)->parentWidget());
        QVERIFY(toolbar);
        QCOMPARE(toolbar->widgetForAction(fixture.action(place)), fixture.find(combo));
    }
    QCOMPARE(fixture.find("cboModeName")->toolTip(), u"Tengwar mode (F6)"_s);
    QCOMPARE(fixture.find("cboFontName")->toolTip(), u"Font name (F6)"_s);
    QCOMPARE(fixture.find("cboFontSize")->toolTip(), u"Font size (F6)"_s);

    const auto *sizes = fixture.find<QComboBox>("cboFontSize");
    QCOMPARE(sizes->count(), 34);
    QCOMPARE(sizes->itemText(0), u"6"_s);
    QCOMPARE(sizes->itemText(33), u"72"_s);
    const auto *fonts = fixture.find<QComboBox>("cboFontName");
    QCOMPARE(fonts->count(), 2);
    QCOMPARE(fonts->itemText(1), u"DejaVu Serif"_s);
    QVERIFY(fonts->currentText().isEmpty());
}

void tst_Toolbars::buttonsAreDisabledUntilConnected()
{
    FormFixture fixture;
    int runs = 0;
    QTest::mouseClick(button(fixture, "Toolbar1.New"), Qt::LeftButton);
    fixture.form.commands().connect({"mnuFNew"_L1, "Toolbar1.New"_L1}, [&runs] { ++runs; });
    QCOMPARE(runs, 0);
    QTest::mouseClick(button(fixture, "Toolbar1.New"), Qt::LeftButton);
    QCOMPARE(runs, 1);
    fixture.action("mnuFNew")->trigger();
    QCOMPARE(runs, 2);
    QVERIFY(!fixture.action("Toolbar1.Open")->isEnabled());
}

void tst_Toolbars::buttonsActOnThePaneThatLastHadTheFocus()
{
    FormFixture fixture;
    QList<PaneCode> acted;
    fixture.form.commands().connect({"Toolbar1.Cut"_L1},
                                    [&] { acted += fixture.state.ActivePane; });
    QToolButton *cut = button(fixture, "Toolbar1.Cut");

    QTest::mouseClick(fixture.form.controls().rtbTengwar->viewport(), Qt::LeftButton);
    QTest::mouseMove(fixture.find("rtbRoman"));
    QTest::mouseClick(cut, Qt::LeftButton);
    QVERIFY(fixture.find("rtbTengwar")->hasFocus());
    QTest::mouseClick(fixture.form.controls().rtbRoman->viewport(), Qt::LeftButton);
    fixture.find("cboFontName")->setFocus();
    QTest::mouseClick(cut, Qt::LeftButton);
    QCOMPARE(acted, (QList<PaneCode>{PaneCode::Target, PaneCode::Source}));
}

void tst_Toolbars::checkMarksFollowTheProgramNotTheClick()
{
    FormFixture fixture;
    QAction *bold = fixture.action("tbrFormat.FormatBold");
    bool on = false;
    fixture.form.commands().connect({"tbrFormat.FormatBold"_L1}, [&] { bold->setChecked(on); });
    QToolButton *tool = button(fixture, "tbrFormat.FormatBold");
    QTest::mouseClick(tool, Qt::LeftButton);
    QVERIFY(!bold->isChecked());
    on = true;
    QTest::mouseClick(tool, Qt::LeftButton);
    QVERIFY(bold->isChecked());
    QVERIFY(tool->isChecked());
    QTest::mouseClick(tool, Qt::LeftButton);
    QVERIFY(bold->isChecked());
}

void tst_Toolbars::mixedButtonsLookDifferent()
{
    FormFixture fixture;
    fixture.form.commands().connect({"tbrFormat.FormatBold"_L1}, [] {});
    QAction *bold = fixture.action("tbrFormat.FormatBold");
    QToolButton *tool = button(fixture, "tbrFormat.FormatBold");
    const QImage released = tool->grab().toImage();
    bold->setChecked(true);
    const QImage pressed = tool->grab().toImage();
    bold->setChecked(false);
    bold->setProperty("mixed", true);
    const QImage mixed = tool->grab().toImage();
    bold->setProperty("mixed", false);

    QVERIFY(pressed != released);
    QVERIFY(mixed != released);
    QVERIFY(mixed != pressed);
    QCOMPARE(tool->grab().toImage(), released);
}

void tst_Toolbars::errorsOfCommandsAreShown()
{
    FormFixture fixture;
    fixture.form.commands().connect({"Toolbar1.New"_L1},
                                    [] { throw RuntimeError(ErrorNumber::DiskFull); });
    const MessageBoxes boxes;
    QTest::mouseClick(button(fixture, "Toolbar1.New"), Qt::LeftButton);
    QCOMPARE(boxes.seen().size(), 1U);
    QVERIFY(boxes.seen()[0].text.contains(u"Run-time error '61':"));
    QVERIFY(fixture.form.isVisible());
}

void tst_Toolbars::choosingGivesTheFocusBack()
{
    const FormFixture fixture;
    fixture.find("rtbTengwar")->setFocus();
    auto *fonts = fixture.find<QComboBox>("cboFontName");
    fonts->setFocus();
    fonts->showPopup();
    QTRY_VERIFY(fonts->view()->isVisible());
    QTest::keyClick(fonts->view(), Qt::Key_Down);
    QTest::keyClick(fonts->view(), Qt::Key_Return);
    QTRY_VERIFY(!fonts->view()->isVisible());
    QTRY_COMPARE(fixture.form.focusWidget(), fixture.find("rtbTengwar"));
    QVERIFY(!fonts->currentText().isEmpty());
}

void tst_Toolbars::closingTheListGivesTheFocusBack()
{
    const FormFixture fixture;
    auto *modes = fixture.find<QComboBox>("cboModeName");
    modes->addItem(u"English"_s);
    modes->setFocus();
    modes->showPopup();
    QTRY_VERIFY(modes->view()->isVisible());
    modes->view()->window()->close();
    QTRY_COMPARE(fixture.form.focusWidget(), fixture.find("rtbRoman"));
}

void tst_Toolbars::escapeAndEnterGiveTheFocusBack()
{
    const FormFixture fixture;
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        for (const char *name : {"cboModeName", "cboFontName", "cboFontSize"}) {
            QWidget *combo = fixture.find(name);
            combo->setFocus();
            QVERIFY(!fixture.find("rtbRoman")->hasFocus());
            QTest::keyClick(combo, key);
            QTRY_VERIFY(fixture.find("rtbRoman")->hasFocus());
        }
    }
}

void tst_Toolbars::theWheelNeedsTheFocus()
{
    const FormFixture fixture;
    auto *sizes = fixture.find<QComboBox>("cboFontSize");
    sizes->setCurrentIndex(3);
    const auto turn = [sizes] {
        const QPointF at = sizes->rect().center();
        QWheelEvent event(at, sizes->mapToGlobal(at), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(sizes, &event);
    };
    turn();
    QCOMPARE(sizes->currentIndex(), 3);
    sizes->setFocus();
    turn();
    QCOMPARE(sizes->currentIndex(), 4);
}

void tst_Toolbars::narrowWindowsHideNothingForGood()
{
    const FormFixture fixture({300, 300});
    for (const char *name : {"Toolbar1", "tbrFormat"}) {
        auto *more = fixture.find(name)->findChild<QToolButton *>(u"qt_toolbar_ext_button"_s);
        QTRY_VERIFY(more->isVisible());
        QCOMPARE(more->accessibleName(), u"More"_s);
        // in the ink of the theme
        QCOMPARE(more->icon().pixmap(12, 24).toImage().pixelColor(6, 12),
                 more->palette().color(QPalette::ButtonText));
    }
    QVERIFY(!button(fixture, "Toolbar1.Transcribe")->isVisible());
    auto *more = fixture.find("Toolbar1")->findChild<QToolButton *>(u"qt_toolbar_ext_button"_s);
    bool wasOffered = false;
    QTimer::singleShot(0, &fixture.form, [&] {
        if (auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
            wasOffered = menu->actions().contains(fixture.action("Toolbar1.Transcribe"));
            menu->close();
        }
    });
    QTest::mouseClick(more, Qt::LeftButton);
    QVERIFY(wasOffered);
}

QTEST_MAIN(tst_Toolbars)
#include "tst_toolbars.moc"
