#include "acsc/drawing/perceived_colour.h"

#include <algorithm>
#include <cmath>

namespace brovin::acsc {
namespace {

double linear(std::uint32_t channel) {
    const double value = static_cast<double>(channel & 0xFFU) / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

std::uint32_t gamma(double value) {
    const double v = value <= 0.0031308 ? value * 12.92 : 1.055 * std::pow(value, 1 / 2.4) - 0.055;
    return static_cast<std::uint32_t>(std::lround(std::clamp(v, 0.0, 1.0) * 255.0));
}

} // namespace

PerceivedColour perceived(std::uint32_t rgb) {
    const double r = linear(rgb >> 16U);
    const double g = linear(rgb >> 8U);
    const double b = linear(rgb);
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

std::uint32_t toRgb(const PerceivedColour& c) {
    const double l = std::pow(c.lightness + 0.3963377774 * c.a + 0.2158037573 * c.b, 3);
    const double m = std::pow(c.lightness - 0.1055613458 * c.a - 0.0638541728 * c.b, 3);
    const double s = std::pow(c.lightness - 0.0894841775 * c.a - 1.2914855480 * c.b, 3);
    const std::uint32_t red = gamma(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s);
    const std::uint32_t green = gamma(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s);
    const std::uint32_t blue = gamma(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s);
    return 0xFF000000U | red << 16U | green << 8U | blue;
}

} // namespace brovin::acsc
