#include "acsc/drawing/palette.h"

#include "acsc/drawing/quantiser.h"

#include <array>
#include <limits>
#include <set>

namespace brovin::acsc {
namespace {

constexpr std::size_t kSystemEnd = 10; // of the standard colours at each end
constexpr std::uint8_t kUsualTransparent = 10;
constexpr std::size_t kEntries = 256;
constexpr std::size_t kFree = kEntries - 2 * kSystemEnd - 1;

constexpr std::array<std::uint32_t, kSystemEnd> kFirst = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080,
                                                          0x800080, 0x008080, 0xC0C0C0, 0xC0DCC0, 0xA6CAF0};
constexpr std::array<std::uint32_t, kSystemEnd> kLast = {0xFFFBF0, 0xA0A0A4, 0x808080, 0xFF0000, 0x00FF00,
                                                         0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
constexpr std::uint32_t kTransparentColour = 0xFF00FF; // what readers without transparency would show

character::Colour colourOf(std::uint32_t rgb) {
    return {static_cast<std::uint8_t>(rgb >> 16U), static_cast<std::uint8_t>(rgb >> 8U),
            static_cast<std::uint8_t>(rgb)};
}

ColourCounts countColours(const std::vector<Picture>& pictures) {
    std::unordered_map<std::uint32_t, std::uint64_t> counts;
    for (const Picture& picture : pictures)
        for (const std::uint32_t pixel : picture.pixels)
            if (pixel != 0)
                ++counts[pixel];
    return {counts.begin(),
            counts.end()}; // sorted, so that the result does not depend on the order of hashes
}

} // namespace

Palette::Palette(const std::vector<Picture>& pictures, const PaletteWishes& wishes)
    : transparent_(wishes.transparent) {
    if (!wishes.entries.empty()) {
        for (std::size_t i = 0; i < wishes.entries.size(); ++i) {
            colours_.push_back(colourOf(wishes.entries[i]));
            if (i != transparent_)
                entries_.try_emplace(wishes.entries[i], static_cast<std::uint8_t>(i));
        }
        return;
    }
    transparent_ = kUsualTransparent;
    ColourCounts counts = countColours(pictures);
    std::vector<std::uint32_t> fixed;
    for (const auto& half : {kFirst, kLast})
        for (const std::uint32_t colour : half)
            fixed.push_back(0xFF000000U | colour);
    std::vector<std::uint32_t> found;
    for (const std::uint32_t colour : wishes.exact)
        if (found.size() < kFree / 2 && counts.count(colour) > 0 &&
            std::find(fixed.begin(), fixed.end(), colour) == fixed.end()) {
            fixed.push_back(colour);
            found.push_back(colour);
        }
    const std::vector<std::uint32_t> more = findColours(counts, fixed, kFree - found.size());
    found.insert(found.end(), more.begin(), more.end());
    place(found);
}

void Palette::place(const std::vector<std::uint32_t>& found) {
    colours_.assign(kEntries, colourOf(0));
    for (std::size_t i = 0; i < kSystemEnd; ++i) {
        colours_[i] = colourOf(kFirst[i]);
        colours_[kEntries - kSystemEnd + i] = colourOf(kLast[i]);
        entries_.try_emplace(0xFF000000U | kFirst[i], static_cast<std::uint8_t>(i));
        entries_.try_emplace(0xFF000000U | kLast[i], static_cast<std::uint8_t>(kEntries - kSystemEnd + i));
    }
    colours_[transparent_] = colourOf(kTransparentColour);
    for (std::size_t i = 0; i < found.size(); ++i) {
        colours_[kSystemEnd + 1 + i] = colourOf(found[i]);
        entries_.try_emplace(found[i], static_cast<std::uint8_t>(kSystemEnd + 1 + i));
    }
}

std::uint8_t Palette::entryOf(std::uint32_t colour) {
    if (colour == 0)
        return transparent_;
    if (const auto known = entries_.find(colour); known != entries_.end())
        return known->second;
    if (seen_.empty())
        for (const character::Colour& c : colours_)
            seen_.push_back(perceived(std::uint32_t{c.red} << 16U | std::uint32_t{c.green} << 8U | c.blue));
    const PerceivedColour wanted = perceived(colour);
    double best = std::numeric_limits<double>::max();
    std::uint8_t entry = 0;
    for (std::size_t i = 0; i < seen_.size(); ++i) {
        const double distance = squaredDistance(wanted, seen_[i]);
        if (i != transparent_ && distance < best) {
            best = distance;
            entry = static_cast<std::uint8_t>(i);
        }
    }
    entries_.emplace(colour, entry);
    return entry;
}

} // namespace brovin::acsc
