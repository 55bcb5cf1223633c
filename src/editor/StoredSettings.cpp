#include "editor/StoredSettings.h"

#include "engine/RuntimeError.h"
#include "platform/RegistryFunctions.h"

#include <cmath>
#include <limits>

QString StoredSettings::text(const QString &key, const QString &name) const
{
    return registry_.ReadSetting(RegistryRoot::CurrentUser, key, name).toString();
}

bool StoredSettings::flag(const QString &key, const QString &name) const
{
    return text(key, name).compare(QLatin1String("True"), Qt::CaseInsensitive) == 0;
}

qint16 StoredSettings::number(const QString &key, const QString &name) const
{
    const QString stored = text(key, name);
    bool isNumber = false;
    const double number = std::nearbyint(stored.trimmed().toDouble(&isNumber));
    if (!isNumber || std::isnan(number))
        return 0;
    if (number < std::numeric_limits<qint16>::min() ||
        number > std::numeric_limits<qint16>::max()) {
        throw RuntimeError(
            ErrorNumber::Overflow,
            QStringLiteral("The setting \"%1\" of %2 holds %3.").arg(name, key, stored));
    }
    return static_cast<qint16>(number);
}

void StoredSettings::write(const QString &key, const QString &name, const QVariant &value)
{
    registry_.WriteSetting(RegistryRoot::CurrentUser, key, name, value, RegistryType::Text);
}
