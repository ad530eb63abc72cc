#include "acsc/sources/animation_source.h"

#include <algorithm>
#include <utility>

namespace brovin::acsc {
namespace {

constexpr Range kFrameRange{0, 65534};
constexpr Range kDuration{0, 65535};
constexpr Range kPlaceRange{-32768, 32767};

Ease readEase(JsonSource& key) {
    const QString name = key.text(QStringLiteral("ease"), QStringLiteral("in-out"));
    const auto ease = easeNamed(name);
    if (!ease)
        key.report(QStringLiteral("the ease \"%1\" is none of %2").arg(name, easeNames()));
    return ease.value_or(Ease::InOut);
}

/// Reads the parts of an animation one after the other.
class Reading {
public:
    Reading(JsonSource& source, AnimationSource& result, const Rig* rig)
        : source_(source), result_(result), rig_(rig) {}

    void run() {
        const JsonSource frames = source_.at(QStringLiteral("frames"));
        result_.fromRig = !frames.isArray();
        if (result_.fromRig)
            readMovement();
        else
            for (JsonSource& frame : frames.items())
                readFileFrame(frame);
        if (result_.frames.empty())
            for (const char* key : {"sounds", "branches", "exits"})
                static_cast<void>(source_.at(QString::fromLatin1(key)));
        else
            readCues();
        readWay();
        source_.expectNoMore();
    }

private:
    /// Of frame numbers. Where the length is not known every number will do: one mistake, one message.
    Range inside() const {
        return result_.frames.empty() ? kFrameRange : Range{0, static_cast<double>(result_.length() - 1)};
    }

    const Pose* pose(const QString& name, const JsonSource& at) {
        const Pose* const found = rig_->findPose(name);
        if (found == nullptr)
            at.report(QStringLiteral("there is no pose \"%1\"").arg(name));
        return found != nullptr ? found : &rig_->neutral();
    }

    void readMovement() {
        if (rig_ == nullptr) {
            source_.report(QStringLiteral("there is no drawing to move, and \"frames\" lists no pictures"));
            return;
        }
        FrameSource frame;
        frame.hundredths = source_.whole(QStringLiteral("frame"), 10, {1, 65535});
        const int length = source_.whole(QStringLiteral("length"), 0, {1, kFrameRange.highest});
        result_.frames.assign(static_cast<std::size_t>(std::max(length, 0)), frame);
        if (length == 0 && !source_.has(QStringLiteral("length")))
            source_.report(QStringLiteral("\"length\" is missing"));
        for (JsonSource& pause : source_.items(QStringLiteral("pauses"))) {
            const int at = pause.whole(QStringLiteral("at"), 0, inside());
            const int hundredths = pause.whole(QStringLiteral("hundredths"), 10, kDuration);
            pause.expectNoMore();
            if (at < result_.length())
                result_.frames[static_cast<std::size_t>(at)].hundredths = hundredths;
        }
        result_.beginName = source_.text(QStringLiteral("begin"), QStringLiteral("neutral"));
        result_.begin = pose(result_.beginName, source_.at(QStringLiteral("begin")));
        const bool stands = !source_.has(QStringLiteral("holds")) && !source_.has(QStringLiteral("loop"));
        result_.endName = source_.text(QStringLiteral("end"), stands ? QStringLiteral("neutral") : QString());
        if (!result_.endName.isEmpty())
            result_.end = pose(result_.endName, source_.at(QStringLiteral("end")));
        for (JsonSource& key : source_.items(QStringLiteral("poses"))) {
            const double at = key.number(QStringLiteral("at"), 0, inside());
            result_.poses.push_back({at, pose(key.text(QStringLiteral("to")), key), readEase(key)});
            key.expectNoMore();
        }
        expectOrder(result_.poses, source_.at(QStringLiteral("poses")));
        readTracks(source_.at(QStringLiteral("tracks")));
        readSwitches(source_.at(QStringLiteral("switches")));
        result_.speaks = source_.flag(QStringLiteral("speaks"), false);
        if (result_.speaks && !rig_->mouthSwitch())
            source_.report(QStringLiteral("it speaks, but character.json has no \"mouths\""));
    }

    template <class Keys>
    void expectOrder(const Keys& keys, const JsonSource& where) {
        const auto later = [](const auto& a, const auto& b) { return a.at >= b.at; };
        if (std::adjacent_find(keys.begin(), keys.end(), later) != keys.end())
            where.report(QStringLiteral("each \"at\" must be greater than the one before"));
    }

    void readTracks(JsonSource tracks) {
        for (const QString& name : tracks.keys()) {
            const JsonSource keys = tracks.at(name);
            const auto part = rig_->findPart(name);
            if (!part)
                keys.report(QStringLiteral("the drawing has no group with this id"));
            Track track{part.value_or(0), {}};
            for (JsonSource& key : keys.items()) {
                TrackKey read;
                if (!key.has(QStringLiteral("at")))
                    key.report(QStringLiteral("\"at\" is missing"));
                read.at = key.number(QStringLiteral("at"), 0, inside());
                read.to = readPlacement(key);
                read.ease = readEase(key);
                key.expectNoMore();
                track.keys.push_back(read);
            }
            expectOrder(track.keys, keys);
            if (part && !track.keys.empty())
                result_.tracks.push_back(std::move(track));
        }
    }

    void readSwitches(JsonSource switches) {
        for (const QString& name : switches.keys()) {
            const JsonSource keys = switches.at(name);
            const auto index = rig_->findSwitch(name);
            if (!index) {
                keys.report(QStringLiteral("there is no such switch"));
                continue;
            }
            SwitchTrack track{*index, {}};
            for (JsonSource& key : keys.items()) {
                const int at = key.whole(QStringLiteral("at"), 0, inside());
                const QString to = key.text(QStringLiteral("to"));
                const auto choice = rig_->switches()[*index].choices.indexOf(to);
                if (choice < 0)
                    key.report(QStringLiteral("the switch has no choice \"%1\"").arg(to));
                key.expectNoMore();
                track.keys.push_back({at, static_cast<std::size_t>(std::max<qsizetype>(choice, 0))});
            }
            expectOrder(track.keys, keys);
            result_.switches.push_back(std::move(track));
        }
    }

    PlacedFile placedFile(JsonSource& source) {
        PlacedFile file;
        file.file = source.text(QStringLiteral("png"));
        file.x = source.whole(QStringLiteral("x"), 0, kPlaceRange);
        file.y = source.whole(QStringLiteral("y"), 0, kPlaceRange);
        return file;
    }

    void readFileFrame(JsonSource& source) {
        FrameSource frame;
        frame.hundredths = source.whole(QStringLiteral("hundredths"), 0, kDuration);
        frame.sound = source.text(QStringLiteral("sound"));
        if (source.has(QStringLiteral("png")))
            frame.pictures.push_back(placedFile(source));
        for (JsonSource& picture : source.items(QStringLiteral("pictures"))) {
            frame.pictures.push_back(placedFile(picture));
            picture.expectNoMore();
        }
        for (JsonSource& branch : source.items(QStringLiteral("branches")))
            frame.branches.push_back(readBranch(branch));
        if (source.has(QStringLiteral("exit")))
            frame.exit = source.whole(QStringLiteral("exit"), 0, kFrameRange);
        for (JsonSource& mouth : source.items(QStringLiteral("mouths"))) {
            MouthFile file;
            file.mouth = static_cast<std::size_t>(mouth.whole(QStringLiteral("mouth"), 0, {0, 6}));
            file.replaces = mouth.flag(QStringLiteral("replaces"), false);
            file.picture = placedFile(mouth);
            mouth.expectNoMore();
            frame.mouths.push_back(std::move(file));
        }
        source.expectNoMore();
        result_.frames.push_back(std::move(frame));
    }

    BranchSource readBranch(JsonSource& source) {
        BranchSource branch;
        branch.to = source.whole(QStringLiteral("to"), 0, kFrameRange);
        branch.percent = source.whole(QStringLiteral("percent"), 100, {0, 65535});
        if (!source.has(QStringLiteral("at")))
            source.expectNoMore();
        return branch;
    }

    FrameSource& frameAt(JsonSource& source) {
        const int at = source.whole(QStringLiteral("at"), 0, inside());
        return result_.frames[static_cast<std::size_t>(std::clamp(at, 0, std::max(result_.length() - 1, 0)))];
    }

    void readCues() {
        for (JsonSource& cue : source_.items(QStringLiteral("sounds"))) {
            frameAt(cue).sound = cue.text(QStringLiteral("play"));
            cue.expectNoMore();
        }
        for (JsonSource& source : source_.items(QStringLiteral("branches"))) {
            FrameSource& frame = frameAt(source);
            frame.branches.push_back(readBranch(source));
            source.expectNoMore();
        }
        for (JsonSource& source : source_.items(QStringLiteral("exits"))) {
            frameAt(source).exit = source.whole(QStringLiteral("to"), 0, inside());
            source.expectNoMore();
        }
        for (FrameSource& frame : result_.frames) {
            int percent = 0;
            for (const BranchSource& branch : frame.branches) {
                percent += branch.percent;
                if (branch.to >= result_.length())
                    source_.report(QStringLiteral("a branch leads to frame %1, and there are %2 frames")
                                       .arg(branch.to)
                                       .arg(result_.length()));
            }
            if (percent > 100 && result_.fromRig)
                source_.report(QStringLiteral("the branches of a frame add up to more than 100 per cent"));
            if (frame.exit && *frame.exit >= result_.length())
                source_.report(QStringLiteral("an exit leads beyond the last frame"));
        }
    }

    void readWay() {
        result_.smoothExits = source_.flag(QStringLiteral("smoothExits"), true);
        result_.returns = source_.text(QStringLiteral("return"));
        if (source_.has(QStringLiteral("holds")))
            result_.holds = source_.whole(QStringLiteral("holds"), 0, inside());
        if (source_.has(QStringLiteral("loop"))) {
            JsonSource loop = source_.at(QStringLiteral("loop"));
            AnimationSource::Loop read{loop.whole(QStringLiteral("from"), 0, inside()),
                                       loop.whole(QStringLiteral("to"), 0, inside())};
            loop.expectNoMore();
            if (read.from > read.to)
                loop.report(QStringLiteral("\"from\" lies behind \"to\""));
            result_.loop = read;
        }
        if (result_.loop && result_.holds)
            source_.report(QStringLiteral("\"holds\" and \"loop\" exclude each other"));
        const bool named = !result_.returns.isEmpty() && result_.returns != QLatin1String("exit") &&
                           result_.returns != QLatin1String("none");
        if (named && result_.holds && *result_.holds < result_.length() - 1)
            source_.report(
                QStringLiteral("it has a way back behind \"holds\", so it needs no \"return\" by name"));
        if (result_.loop && result_.speaks)
            source_.report(QStringLiteral("what loops stands nowhere to speak"));
    }

    JsonSource& source_;
    AnimationSource& result_;
    const Rig* rig_;
};

} // namespace

AnimationSource readAnimation(const QString& name, JsonSource source, const Rig* rig) {
    AnimationSource result;
    result.name = name;
    result.where = source.where();
    source.expectObject();
    Reading(source, result, rig).run();
    return result;
}

} // namespace brovin::acsc
