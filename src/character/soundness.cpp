#include "character/soundness.h"

#include "character/acs_colours.h"
#include "character/acs_format.h"
#include "character/acs_limits.h"
#include "character/acs_media.h"
#include "character/frame_cost.h"
#include "character/indexed_image.h"
#include "character/name_index.h"
#include "text/utf16.h"
#include "text/utf8.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace brovin::character {
namespace {

/// Whether a text comes through UTF-16 as it is.
bool isPlainUtf8(std::string_view text) {
    std::string again;
    for (std::string_view rest = text; !rest.empty();)
        text::appendUtf8(again, text::takeCodePoint(rest));
    return again == text && text.find('\0') == std::string_view::npos;
}

/// Asks one thing after the other and keeps the first that does not hold.
class Inspection {
public:
    explicit Inspection(const CharacterData& character) : character_(character) {}

    std::string run() {
        inspectGeneral();
        inspectInfo();
        if (character_.voice)
            inspectVoice(*character_.voice);
        if (character_.balloon)
            inspectBalloon(*character_.balloon);
        inspectStates();
        inspectAnimations();
        inspectImages();
        inspectSounds();
        return std::move(problem_);
    }

private:
    void expect(bool holds, std::string_view otherwise) {
        if (problem_.empty() && !holds)
            problem_.append(where_).append(otherwise);
    }

    void expectText(const std::string& text, std::size_t mostUnits, std::string_view what) {
        if (text::toUtf16(text).size() > mostUnits)
            expect(false, std::string(what).append(" is too long"));
        if (!isPlainUtf8(text))
            expect(false, std::string(what).append(" is not UTF-8 without zeros"));
    }

    void expectIndex(std::size_t index, std::size_t count, std::string_view what) {
        if (index >= count)
            expect(false, std::string("there is no ").append(what).append(" ") + std::to_string(index));
    }

    void expectRange(std::integral auto value, int lowest, int highest, std::string_view what) {
        if (std::cmp_less(value, lowest) || std::cmp_greater(value, highest))
            expect(false, std::string(what).append(" is out of its range"));
    }

    void inspectGeneral() {
        expect(character_.formatVersion.major == kFormatMajor, "the format's version is not ours");
        expectRange(character_.width, 1, kMostFrameSide, "the frame's width");
        expectRange(character_.height, 1, kMostFrameSide, "the frame's height");
        expectRange(character_.palette.size(), 1, kMostColours, "the palette's size");
        expect(palettePersists(character_.palette), "the palette has red and blue exchanged");
        if (const auto& icon = character_.trayIcon)
            expect(icon->mask.size() <= kMostTrayIconBytes && icon->picture.size() <= kMostTrayIconBytes,
                   "the tray icon is too large");
    }

    void inspectInfo() {
        expect(character_.info.size() <= kMostLocalized, "there are too many languages");
        for (const LocalizedInfo& entry : character_.info) {
            expectText(entry.name, kMostNameUnits, "the character's name");
            expectText(entry.description, kMostTextUnits, "the description");
            expectText(entry.extraData, kMostTextUnits, "the extra data");
        }
    }

    void inspectVoice(const VoiceSettings& voice) {
        const std::uint16_t speed = voice.wordsPerMinute.value_or(kLowestWordsPerMinute);
        expectRange(speed, kLowestWordsPerMinute, kHighestWordsPerMinute, "the speaking speed");
        expectRange(voice.pitchHertz.value_or(kLowestPitch), kLowestPitch, kHighestPitch, "the pitch");
        if (voice.traits) {
            expectText(voice.traits->dialect, kMostTextUnits, "the voice's dialect");
            expectText(voice.traits->style, kMostTextUnits, "the voice's style");
        }
    }

    void inspectBalloon(const BalloonSettings& balloon) {
        expectRange(balloon.lines, 1, kMostBalloonLines, "the balloon's number of lines");
        expectRange(balloon.charactersPerLine, kFewestLineCharacters, 255,
                    "the balloon's characters per line");
        expect(backgroundPersists(balloon.background),
               "the balloon has the yellow of tips, red and blue exchanged");
        expectText(balloon.fontName, kMostTextUnits, "the font's name");
        expectRange(balloon.fontHeightPixels, 1, kHighestFont, "the font's height");
        expectRange(balloon.fontWeight, 0, kHeaviestFont, "the font's weight");
    }

    void inspectStates() {
        expect(character_.states.size() <= kMostStates, "there are too many states");
        for (const State& state : character_.states) {
            where_ = "State " + state.name + ": ";
            expectText(state.name, kMostNameUnits, "its name");
            expect(state.animations.size() <= kMostStateAnimations, "it has too many animations");
            for (const std::uint32_t animation : state.animations)
                expectIndex(animation, character_.animations.size(), "animation");
        }
        where_.clear();
    }

    void inspectAnimations() {
        expect(character_.animations.size() <= kMostAnimations, "there are too many animations");
        NameIndex names;
        for (std::uint32_t i = 0; i < character_.animations.size(); ++i) {
            const Animation& animation = character_.animations[i];
            const std::string where = "Animation " + std::to_string(i) + " (" + animation.name + ")";
            where_ = where + ": ";
            expectText(animation.name, kMostNameUnits, "its name");
            expect(names.add(animation.name, i), "it has no name of its own");
            inspectReturn(animation);
            expect(animation.frames.size() <= kMostFrames, "it has too many frames");
            for (std::size_t f = 0; f < animation.frames.size(); ++f) {
                where_ = where + ", frame " + std::to_string(f) + ": ";
                inspectFrame(animation.frames[f], animation.frames.size());
            }
        }
        where_.clear();
    }

    void inspectReturn(const Animation& animation) {
        const bool returns = animation.transition == Transition::ReturnAnimation;
        expect(returns == animation.returnAnimation.has_value(), "its transition and its return disagree");
        if (returns)
            expectIndex(animation.returnAnimation.value_or(0), character_.animations.size(), "animation");
    }

    void inspectFrame(const Frame& frame, std::size_t frames) {
        expect(frame.images.size() <= kMostFrameImages, "it has too many images");
        for (const FrameImage& image : frame.images)
            expectIndex(image.image, character_.images.size(), "image");
        expect(frame.branches.size() <= kMostBranches, "it has too many branches");
        for (const Branch& branch : frame.branches)
            expectIndex(branch.frame, frames, "frame");
        expect(frame.mouths.size() <= kMostMouths, "it has too many mouth overlays");
        for (const MouthOverlay& mouth : frame.mouths) {
            expectIndex(mouth.image, character_.images.size(), "image");
            expect(static_cast<std::uint8_t>(mouth.mouth) < kMouthCount, "there is no such mouth");
        }
        expectRange(frame.duration.count(), 0, 65535, "its duration");
        if (frame.sound)
            expectIndex(*frame.sound, character_.sounds.size(), "sound");
        if (frame.exitFrame) {
            expectIndex(*frame.exitFrame, frames, "frame");
            expectRange(*frame.exitFrame, 0, kLastExitFrame, "its exit frame");
        }
        if (problem_.empty()) // its images are there
            expect(pixelBytes(frame, character_.images) <= kMostFramePixelBytes,
                   "its images are larger than can be drawn in time");
    }

    void inspectImages() {
        expect(character_.images.size() <= kMostImages, "there are too many images");
        for (std::size_t i = 0; i < character_.images.size(); ++i) {
            where_ = "Image " + std::to_string(i) + ": ";
            const EncodedImage& image = character_.images[i];
            if (image == EncodedImage())
                continue;
            const auto plainBytes = plainImageBytes(image.width, image.height);
            expect(plainBytes.has_value(), "its size is not allowed");
            expect(image.coding == ImageCoding::Packed || image.bytes.size() == plainBytes,
                   "its bytes do not fit its size");
        }
        where_.clear();
    }

    void inspectSounds() {
        expect(character_.sounds.size() <= kMostSounds, "there are too many sounds");
        for (std::size_t i = 0; i < character_.sounds.size(); ++i) {
            where_ = "Sound " + std::to_string(i) + ": ";
            const SharedBytes& wave = character_.sounds[i].wave;
            expect(wave.empty() || isWave(wave.view()), "it is not a RIFF WAVE file");
            expect(wave.size() <= kMostSoundBytes, "it is too large");
        }
    }

    const CharacterData& character_;
    std::string where_;
    std::string problem_;
};

} // namespace

std::string unsoundness(const CharacterData& character) {
    return Inspection(character).run();
}

} // namespace brovin::character
