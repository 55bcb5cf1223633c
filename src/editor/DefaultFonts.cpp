#include "editor/DefaultFonts.h"

#include <algorithm>
#include <span>

namespace {

QString firstInstalled(std::span<const QStringView> wanted, const QStringList &installed)
{
    for (const QStringView name : wanted) {
        if (installed.contains(name))
            return name.toString();
    }
    return {};
}

} // namespace

QString ChooseDefaultTengwarFont(const QStringList &installed)
{
    static constexpr QStringView Wanted[] = {u"Tengwar Quenya", u"Tengwar Sindarin",
                                             u"Tengwar Noldor"};
    if (QString name = firstInstalled(Wanted, installed); !name.isEmpty())
        return name;
    const auto last = std::find_if(installed.rbegin(), installed.rend(), [](const QString &name) {
        return name.contains(u"tengwa", Qt::CaseInsensitive);
    });
    return last != installed.rend() ? *last : installed.value(0);
}

QString ChooseDefaultTextFont(const QStringList &installed)
{
    static constexpr QStringView Wanted[] = {u"Verdana", u"Arial", u"MS Sans Serif"};
    const QString name = firstInstalled(Wanted, installed);
    return name.isEmpty() ? installed.value(0) : name;
}
