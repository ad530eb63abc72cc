#pragma once

#include "character/guid.h"
#include "character/shared_bytes.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <ratio>
#include <string>
#include <vector>

namespace brovin::character {

/// One character as it stands in memory. What the reader hands out, and what the writer accepts, is *sound*:
/// every index points into its table, every optional setting is present or absent as a whole, and every value
/// lies in the range given here. Who plays a character need not check again.
///
/// Texts are UTF-8 without zero characters. Places in a frame are pixels from its upper left corner, y
/// downwards, and may lie outside of it.

/// Windows language identifier; the primary language is its low ten bits. 0x0409 is English (US).
using LanguageId = std::uint16_t;

struct Version {
    std::uint16_t major = 0;
    std::uint16_t minor = 0;

    bool operator==(const Version&) const = default;
};

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Colour&) const = default;
};

/// What the character is called in one language.
struct LocalizedInfo {
    LanguageId language = 0;
    std::string name; ///< at most 255 UTF-16 units
    std::string description;
    std::string extraData; ///< free text of the author

    bool operator==(const LocalizedInfo&) const = default;
};

enum class Gender : std::uint8_t { Neutral, Female, Male };

/// What kind of voice fits the character where the one that it names is not installed.
struct VoiceTraits {
    LanguageId language = 0;
    std::string dialect;
    Gender gender = Gender::Neutral;
    std::uint16_t ageYears = 0;
    std::string style;

    bool operator==(const VoiceTraits&) const = default;
};

/// The synthetic voice that the character speaks with.
struct VoiceSettings {
    Guid engine;
    Guid mode;                                   ///< the voice itself; all zero: none in particular
    std::optional<std::uint16_t> wordsPerMinute; ///< 50 to 400; nullopt: the voice's own speed
    std::optional<std::uint16_t> pitchHertz;     ///< 40 to 500; nullopt: the voice's own pitch
    std::optional<VoiceTraits> traits;

    bool operator==(const VoiceSettings&) const = default;
};

/// The word balloon before the program or the user changes anything about it.
struct BalloonSettings {
    std::uint8_t lines = 2;              ///< 1 to 128
    std::uint8_t charactersPerLine = 32; ///< 8 to 255, of average width
    Colour text;
    Colour background{255, 255, 225};
    Colour border;
    std::string fontName;
    std::uint8_t fontHeightPixels = 13; ///< 1 to 200
    std::uint16_t fontWeight = 400;     ///< 0 to 1000; 400 is normal, 700 bold
    bool italic = false;
    bool sizeToText = true; ///< high enough for the whole text, else `lines` high
    bool autoHide = true;   ///< disappears by itself some time after the last word
    bool autoPace = true;   ///< words appear as they are spoken, else all at once

    bool operator==(const BalloonSettings&) const = default;
};

/// The character's own picture for the notification area: two Windows bitmaps (header of 40 bytes, colour
/// table, bits), at most 256 KiB each. The background is combined with the mask by AND, the result with the
/// picture by XOR. Their content is not checked.
struct TrayIcon {
    SharedBytes mask;
    SharedBytes picture;

    bool operator==(const TrayIcon&) const = default;
};

/// The animations of which one is picked at random when the character gets into a state ("Showing",
/// "Speaking").
struct State {
    std::string name;                      ///< at most 255 UTF-16 units; compared without regard to case
    std::vector<std::uint32_t> animations; ///< indices of `CharacterData::animations`; at most 4096

    bool operator==(const State&) const = default;
};

/// An image in its place in a frame.
struct FrameImage {
    std::uint32_t image = 0; ///< index of `CharacterData::images`
    std::int16_t x = 0;
    std::int16_t y = 0;

    bool operator==(const FrameImage&) const = default;
};

/// A chance to go elsewhere than to the next frame. The percentages of a frame's branches add up; what is
/// left to 100 goes to the next frame. A branch backwards makes a loop, endless if it is always taken.
struct Branch {
    std::uint16_t frame = 0; ///< index of the animation's frames
    std::uint16_t percent = 0;

    bool operator==(const Branch&) const = default;
};

enum class Mouth : std::uint8_t {
    Closed,
    OpenWide1, ///< slightly open
    OpenWide2,
    OpenWide3,
    OpenWide4, ///< fully open
    OpenMedium,
    OpenNarrow,
};
inline constexpr std::uint8_t kMouthCount = 7;

/// The image that makes a frame speak one group of sounds.
struct MouthOverlay {
    Mouth mouth = Mouth::Closed;
    bool replacesTopImage = false; ///< stands in for the frame's first image; else it is drawn over the frame
    std::uint16_t image = 0;       ///< index of `CharacterData::images`
    std::int16_t x = 0;
    std::int16_t y = 0;

    bool operator==(const MouthOverlay&) const = default;
};

/// 0 to 65535 hundredths of a second.
using FrameDuration = std::chrono::duration<std::int32_t, std::centi>;

/// One step of an animation. Without images and with no duration it is never shown and exists for its
/// branches; without images and with a duration it shows nothing for that time.
struct Frame {
    std::vector<FrameImage> images;   ///< the first is the topmost; at most 256, of 3 MiB (`pixelBytes`)
    std::vector<Branch> branches;     ///< in the order of the draw; at most 255
    std::vector<MouthOverlay> mouths; ///< at most 255
    FrameDuration duration{0};
    std::optional<std::uint16_t> sound;     ///< index of `CharacterData::sounds`
    std::optional<std::uint16_t> exitFrame; ///< where to go when the animation is to end early; at most 32767

    bool operator==(const Frame&) const = default;
};

/// What brings the character back to its neutral pose before the next animation.
enum class Transition : std::uint8_t {
    ReturnAnimation, ///< `Animation::returnAnimation`
    ExitBranches,    ///< the frames' exit frames
    None,
};

struct Animation {
    std::string name; ///< 1 to 255 UTF-16 units; no two of a character are equal without regard to case
    Transition transition = Transition::None;
    /// Index of `CharacterData::animations`, present exactly when `transition` says so. It may be the
    /// animation itself or form a circle: a return animation's own return must not be played.
    std::optional<std::uint32_t> returnAnimation;
    std::vector<Frame> frames; ///< at most 65535; empty: the animation is not valid and cannot be played

    bool operator==(const Animation&) const = default;
};

enum class ImageCoding : std::uint8_t { Plain, Packed };

/// An image as the file keeps it; `decodeImage` and `ImageStore` make pixels of it. The plain form is one
/// palette index a pixel, the bottom row first, each row padded to a multiple of four bytes.
struct EncodedImage {
    std::uint16_t width = 0; ///< pixels, 1 to 4096; 0 by 0: an empty image, which draws nothing
    std::uint16_t height = 0;
    ImageCoding coding = ImageCoding::Plain;
    SharedBytes bytes;

    bool operator==(const EncodedImage&) const = default;
};

/// A RIFF WAVE file of at most 16 MiB, whose content is not checked beyond its first twelve bytes. Empty: a
/// sound that cannot be played.
struct Sound {
    SharedBytes wave;

    bool operator==(const Sound&) const = default;
};

struct CharacterData {
    Guid guid; ///< two files with the same one are the same character
    Version formatVersion{2, 1};
    Version animationSetVersion{2, 0}; ///< reported as the character's version; nothing depends on it
    bool standardAnimations = true;    ///< says of itself that it has the standard animation set
    std::vector<LocalizedInfo> info;   ///< at most 256; empty: the file's name serves as the character's
    std::uint16_t width = 0;           ///< of the frame, pixels, 1 to 1024
    std::uint16_t height = 0;
    std::vector<Colour> palette; ///< 1 to 256
    std::uint8_t transparentIndex =
        10; ///< pixels of this index, and of those beyond the palette, show nothing
    std::optional<VoiceSettings> voice;     ///< nullopt: the character has no synthetic voice
    std::optional<BalloonSettings> balloon; ///< nullopt: the character has no word balloon
    std::optional<TrayIcon> trayIcon;
    std::vector<State> states;         ///< at most 256
    std::vector<Animation> animations; ///< at most 4096, in the order in which they are listed to the user
    std::vector<EncodedImage> images;  ///< at most 65536
    std::vector<Sound> sounds;         ///< at most 4096

    bool operator==(const CharacterData&) const = default;
};

/// The entry to show to someone of a language: that very language, else the same primary language, else
/// English (US), else the first. Null: there is none; the file's name without its extension serves.
[[nodiscard]] const LocalizedInfo* chooseInfo(const std::vector<LocalizedInfo>& info, LanguageId language);

} // namespace brovin::character
