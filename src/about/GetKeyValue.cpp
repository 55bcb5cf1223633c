#include "about/GetKeyValue.h"

#include "platform/RegistryFunctions.h"

bool GetKeyValue(const RegistryFunctions &registry, RegistryRoot root, const QString &keyName,
                 const QString &valueName, QString &value)
{
    constexpr qsizetype BufferSize = 1024;
    constexpr int HexDigits = 8;
    QVariant stored;
    if (registry.QueryValueByType({root, keyName}, valueName, stored) != 0)
        return false;
    if (stored.typeId() == QMetaType::Int) {
        const QString digits = QString::number(static_cast<quint32>(stored.toInt()), 16);
        value = QStringLiteral("&h") + digits.toUpper().rightJustified(HexDigits, QLatin1Char('0'));
        return true;
    }
    const QString text = stored.toString();
    if (text.size() > BufferSize)
        return false;
    value = text.left(text.indexOf(QChar(u'\0')));
    return true;
}
