#include "acsc/movement/route.h"

#include "acsc/movement/movement.h"

#include <QStringList>

#include <algorithm>
#include <limits>

namespace brovin::acsc {
namespace {

/// Frames whose parts are no further apart than this look almost the same.
constexpr double kAlmostSamePixels = 1.5;

/// Finds the ways out, by the author's frames: from where the animation stands or has been round, the
/// author's own way back to its end; before that the shortest.
class WaysOut {
public:
    WaysOut(const AnimationSource& animation, const std::vector<Pose>& poses, const Rig* rig)
        : animation_(animation), poses_(poses), rig_(rig), turn_(animation.length() - 1),
          exits_(animation.frames.size()), times_(animation.frames.size(), std::numeric_limits<long>::max()) {
        if (animation.holds || animation.loop)
            turn_ = animation.holds ? *animation.holds : animation.loop->to;
    }

    /// By frame: where to go; the number of frames stands for "the end".
    std::vector<int> find() {
        const int end = animation_.length();
        std::vector<bool> done(exits_.size(), false);
        leave(end - 1);
        if (leadsBackToBegin() && turn_ > 0)
            leave(0);
        for (;;) {
            const int nearest = nearestOf(done);
            if (nearest < 0)
                return exits_;
            done[index(nearest)] = true;
            for (int from = 0; from < end; ++from)
                if (!done[index(from)] && reaches(from, nearest))
                    offer(from, nearest);
        }
    }

private:
    static std::size_t index(int frame) { return static_cast<std::size_t>(frame); }

    void leave(int frame) {
        exits_[index(frame)] = animation_.length();
        times_[index(frame)] = 0;
    }

    /// Whether what ends at the first frame is as good as at the last one.
    bool leadsBackToBegin() const { return !poses_.empty() && poses_.front() == poses_.back(); }

    int nearestOf(const std::vector<bool>& done) const {
        int nearest = -1;
        for (int i = 0; i < animation_.length(); ++i)
            if (!done[index(i)] && times_[index(i)] < std::numeric_limits<long>::max() &&
                (nearest < 0 || times_[index(i)] < times_[index(nearest)]))
                nearest = i;
        return nearest;
    }

    void offer(int from, int to) {
        const long time = times_[index(to)] + std::max(animation_.frames[index(to)].hundredths, 1);
        if (time >= times_[index(from)])
            return;
        times_[index(from)] = time;
        exits_[index(from)] = to;
    }

    bool reaches(int from, int to) const {
        if (to == from + 1)
            return true;
        const bool onTheLoop = animation_.loop && from >= animation_.loop->from;
        if (from >= turn_ || (onTheLoop && (to < animation_.loop->from || to > turn_ + 1)))
            return false;
        if (poses_.empty())
            return false;
        if (to == from - 1)
            return true;
        const Pose& a = poses_[index(from)];
        const Pose& b = poses_[index(to)];
        return a.choices == b.choices && jumpBetween(a, b, *rig_).pixels <= kAlmostSamePixels;
    }

    const AnimationSource& animation_;
    const std::vector<Pose>& poses_;
    const Rig* rig_;
    int turn_; ///< the frame behind which the author's way back begins; the last: there is none
    std::vector<int> exits_;
    std::vector<long> times_; ///< hundredths of a second to the end
};

/// Brings the author's frames into the file's order.
class Layout {
public:
    explicit Layout(const AnimationSource& animation)
        : animation_(animation), stands_(animation.standing()) {}

    bool wayBack() const { return stands_ < animation_.length() - 1; }

    int placeOf(int frame) const {
        if (!wayBack() || frame < stands_)
            return frame;
        return frame == stands_ ? animation_.length() - 1 : frame - 1;
    }

    /// What the frame's own branches leave is led to where the file's order does not lead.
    std::vector<BranchSource> branchesOf(int frame) const {
        std::vector<BranchSource> branches;
        int left = 100;
        for (const BranchSource& branch : animation_.frames[static_cast<std::size_t>(frame)].branches) {
            branches.push_back({placeOf(branch.to), branch.percent});
            left -= branch.percent;
        }
        if (const auto next = ordered(frame); next && left > 0)
            branches.push_back({*next, left});
        return branches;
    }

private:
    std::optional<int> ordered(int frame) const {
        const int end = animation_.length();
        if (animation_.loop && frame == animation_.loop->to)
            return placeOf(animation_.loop->from);
        if (!wayBack() || frame == stands_)
            return std::nullopt;
        if (frame == end - 1)
            return end; // the end point
        return placeOf(frame + 1) == placeOf(frame) + 1 ? std::nullopt : std::optional(placeOf(frame + 1));
    }

    const AnimationSource& animation_;
    int stands_;
};

/// Whether anything leads to the frame behind the last one.
bool needsEndPoint(const std::vector<RouteFrame>& route) {
    const int end = static_cast<int>(route.size());
    return std::any_of(route.begin(), route.end(), [=](const RouteFrame& frame) {
        return frame.exit == end || std::any_of(frame.branches.begin(), frame.branches.end(),
                                                [=](const BranchSource& branch) { return branch.to == end; });
    });
}

/// By the file's frames: whether it is ever shown, played from the beginning and left anywhere.
std::vector<bool> seen(const std::vector<RouteFrame>& route) {
    std::vector<bool> result(route.size(), false);
    std::vector<int> next{0};
    while (!next.empty()) {
        const int frame = next.back();
        next.pop_back();
        if (frame >= static_cast<int>(route.size()) || result[static_cast<std::size_t>(frame)])
            continue;
        result[static_cast<std::size_t>(frame)] = true;
        const RouteFrame& at = route[static_cast<std::size_t>(frame)];
        int left = 100;
        for (const BranchSource& branch : at.branches) {
            next.push_back(branch.to);
            left -= branch.percent;
        }
        if (left > 0)
            next.push_back(frame + 1);
        if (at.exit)
            next.push_back(*at.exit);
    }
    return result;
}

} // namespace

QString neverSeen(const std::vector<RouteFrame>& route) {
    std::vector<int> frames;
    const std::vector<bool> reached = seen(route);
    for (std::size_t i = 0; i < route.size(); ++i)
        if (!reached[i] && route[i].source)
            frames.push_back(*route[i].source);
    std::sort(frames.begin(), frames.end());
    QStringList numbers;
    for (const int frame : frames)
        numbers.append(QString::number(frame));
    return numbers.join(QStringLiteral(", "));
}

std::vector<RouteFrame> planRoute(const AnimationSource& animation, const std::vector<Pose>& poses,
                                  const Rig* rig) {
    const int end = animation.length();
    if (end == 0)
        return {};
    const Layout layout(animation);
    const std::vector<int> out =
        animation.smoothExits ? WaysOut(animation, poses, rig).find() : std::vector<int>();
    std::vector<RouteFrame> route(animation.frames.size());
    for (int frame = 0; frame < end; ++frame) {
        RouteFrame& planned = route[static_cast<std::size_t>(layout.placeOf(frame))];
        const FrameSource& source = animation.frames[static_cast<std::size_t>(frame)];
        planned.source = frame;
        planned.branches = layout.branchesOf(frame);
        if (source.exit)
            planned.exit = layout.placeOf(*source.exit);
        else if (!out.empty() && (frame < end - 1 || layout.wayBack() || animation.loop))
            planned.exit = out[static_cast<std::size_t>(frame)] == end
                               ? end
                               : layout.placeOf(out[static_cast<std::size_t>(frame)]);
    }
    if (needsEndPoint(route))
        route.push_back({});
    return route;
}

} // namespace brovin::acsc
