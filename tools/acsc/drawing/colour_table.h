#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace brovin::acsc {

/// Something about each colour 0xRRGGBB, the highest byte being ignored. A hash would be smaller, and several
/// times as slow for the millions of pixels of a character. Only colours whose red is near to what was asked
/// for take memory.
template <class Value>
class ColourTable {
public:
    explicit ColourTable(Value unknown = {}) : unknown_(unknown) {}

    [[nodiscard]] Value& operator[](std::uint32_t colour) {
        std::vector<Value>& plane = planes_[colour >> 16U & 0xFFU];
        if (plane.empty())
            plane.assign(kPlane, unknown_);
        return plane[colour & (kPlane - 1U)];
    }
    /// Calls `visit` with 0xRRGGBB and what is known, for all that are not unknown, in the order of the
    /// colours.
    template <class Visit>
    void forEach(const Visit& visit) const {
        for (std::size_t red = 0; red < planes_.size(); ++red)
            for (std::size_t rest = 0; rest < planes_[red].size(); ++rest)
                if (planes_[red][rest] != unknown_)
                    visit(static_cast<std::uint32_t>(red << 16U | rest), planes_[red][rest]);
    }

private:
    static constexpr std::uint32_t kPlane = 0x10000;
    std::array<std::vector<Value>, 256> planes_; ///< by red
    Value unknown_;
};

} // namespace brovin::acsc
