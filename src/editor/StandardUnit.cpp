#include "editor/StandardUnit.h"

std::optional<double> twipsPerUnit(QStringView unit)
{
    struct UnitFactor
    {
        QStringView unit;
        double twips;
    };
    static constexpr UnitFactor Factors[] = {
        {u"mm", 56.7},
        {u"cm", 567},
        {u"in", 1440},
        {u"pt", 20},
    };
    for (const UnitFactor &factor : Factors) {
        if (factor.unit == unit)
            return factor.twips;
    }
    return std::nullopt;
}
