#include "acsc/file/listing.h"

#include "acsc/drawing/palette.h"
#include "acsc/sources/settings_source.h"

#include <QStringList>

#include <algorithm>
#include <set>

namespace brovin::acsc {
namespace {

QString plain(const std::string& text) {
    return QString::fromStdString(text);
}

/// Of those with a picture the last: the one on which the animation stands.
const character::Frame* lastPictured(const character::Animation& animation) {
    const auto last = std::find_if(animation.frames.rbegin(), animation.frames.rend(),
                                   [](const character::Frame& frame) { return !frame.images.empty(); });
    return last == animation.frames.rend() ? nullptr : &*last;
}

std::size_t mouthsOn(const character::Frame* frame) {
    std::set<character::Mouth> kinds;
    if (frame != nullptr)
        for (const character::MouthOverlay& overlay : frame->mouths)
            kinds.insert(overlay.mouth);
    return kinds.size();
}

/// Hundredths of a second in which nothing is seen at the beginning.
int unseen(const character::Animation& animation) {
    int hundredths = 0;
    for (const character::Frame& frame : animation.frames) {
        if (!frame.images.empty())
            break;
        hundredths += frame.duration.count();
    }
    return hundredths;
}

std::size_t soundsPlayed(const character::CharacterData& data) {
    std::set<std::uint16_t> played;
    for (const character::Animation& animation : data.animations)
        for (const character::Frame& frame : animation.frames)
            if (frame.sound)
                played.insert(*frame.sound);
    return played.size();
}

QString voiceText(const character::CharacterData& data) {
    if (!data.voice)
        return QStringLiteral("no");
    return QStringLiteral("%1 words a minute, %2 Hz (0: as the voice has it)")
        .arg(data.voice->wordsPerMinute.value_or(0))
        .arg(data.voice->pitchHertz.value_or(0));
}

QString animationLine(const character::Animation& animation, const character::CharacterData& data) {
    int hundredths = 0;
    int exits = 0;
    int branches = 0;
    int sounds = 0;
    for (const character::Frame& frame : animation.frames) {
        hundredths += frame.duration.count();
        exits += frame.exitFrame ? 1 : 0;
        branches += frame.branches.empty() ? 0 : 1;
        sounds += frame.sound ? 1 : 0;
    }
    QStringList notes;
    if (animation.returnAnimation)
        notes.append(QStringLiteral("returns by ") + plain(data.animations[*animation.returnAnimation].name));
    if (animation.transition == character::Transition::ExitBranches)
        notes.append(QStringLiteral("returns by exit branches"));
    if (exits > 0)
        notes.append(QStringLiteral("%1 exits").arg(exits));
    if (branches > 0)
        notes.append(QStringLiteral("%1 branching").arg(branches));
    if (const std::size_t mouths = mouthsOn(lastPictured(animation)); mouths > 0)
        notes.append(QStringLiteral("stands with %1 mouths").arg(mouths));
    if (const int before = unseen(animation); before > 0)
        notes.append(QStringLiteral("seen after %1 s").arg(before / 100.0, 0, 'f', 2));
    if (sounds > 0)
        notes.append(QStringLiteral("%1 sounds").arg(sounds));
    return QStringLiteral("  %1 %2 frames %3 s  %4")
        .arg(plain(animation.name), -24)
        .arg(animation.frames.size(), 4)
        .arg(hundredths / 100.0, 6, 'f', 2)
        .arg(notes.join(QStringLiteral(", ")))
        .trimmed();
}

} // namespace

QString listing(const character::CharacterData& data) {
    QStringList lines;
    std::size_t imageBytes = 0;
    for (const character::EncodedImage& image : data.images)
        imageBytes += image.bytes.size();
    lines << QStringLiteral("guid      ") + plain(character::guidText(data.guid))
          << QStringLiteral("version   %1.%2 (format %3.%4)")
                 .arg(data.animationSetVersion.major)
                 .arg(data.animationSetVersion.minor)
                 .arg(data.formatVersion.major)
                 .arg(data.formatVersion.minor)
          << QStringLiteral("size      %1 x %2").arg(data.width).arg(data.height)
          << QStringLiteral("pictures  %1, %2 bytes").arg(data.images.size()).arg(imageBytes)
          << QStringLiteral("sounds    %1, %2 played").arg(data.sounds.size()).arg(soundsPlayed(data))
          << QStringLiteral("palette   %1 colours%2, %3 transparent")
                 .arg(data.palette.size())
                 .arg(hasStandardColours(data.palette) ? QStringLiteral(" with the standard ones")
                                                       : QString())
                 .arg(data.transparentIndex)
          << QStringLiteral("voice     ") + voiceText(data)
          << QStringLiteral("balloon   %1").arg(data.balloon ? QStringLiteral("yes") : QStringLiteral("no"));
    lines << QStringLiteral("texts");
    for (const character::LocalizedInfo& info : data.info)
        lines << QStringLiteral("  %1  %2: %3")
                     .arg(languageName(info.language), plain(info.name), plain(info.description));
    lines << QStringLiteral("states");
    for (const character::State& state : data.states) {
        QStringList names;
        for (const std::uint32_t animation : state.animations)
            names << plain(data.animations[animation].name);
        lines << QStringLiteral("  %1: %2").arg(plain(state.name), names.join(QStringLiteral(", ")));
    }
    lines << QStringLiteral("animations (%1)").arg(data.animations.size());
    for (const character::Animation& animation : data.animations)
        lines << QStringLiteral("  ") + animationLine(animation, data);
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

} // namespace brovin::acsc
