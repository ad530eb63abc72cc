#pragma once

#include "acsc/drawing/picture.h"
#include "acsc/drawing/puppet.h"
#include "acsc/movement/route.h"
#include "acsc/sources/character_source.h"

#include <QStringList>

#include <map>
#include <memory>
#include <vector>

namespace brovin::acsc {

struct PlacedPicture {
    std::size_t picture = 0;
    int x = 0;
    int y = 0;
};
struct FilmedMouth {
    std::size_t mouth = 0;
    bool replaces = false;
    PlacedPicture picture;
};
/// A frame of a route with its pictures.
struct FilmedFrame {
    RouteFrame route;
    std::vector<PlacedPicture> pictures; ///< the first is the topmost
    std::vector<FilmedMouth> mouths;
};

struct FilmedAnimation {
    const AnimationSource* source = nullptr;
    std::vector<Pose> poses; ///< by the author's frames; empty: of picture files
    std::vector<FilmedFrame> frames;
};

/// Draws a character's animations.
class Camera {
public:
    Camera(const CharacterSource& source, Problems& problems) : source_(source), problems_(problems) {}

    [[nodiscard]] FilmedAnimation film(const AnimationSource& animation);
    [[nodiscard]] const PictureStore& pictures() const { return pictures_; }

    /// The whole frame as the author's frame number `frame` shows it.
    [[nodiscard]] Picture whole(const FilmedAnimation& animation, int frame);

private:
    [[nodiscard]] const Picture& drawn(const Pose& pose);
    void shoot(const AnimationSource& animation, const Pose& pose, bool speaks, FilmedFrame& frame);
    void addMouths(const Pose& pose, FilmedFrame& frame);
    [[nodiscard]] PlacedPicture placed(const Picture& picture, const Box& box);
    [[nodiscard]] PlacedPicture fromFile(const PlacedFile& file, const QString& where);

    const CharacterSource& source_;
    Problems& problems_;
    std::unique_ptr<Puppet> puppet_; ///< null: nothing has been drawn yet
    PictureStore pictures_;
    std::map<QByteArray, FilmedFrame> shot_;
    Picture last_;
    QByteArray lastSvg_;
    std::map<QString, std::size_t> files_;
};

} // namespace brovin::acsc
