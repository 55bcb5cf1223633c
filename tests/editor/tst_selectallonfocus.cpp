#include "editor/SelectAllOnFocus.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

class tst_SelectAllOnFocus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void byKey();
    void byClick();
    void theNextClickSetsTheCaret();

private:
    std::unique_ptr<QWidget> form_;
    QLineEdit *first_ = nullptr;
    QLineEdit *second_ = nullptr;
};

void tst_SelectAllOnFocus::init()
{
    form_ = std::make_unique<QWidget>();
    first_ = new QLineEdit(QStringLiteral("first"));
    second_ = new QLineEdit(QStringLiteral("second text"));
    auto *layout = new QVBoxLayout(form_.get());
    layout->addWidget(first_);
    layout->addWidget(second_);
    SelectAllOnFocus(*second_);
    form_->show();
    QVERIFY(QTest::qWaitForWindowActive(form_.get()));
    first_->setFocus();
    second_->deselect();
}

void tst_SelectAllOnFocus::byKey()
{
    second_->setFocus(Qt::OtherFocusReason);
    QTRY_COMPARE(second_->selectedText(), QStringLiteral("second text"));
}

void tst_SelectAllOnFocus::byClick()
{
    QTest::mouseClick(second_, Qt::LeftButton, {}, {8, second_->height() / 2});
    QTRY_COMPARE(second_->selectedText(), QStringLiteral("second text"));
}

void tst_SelectAllOnFocus::theNextClickSetsTheCaret()
{
    second_->setFocus(Qt::OtherFocusReason);
    QTRY_VERIFY(second_->hasSelectedText());
    QTest::mouseClick(second_, Qt::LeftButton, {}, {8, second_->height() / 2});
    QCoreApplication::processEvents();
    QVERIFY(!second_->hasSelectedText());
}

QTEST_MAIN(tst_SelectAllOnFocus)
#include "tst_selectallonfocus.moc"
