#include "acsc/drawing/quantiser.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <set>

namespace brovin::acsc {
namespace {

struct Sample {
    PerceivedColour colour;
    double weight = 0;
};

constexpr double PerceivedColour::*kAxes[] = {&PerceivedColour::lightness, &PerceivedColour::a,
                                              &PerceivedColour::b};
constexpr int kRounds = 12;
/// Colours this near to a fixed one need none of their own.
constexpr double kUnseen = 0.004 * 0.004;

/// Similar colours are taken together, so that their number is bounded whatever the pictures are. The square
/// root keeps a large plain surface from taking all entries away from a small shaded one.
std::vector<Sample> gather(const ColourCounts& counts) {
    struct Bin {
        double red = 0, green = 0, blue = 0, weight = 0;
    };
    std::map<std::uint32_t, Bin> bins;
    for (const auto& [rgb, count] : counts) {
        Bin& bin = bins[(rgb & 0xFCFCFCU) >> 2U];
        const auto weight = static_cast<double>(count);
        bin.red += weight * static_cast<double>((rgb >> 16U) & 0xFFU);
        bin.green += weight * static_cast<double>((rgb >> 8U) & 0xFFU);
        bin.blue += weight * static_cast<double>(rgb & 0xFFU);
        bin.weight += weight;
    }
    std::vector<Sample> samples;
    for (const auto& [key, bin] : bins) {
        const auto mean = [weight = bin.weight](double sum) {
            return static_cast<std::uint32_t>(std::lround(sum / weight));
        };
        samples.push_back({perceived(mean(bin.red) << 16U | mean(bin.green) << 8U | mean(bin.blue)),
                           std::sqrt(bin.weight)});
    }
    return samples;
}

struct Cut {
    std::size_t from;
    std::size_t to;
    double error; ///< of the axis with the greatest one
    std::size_t axis;
};

Cut judged(const std::vector<Sample>& samples, std::size_t from, std::size_t to) {
    Cut cut{from, to, 0, 0};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        double weight = 0;
        double sum = 0;
        double squares = 0;
        for (std::size_t i = from; i < to; ++i) {
            const double value = samples[i].colour.*kAxes[axis];
            weight += samples[i].weight;
            sum += samples[i].weight * value;
            squares += samples[i].weight * value * value;
        }
        const double error = weight > 0 ? squares - sum * sum / weight : 0;
        if (error > cut.error) {
            cut.error = error;
            cut.axis = axis;
        }
    }
    return cut;
}

PerceivedColour meanOf(const std::vector<Sample>& samples, const Cut& cut) {
    PerceivedColour mean;
    double weight = 0;
    for (std::size_t i = cut.from; i < cut.to; ++i) {
        weight += samples[i].weight;
        for (const auto axis : kAxes)
            mean.*axis += samples[i].weight * samples[i].colour.*axis;
    }
    for (const auto axis : kAxes)
        mean.*axis /= weight;
    return mean;
}

/// Cuts the worst group in two until there are enough.
std::vector<PerceivedColour> medianCut(std::vector<Sample> samples, std::size_t most) {
    std::vector<Cut> cuts{judged(samples, 0, samples.size())};
    while (cuts.size() < most) {
        const auto worst = std::max_element(cuts.begin(), cuts.end(),
                                            [](const Cut& a, const Cut& b) { return a.error < b.error; });
        if (worst->error <= 1e-9 || worst->to - worst->from < 2)
            break;
        const auto axis = kAxes[worst->axis];
        const auto begin = samples.begin() + static_cast<std::ptrdiff_t>(worst->from);
        const auto end = samples.begin() + static_cast<std::ptrdiff_t>(worst->to);
        std::stable_sort(begin, end,
                         [=](const Sample& a, const Sample& b) { return a.colour.*axis < b.colour.*axis; });
        double half = 0;
        for (auto i = begin; i != end; ++i)
            half += i->weight / 2;
        std::size_t middle = worst->from;
        while (middle + 2 < worst->to && half > samples[middle].weight)
            half -= samples[middle++].weight;
        const std::size_t to = worst->to;
        *worst = judged(samples, worst->from, middle + 1);
        cuts.push_back(judged(samples, middle + 1, to));
    }
    std::vector<PerceivedColour> means;
    means.reserve(cuts.size());
    for (const Cut& cut : cuts)
        means.push_back(meanOf(samples, cut));
    return means;
}

std::size_t nearest(const std::vector<PerceivedColour>& centres, const PerceivedColour& colour) {
    double best = std::numeric_limits<double>::max();
    std::size_t found = 0;
    for (std::size_t i = 0; i < centres.size(); ++i)
        if (const double distance = squaredDistance(centres[i], colour); distance < best) {
            best = distance;
            found = i;
        }
    return found;
}

/// Moves the centres behind the first `fixed` into the middle of what is nearest to them.
void settle(std::vector<PerceivedColour>& centres, std::size_t fixed, const std::vector<Sample>& samples) {
    for (int round = 0; round < kRounds; ++round) {
        std::vector<PerceivedColour> sums(centres.size());
        std::vector<double> weights(centres.size());
        for (const Sample& sample : samples) {
            const std::size_t i = nearest(centres, sample.colour);
            weights[i] += sample.weight;
            for (const auto axis : kAxes)
                sums[i].*axis += sample.weight * sample.colour.*axis;
        }
        for (std::size_t i = fixed; i < centres.size(); ++i)
            for (const auto axis : kAxes)
                if (weights[i] > 0)
                    centres[i].*axis = sums[i].*axis / weights[i];
    }
}

} // namespace

std::vector<std::uint32_t> findColours(const ColourCounts& counts, const std::vector<std::uint32_t>& fixed,
                                       std::size_t most) {
    ColourCounts open = counts;
    for (const std::uint32_t colour : fixed)
        open.erase(colour);
    std::vector<std::uint32_t> found;
    if (open.size() <= most) {
        for (const auto& [colour, count] : open)
            found.push_back(colour);
        return found;
    }
    std::vector<PerceivedColour> centres;
    centres.reserve(fixed.size());
    for (const std::uint32_t colour : fixed)
        centres.push_back(perceived(colour));
    std::vector<Sample> samples = gather(open);
    std::erase_if(samples, [&](const Sample& sample) {
        return squaredDistance(centres[nearest(centres, sample.colour)], sample.colour) < kUnseen;
    });
    if (samples.empty())
        return found;
    const std::vector<PerceivedColour> begun = medianCut(samples, most);
    centres.insert(centres.end(), begun.begin(), begun.end());
    settle(centres, fixed.size(), samples);
    std::set<std::uint32_t> different;
    for (std::size_t i = fixed.size(); i < centres.size(); ++i)
        different.insert(toRgb(centres[i]));
    return {different.begin(), different.end()};
}

} // namespace brovin::acsc
