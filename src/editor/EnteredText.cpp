#include "editor/EnteredText.h"

#include <QComboBox>
#include <QLineEdit>

void onEntered(QComboBox &list, const std::function<void(const QString &)> &apply)
{
    list.setInsertPolicy(QComboBox::NoInsert);
    list.setCompleter(nullptr);
    // The list would take a typed entry for chosen when the focus leaves, and on Enter a second
    // time.
    QObject::disconnect(list.lineEdit(), &QLineEdit::editingFinished, &list, nullptr);
    QObject::connect(&list, &QComboBox::textActivated, &list, apply);
    QObject::connect(list.lineEdit(), &QLineEdit::returnPressed, &list, [&list, apply] {
        const QString text = list.currentText();
        if (const int entry = list.findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive);
            entry >= 0)
            list.setCurrentIndex(entry);
        apply(text);
    });
}
