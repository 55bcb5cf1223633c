#include "platform/ScreenUnits.h"

#include <QPaintDevice>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

int nearestInt(double value)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return int(std::clamp(std::round(value), lowest, highest));
}

} // namespace

double twipsPerPixelX(const QPaintDevice &device)
{
    return double(twipsPerInch) / device.logicalDpiX();
}

double twipsPerPixelY(const QPaintDevice &device)
{
    return double(twipsPerInch) / device.logicalDpiY();
}

int toTwips(double pixels, double twipsPerPixel)
{
    return nearestInt(pixels * twipsPerPixel);
}

int toPixels(double twips, double twipsPerPixel)
{
    return nearestInt(twips / twipsPerPixel);
}
