#include "platform/CommonDialog.h"
#include "support/BracketTranslator.h"
#include "support/FileDialogs.h"
#include "support/MessageBoxes.h"
#include "support/ModalDialog.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class tst_CommonDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missingFilesAreRefused();
    void replacingIsAskedFor();
    void messagesAreTranslated();
    void listsOfTheFileDialogHaveLabels();
    void boxesOfTheFontDialogHaveNames();
    void fontIsHandedOn();

private:
    [[nodiscard]] QString newFile(const QString &name) const
    {
        QString path = folder_.filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot write a test file");
        return path;
    }

    QTemporaryDir folder_;
};

namespace {

std::optional<QString> noRefusal(const ChosenFile & /*file*/)
{
    return std::nullopt;
}

} // namespace

void tst_CommonDialog::missingFilesAreRefused()
{
    const QString missing = folder_.filePath(u"a 100%1 file"_s);
    const QString present = newFile(u"present"_s);
    const FileDialogs dialogs({{missing}, {present}});
    const MessageBoxes boxes;
    const auto chosen = showOpenDialog(nullptr, {.title = u"T"_s, .refusal = refuseMissingFile});
    QVERIFY(chosen);
    QCOMPARE(chosen->path, present);
    QCOMPARE(dialogs.seen().size(), 2);
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(boxes.seen().front().title, u"T"_s);
    QCOMPARE(boxes.seen().front().text,
             missing + u"\nFile not found.\nCheck the name and try again."_s);
    QVERIFY(refuseMissingFile({.path = folder_.path()}));
}

void tst_CommonDialog::replacingIsAskedFor()
{
    const QString present = newFile(u"a 100%1 file"_s);
    const FileDialogs dialogs({{present}, {present}});
    const MessageBoxes boxes({QMessageBox::No, QMessageBox::Yes});
    const auto chosen = showSaveDialog(nullptr, {.title = u"T"_s, .refusal = noRefusal});
    QVERIFY(chosen);
    QCOMPARE(chosen->path, present);
    QCOMPARE(boxes.seen().size(), 2u);
    QCOMPARE(boxes.seen().front().text,
             present + u" already exists.\nDo you want to replace it?"_s);
    QCOMPARE(boxes.seen().front().defaultButton, QMessageBox::No);
}

void tst_CommonDialog::messagesAreTranslated()
{
    const BracketTranslator translator("CommonDialog");
    const QString present = newFile(u"present too"_s);
    const FileDialogs dialogs({{present}});
    const MessageBoxes boxes;
    QVERIFY(!showSaveDialog(nullptr, {.title = u"T"_s, .refusal = noRefusal}));
    QCOMPARE(boxes.seen().size(), 1u);
    QCOMPARE(boxes.seen().front().text,
             u'[' + present + u" already exists.\nDo you want to replace it?]"_s);
    QCOMPARE(refuseMissingFile({.path = u"/x"_s}),
             u"[/x\nFile not found.\nCheck the name and try again.]"_s);
}

void tst_CommonDialog::listsOfTheFileDialogHaveLabels()
{
    const ModalDialog user("CommonDialog1", [](QDialog &dialog) {
        for (const auto &[label, list] : {std::pair(u"lookInLabel"_s, u"lookInCombo"_s),
                                          std::pair(u"fileTypeLabel"_s, u"fileTypeCombo"_s)}) {
            const auto *control = dialog.findChild<QComboBox *>(list);
            QVERIFY(control);
            QCOMPARE(dialog.findChild<QLabel *>(label)->buddy(), control);
        }
    });
    QVERIFY(!showOpenDialog(nullptr, {.title = u"T"_s, .refusal = noRefusal}));
    QCOMPARE(user.uses(), 1);
}

void tst_CommonDialog::boxesOfTheFontDialogHaveNames()
{
    const ModalDialog user("fontDialog", [](QDialog &dialog) {
        const auto namesOf = [](const auto &controls) {
            QStringList names;
            for (const QWidget *control : controls)
                names += control->accessibleName();
            return names;
        };
        const QStringList names = {u"Font"_s, u"Font style"_s, u"Size"_s};
        QCOMPARE(namesOf(dialog.findChildren<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly)),
                 names);
        QCOMPARE(namesOf(dialog.findChildren<QListView *>(QString(), Qt::FindDirectChildrenOnly)),
                 names);
    });
    QVERIFY(!showFontDialog(nullptr, QFont()));
    QCOMPARE(user.uses(), 1);
}

void tst_CommonDialog::fontIsHandedOn()
{
    const ModalDialog user("fontDialog", [](QDialog &dialog) {
        QTest::keyClick(dialog.findChildren<QLineEdit *>().at(2), Qt::Key_Return);
    });
    const auto font = showFontDialog(nullptr, QFont(u"DejaVu Serif"_s, 17));
    QVERIFY(font);
    QCOMPARE(font->family(), u"DejaVu Serif"_s);
    QCOMPARE(font->pointSize(), 17);
}

QTEST_MAIN(tst_CommonDialog)
#include "tst_commondialog.moc"
