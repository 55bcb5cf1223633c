#pragma once

#include <QAbstractButton>
#include <QLineEdit>
#include <QTest>

/// The controls of an open dialog by their names, and what a user does to them.
class DialogControls
{
public:
    virtual ~DialogControls() = default;

    template<typename Control> [[nodiscard]] Control &get(const char *name) const
    {
        return *driven().findChild<Control *>(QLatin1String(name));
    }

    void click(const char *name) const
    {
        auto &button = get<QAbstractButton>(name);
        QVERIFY2(button.isVisible() && button.isEnabled(), name);
        QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2});
    }

    /// Types a text in the place of the present one.
    void type(const char *box, const QString &text) const
    {
        auto &control = get<QLineEdit>(box);
        control.setFocus();
        control.selectAll();
        QTest::keyClick(&control, Qt::Key_Delete);
        for (const QChar character : text)
            QTest::sendKeyEvent(QTest::Click, &control, Qt::Key_unknown, QString(character), {});
    }

private:
    /// The dialog.
    [[nodiscard]] virtual QWidget &driven() const = 0;
};
