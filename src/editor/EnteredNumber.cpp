#include "editor/EnteredNumber.h"

#include <QLocale>
#include <algorithm>

std::optional<double> enteredNumber(QStringView text)
{
    QString number = text.trimmed().toString();
    number.replace(u',', u'.');
    const bool isPlain = std::all_of(number.begin(), number.end(), [](QChar character) {
        return QStringView(u"+-.0123456789").contains(character);
    });
    bool isNumber = false;
    const double value = QLocale::c().toDouble(number, &isNumber);
    return isPlain && isNumber ? std::optional(value) : std::nullopt;
}
