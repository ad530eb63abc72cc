#include "acsc/file/compile.h"

#include "acsc/drawing/film.h"
#include "acsc/drawing/palette.h"
#include "acsc/sources/sounds.h"
#include "character/indexed_image.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace brovin::acsc {
namespace {

/// Turns what was filmed into the tables of a character.
class Assembly {
public:
    Assembly(const CharacterSource& source, Problems& problems)
        : source_(source), problems_(problems), camera_(source, problems), sounds_(source.folder, problems) {
        data_ = source.data;
    }

    character::CharacterData run() {
        for (const AnimationSource& animation : source_.animations)
            addAnimation(camera_.film(animation));
        if (!problems_.none())
            return {};
        addReturns();
        addStates();
        addImages();
        data_.sounds = sounds_.take();
        return std::move(data_);
    }

private:
    void addAnimation(const FilmedAnimation& filmed) {
        character::Animation animation;
        animation.name = filmed.source->name.toStdString();
        for (const FilmedFrame& frame : filmed.frames)
            animation.frames.push_back(assembled(frame, *filmed.source));
        data_.animations.push_back(std::move(animation));
    }

    character::Frame assembled(const FilmedFrame& filmed, const AnimationSource& animation) {
        character::Frame frame;
        for (const PlacedPicture& picture : filmed.pictures)
            frame.images.push_back({static_cast<std::uint32_t>(picture.picture),
                                    static_cast<std::int16_t>(picture.x),
                                    static_cast<std::int16_t>(picture.y)});
        for (const FilmedMouth& mouth : filmed.mouths)
            frame.mouths.push_back({static_cast<character::Mouth>(mouth.mouth), mouth.replaces,
                                    static_cast<std::uint16_t>(mouth.picture.picture),
                                    static_cast<std::int16_t>(mouth.picture.x),
                                    static_cast<std::int16_t>(mouth.picture.y)});
        for (const BranchSource& branch : filmed.route.branches)
            frame.branches.push_back(
                {static_cast<std::uint16_t>(branch.to), static_cast<std::uint16_t>(branch.percent)});
        if (filmed.route.exit)
            frame.exitFrame = static_cast<std::uint16_t>(*filmed.route.exit);
        if (filmed.route.source) {
            const FrameSource& source = animation.frames[static_cast<std::size_t>(*filmed.route.source)];
            frame.duration = character::FrameDuration(source.hundredths);
            if (!source.sound.isEmpty())
                frame.sound = sounds_.index(source.sound, animation.where);
        }
        return frame;
    }

    std::uint32_t indexOf(const QString& name) const {
        const auto found =
            std::find_if(source_.animations.begin(), source_.animations.end(), [&](const auto& animation) {
                return animation.name.compare(name, Qt::CaseInsensitive) == 0;
            });
        return static_cast<std::uint32_t>(found - source_.animations.begin());
    }

    void addReturns() {
        for (std::size_t i = 0; i < source_.animations.size(); ++i) {
            const AnimationSource& source = source_.animations[i];
            character::Animation& animation = data_.animations[i];
            const bool leadsBack = source.holds || source.loop;
            if (source.returns == QLatin1String("exit") || (source.returns.isEmpty() && leadsBack)) {
                animation.transition = character::Transition::ExitBranches;
            } else if (!source.returns.isEmpty() && source.returns != QLatin1String("none")) {
                animation.transition = character::Transition::ReturnAnimation;
                animation.returnAnimation = indexOf(source.returns);
            }
        }
    }

    void addStates() {
        for (const CharacterSource::StateSource& source : source_.states) {
            character::State state{source.name.toStdString(), {}};
            for (const QString& animation : source.animations)
                state.animations.push_back(indexOf(animation));
            data_.states.push_back(std::move(state));
        }
    }

    void addImages() {
        const std::vector<Picture>& pictures = camera_.pictures().all();
        Palette palette(pictures, source_.palette);
        data_.palette = palette.colours();
        data_.transparentIndex = palette.transparent();
        // What differed by less than the palette can tell is one picture.
        std::map<std::pair<int, std::vector<std::uint8_t>>, std::uint32_t> known;
        std::vector<std::uint32_t> kept;
        for (const Picture& picture : pictures) {
            character::IndexedImage image{
                static_cast<std::uint16_t>(picture.width), static_cast<std::uint16_t>(picture.height), {}};
            image.pixels.reserve(picture.pixels.size());
            for (const std::uint32_t pixel : picture.pixels)
                image.pixels.push_back(palette.entryOf(pixel));
            const auto next = static_cast<std::uint32_t>(data_.images.size());
            const auto [same, first] = known.try_emplace({picture.width, image.pixels}, next);
            kept.push_back(same->second);
            if (first)
                data_.images.push_back(character::encodeImage(image));
        }
        renumber(kept);
    }

    void renumber(const std::vector<std::uint32_t>& kept) {
        for (character::Animation& animation : data_.animations)
            for (character::Frame& frame : animation.frames) {
                for (character::FrameImage& image : frame.images)
                    image.image = kept[image.image];
                for (character::MouthOverlay& mouth : frame.mouths)
                    mouth.image = static_cast<std::uint16_t>(kept[mouth.image]);
            }
    }

    const CharacterSource& source_;
    Problems& problems_;
    Camera camera_;
    Sounds sounds_;
    character::CharacterData data_;
};

} // namespace

character::CharacterData compileCharacter(const CharacterSource& source, Problems& problems) {
    return Assembly(source, problems).run();
}

} // namespace brovin::acsc
