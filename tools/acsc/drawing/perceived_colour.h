#pragma once

#include <cstdint>

namespace brovin::acsc {

/// A colour in the Oklab space, in which distances are about as the eye sees them (B. Ottosson, 2020).
struct PerceivedColour {
    double lightness = 0;
    double a = 0;
    double b = 0;
};

[[nodiscard]] PerceivedColour perceived(std::uint32_t rgb);
/// 0xFFRRGGBB.
[[nodiscard]] std::uint32_t toRgb(const PerceivedColour& colour);

[[nodiscard]] inline double squaredDistance(const PerceivedColour& x, const PerceivedColour& y) {
    const double l = x.lightness - y.lightness;
    const double a = x.a - y.a;
    const double b = x.b - y.b;
    return l * l + a * a + b * b;
}

} // namespace brovin::acsc
