#pragma once

#include "acsc/movement/easing.h"
#include "acsc/sources/json_source.h"
#include "acsc/sources/rig.h"

#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

namespace brovin::acsc {

/// What the author wrote about one animation, with all names looked up.

struct TrackKey {
    double at = 0;
    PartialPlacement to;
    Ease ease = Ease::InOut;
};
struct Track {
    std::size_t part = 0;
    std::vector<TrackKey> keys; ///< in the order of time
};
struct SwitchKey {
    int at = 0;
    std::size_t choice = 0;
};
struct SwitchTrack {
    std::size_t switchIndex = 0;
    std::vector<SwitchKey> keys;
};
struct PoseKey {
    double at = 0;
    const Pose* pose = nullptr;
    Ease ease = Ease::InOut;
};

/// A picture file in its place.
struct PlacedFile {
    QString file; ///< below the character's folder
    int x = 0;
    int y = 0;
};
struct MouthFile {
    std::size_t mouth = 0;
    bool replaces = false;
    PlacedFile picture;
};

struct BranchSource {
    int to = 0;
    int percent = 0;
};

/// What a frame has beside its picture.
struct FrameSource {
    int hundredths = 10;
    QString sound;
    std::vector<BranchSource> branches;
    std::optional<int> exit;
    std::vector<PlacedFile> pictures; ///< of an animation of picture files; the first is the topmost
    std::vector<MouthFile> mouths;
};

struct AnimationSource {
    QString name;
    QString where; ///< for problems
    bool fromRig = true;
    std::vector<FrameSource> frames;
    // The movement of the rig.
    const Pose* begin = nullptr;
    const Pose* end = nullptr; ///< nullptr: whatever it comes to
    QString beginName;
    QString endName;
    std::vector<PoseKey> poses;
    std::vector<Track> tracks;
    std::vector<SwitchTrack> switches;
    // The way through the frames.
    std::optional<int> holds;
    struct Loop {
        int from = 0;
        int to = 0;
    };
    std::optional<Loop> loop;
    bool speaks = false;
    bool smoothExits = true; ///< the compiler finds the ways out
    QString returns; ///< "": by the way back if there is one; "exit"; "none"; else the name of an animation

    [[nodiscard]] int length() const { return static_cast<int>(frames.size()); }
    /// The frame on which the animation stands when it is over and nothing has led it back.
    [[nodiscard]] int standing() const { return holds ? *holds : length() - 1; }
};

/// Reads one animation. `rig` is null when the character has no drawing.
[[nodiscard]] AnimationSource readAnimation(const QString& name, JsonSource source, const Rig* rig);

} // namespace brovin::acsc
