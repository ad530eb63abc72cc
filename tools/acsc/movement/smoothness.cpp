#include "acsc/movement/smoothness.h"

#include "acsc/movement/movement.h"
#include "acsc/movement/route.h"

#include <algorithm>
#include <map>
#include <optional>

namespace brovin::acsc {
namespace {

class Survey {
public:
    explicit Survey(const Rig& rig) : rig_(rig) {}

    Step step(const Pose& from, const Pose& to, const QString& what) const {
        const Jump jump = jumpBetween(from, to, rig_);
        return {what, jump.pixels, jump.pixels > 0 ? rig_.parts()[jump.part].name : QString()};
    }

    Step largest(const AnimationSource& animation, const std::vector<Pose>& poses) const {
        const auto route = planRoute(animation, poses, &rig_);
        Step worst{animation.name, 0, {}};
        const auto consider = [&](const RouteFrame& from, std::size_t to) {
            if (!from.source || to >= route.size() || !route[to].source)
                return;
            const int a = *from.source;
            const int b = *route[to].source;
            const Step one = step(poses[static_cast<std::size_t>(a)], poses[static_cast<std::size_t>(b)],
                                  QStringLiteral("%1 %2 > %3").arg(animation.name).arg(a).arg(b));
            if (one.pixels > worst.pixels)
                worst = one;
        };
        for (std::size_t i = 0; i < route.size(); ++i) {
            int percent = 0;
            for (const BranchSource& branch : route[i].branches) {
                consider(route[i], static_cast<std::size_t>(branch.to));
                percent += branch.percent;
            }
            if (percent < 100)
                consider(route[i], i + 1);
            if (route[i].exit)
                consider(route[i], static_cast<std::size_t>(*route[i].exit));
        }
        return worst;
    }

private:
    const Rig& rig_;
};

/// The pose in which an animation leaves the character when nothing leads back from it and no other animation
/// takes it up; null: all is well. What hides the character need not lead back.
const Pose* leftIn(const AnimationSource& animation, const CharacterSource& source) {
    const bool leadsBack = animation.holds || animation.loop || !animation.returns.isEmpty();
    if (!animation.fromRig || leadsBack || *animation.end == source.rig->neutral())
        return nullptr;
    const bool taken =
        std::any_of(source.animations.begin(), source.animations.end(), [&](const auto& other) {
            return &other != &animation && other.fromRig && *other.begin == *animation.end;
        });
    const bool hides = std::any_of(source.states.begin(), source.states.end(), [&](const auto& state) {
        return state.name == QLatin1String("Hiding") &&
               state.animations.contains(animation.name, Qt::CaseInsensitive);
    });
    return taken || hides ? nullptr : animation.end;
}

} // namespace

std::vector<Step> largestSteps(const CharacterSource& source, Problems& problems) {
    std::vector<Step> steps;
    if (!source.rig) {
        problems.add(source.folder.path(), QStringLiteral("only a character with a drawing can be checked"));
        return steps;
    }
    const Survey survey(*source.rig);
    std::map<QString, std::vector<Pose>> poses;
    for (const AnimationSource& animation : source.animations) {
        if (!animation.fromRig)
            continue;
        const auto& own = poses[animation.name.toCaseFolded()] = posesOf(animation, *source.rig);
        checkEnds(animation, own, *source.rig, problems);
        steps.push_back(survey.largest(animation, own));
    }
    for (const AnimationSource& animation : source.animations) {
        const auto own = poses.find(animation.name.toCaseFolded());
        const auto back = poses.find(animation.returns.toCaseFolded());
        if (own == poses.end() || back == poses.end())
            continue;
        steps.push_back(survey.step(own->second[static_cast<std::size_t>(animation.standing())],
                                    back->second.front(),
                                    QStringLiteral("%1 > %2").arg(animation.name, animation.returns)));
    }
    for (const AnimationSource& animation : source.animations)
        if (const Pose* const left = leftIn(animation, source))
            steps.push_back(survey.step(*left, source.rig->neutral(),
                                        QStringLiteral("%1 > neutral").arg(animation.name)));
    std::stable_sort(steps.begin(), steps.end(),
                     [](const Step& a, const Step& b) { return a.pixels > b.pixels; });
    return steps;
}

} // namespace brovin::acsc
