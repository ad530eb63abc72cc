#include "acsc/drawing/palette.h"

#include "acsc/drawing/quantiser.h"

#include <algorithm>
#include <array>
#include <iterator>
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
    ColourTable<std::uint32_t> counts;
    for (const Picture& picture : pictures)
        for (const std::uint32_t pixel : picture.pixels)
            if (pixel != 0)
                ++counts[pixel];
    ColourCounts result;
    counts.forEach([&](std::uint32_t rgb, std::uint32_t count) {
        result.emplace_hint(result.end(), 0xFF000000U | rgb, count);
    });
    return result;
}

} // namespace

bool hasStandardColours(const std::vector<character::Colour>& palette) {
    const auto equals = [](std::uint32_t rgb, const character::Colour& colour) {
        return colourOf(rgb) == colour;
    };
    return palette.size() == kEntries && std::equal(kFirst.begin(), kFirst.end(), palette.begin(), equals) &&
           std::equal(kLast.begin(), kLast.end(), palette.end() - kSystemEnd, equals);
}

Palette::Palette(const std::vector<Picture>& pictures, const PaletteWishes& wishes) {
    transparent_ = wishes.entries.empty() ? kUsualTransparent : wishes.transparent;
    entries_ = ColourTable<std::uint8_t>(transparent_);
    if (!wishes.entries.empty()) {
        for (std::size_t i = 0; i < wishes.entries.size(); ++i) {
            colours_.push_back(colourOf(wishes.entries[i]));
            if (i != transparent_)
                know(wishes.entries[i], i);
        }
        return;
    }
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
        know(kFirst[i], i);
        know(kLast[i], kEntries - kSystemEnd + i);
    }
    colours_[transparent_] = colourOf(kTransparentColour);
    for (std::size_t i = 0; i < found.size(); ++i) {
        colours_[kSystemEnd + 1 + i] = colourOf(found[i]);
        know(found[i], kSystemEnd + 1 + i);
    }
}

/// The first of the entries that have the same colour stays.
void Palette::know(std::uint32_t colour, std::size_t entry) {
    std::uint8_t& known = entries_[colour];
    if (known == transparent_)
        known = static_cast<std::uint8_t>(entry);
}

/// Looks first where the lightness is alike, and no further than a nearer one could be.
std::uint8_t Palette::nearestEntry(const PerceivedColour& wanted) {
    if (byLightness_.empty()) {
        for (std::size_t i = 0; i < colours_.size(); ++i) {
            const character::Colour& c = colours_[i];
            if (i != transparent_)
                byLightness_.emplace_back(
                    perceived(std::uint32_t{c.red} << 16U | std::uint32_t{c.green} << 8U | c.blue),
                    static_cast<std::uint8_t>(i));
        }
        std::sort(byLightness_.begin(), byLightness_.end(),
                  [](const Seen& x, const Seen& y) { return x.first.lightness < y.first.lightness; });
    }
    double best = std::numeric_limits<double>::max();
    std::uint8_t entry = 0;
    const auto consider = [&](const Seen& seen) {
        const double distance = squaredDistance(wanted, seen.first);
        if (distance < best || (distance == best && seen.second < entry)) {
            best = distance;
            entry = seen.second;
        }
        const double apart = wanted.lightness - seen.first.lightness;
        return apart * apart <= best;
    };
    const auto middle =
        std::lower_bound(byLightness_.begin(), byLightness_.end(), wanted.lightness,
                         [](const Seen& seen, double lightness) { return seen.first.lightness < lightness; });
    for (auto lighter = middle; lighter != byLightness_.end() && consider(*lighter);)
        ++lighter;
    for (auto darker = middle; darker != byLightness_.begin() && consider(*std::prev(darker));)
        --darker;
    return entry;
}

std::uint8_t Palette::entryOf(std::uint32_t colour) {
    if (colour == 0)
        return transparent_;
    std::uint8_t& entry = entries_[colour];
    if (entry == transparent_)
        entry = nearestEntry(perceived(colour));
    return entry;
}

} // namespace brovin::acsc
