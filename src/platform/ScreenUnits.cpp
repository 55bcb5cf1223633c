#include "platform/ScreenUnits.h"

#include <QPaintDevice>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

int nearestInt(double value)
{
    constexpr double Lowest = std::numeric_limits<int>::min();
    constexpr double Highest = std::numeric_limits<int>::max();
    return int(std::clamp(std::round(value), Lowest, Highest));
}

} // namespace

double twipsPerPixelX(const QPaintDevice &device)
{
    return double(TwipsPerInch) / device.logicalDpiX();
}

double twipsPerPixelY(const QPaintDevice &device)
{
    return double(TwipsPerInch) / device.logicalDpiY();
}

int toTwips(double pixels, double twipsPerPixel)
{
    return nearestInt(pixels * twipsPerPixel);
}

int toPixels(double twips, double twipsPerPixel)
{
    return nearestInt(twips / twipsPerPixel);
}
