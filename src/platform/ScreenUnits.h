#pragma once

class QPaintDevice;

/// Lengths: 1440 twips to the inch, 20 to the point.
constexpr int twipsPerInch = 1440;
constexpr int twipsPerPoint = 20;

/// Twips to one device-independent pixel: 15 at 96 dots to the inch. Widgets, screens' pixmaps and
/// printers are all paint devices.
[[nodiscard]] double twipsPerPixelX(const QPaintDevice &device);
[[nodiscard]] double twipsPerPixelY(const QPaintDevice &device);

/// The nearest whole number of twips or pixels, within the range of int.
[[nodiscard]] int toTwips(double pixels, double twipsPerPixel);
[[nodiscard]] int toPixels(double twips, double twipsPerPixel);
