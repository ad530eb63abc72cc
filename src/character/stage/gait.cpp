#include "character/stage/gait.h"

#include "character/letter_case.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace brovin::character {
namespace {

/// Of a way's length, at most, what swings beyond it and what goes beside it.
constexpr double kSwingShare = 0.1;
constexpr double kWidthShare = 0.15;

double gently(double part) {
    return part * part * (3 - 2 * part);
}
double evenly(double part) {
    return part;
}

double straight(double /*time*/) {
    return 0;
}
/// Five beats of the wings, each of which lifts it; it sinks between them.
double inBeats(double time) {
    const double beat = std::sin(5 * std::numbers::pi * time);
    return beat * beat;
}
double inOneArc(double time) {
    return std::sin(std::numbers::pi * gently(time));
}
/// Up, down and up again, widest in the middle.
double swaying(double time) {
    return std::sin(3 * std::numbers::pi * time) * std::sin(std::numbers::pi * time);
}

constexpr std::array<GaitKey, 2> kThroughout = {{{0, 0, 0}, {1, 1, 0}}};
/// It is carried past its place and comes back.
constexpr std::array<GaitKey, 3> kPastAndBack = {{{0, 0, 0}, {0.75, 1, 1}, {1, 1, 0}}};
/// A recoil, an even drive, and a stop that shakes it: over, under, over, still.
constexpr std::array<GaitKey, 6> kDriven = {
    {{0, 0, 0}, {0.06, 0, -0.5}, {0.8, 1, 1}, {0.87, 1, -0.6}, {0.94, 1, 0.3}, {1, 1, 0}}};

constexpr Gait kPlain{"", kThroughout, gently, straight, 0, 0};
constexpr std::array<Gait, 4> kGaits = {{
    {"fluttering", kThroughout, gently, inBeats, 0, 9},
    {"sailing", kThroughout, gently, inOneArc, 0, 40},
    {"drifting", kPastAndBack, gently, swaying, 16, 14},
    {"jolting", kDriven, evenly, straight, 8, 0},
}};

} // namespace

double Gait::swingOn(double length) const {
    return std::min(swing, length * kSwingShare);
}

double Gait::widthOn(double length) const {
    return std::min(width, length * kWidthShare);
}

GaitKey Gait::at(double time) const {
    const auto after =
        std::find_if(keys.begin() + 1, keys.end() - 1, [time](const GaitKey& key) { return key.at > time; });
    const GaitKey& before = *(after - 1);
    const double part = ease((time - before.at) / (after->at - before.at));
    return {time, std::lerp(before.way, after->way, part), std::lerp(before.swing, after->swing, part)};
}

const Gait& gaitIn(const CharacterData& character, std::optional<std::uint32_t> animation) {
    if (!animation)
        return kPlain;
    for (const State& state : character.states)
        for (const Gait& gait : kGaits)
            if (foldedCase(state.name) == gait.state &&
                std::find(state.animations.begin(), state.animations.end(), *animation) !=
                    state.animations.end())
                return gait;
    return kPlain;
}

} // namespace brovin::character
