#include "acsc/sources/character_source.h"

#include "acsc/sources/settings_source.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace brovin::acsc {
namespace {

/// The flat colours of the drawing, in the order in which they come.
std::vector<std::uint32_t> flatColours(const QByteArray& svg) {
    static const QRegularExpression colour(QStringLiteral("#([0-9a-fA-F]{6}|[0-9a-fA-F]{3})\\b"));
    std::vector<std::uint32_t> colours;
    for (auto match = colour.globalMatch(QString::fromUtf8(svg)); match.hasNext();) {
        QString digits = match.next().captured(1);
        if (digits.size() == 3)
            digits = QString(2, digits[0]) + QString(2, digits[1]) + QString(2, digits[2]);
        const std::uint32_t rgb = 0xFF000000U | digits.toUInt(nullptr, 16);
        if (std::find(colours.begin(), colours.end(), rgb) == colours.end())
            colours.push_back(rgb);
    }
    return colours;
}

void readSize(JsonSource& character, CharacterSource& result) {
    const JsonSource size = character.at(QStringLiteral("size"));
    const auto sides = size.items();
    if (sides.size() != 2) {
        size.report(QStringLiteral("[width, height] is expected"));
        result.size = {1, 1};
        return;
    }
    result.size = {static_cast<int>(sides[0].number({1, 1024}, 1)),
                   static_cast<int>(sides[1].number({1, 1024}, 1))};
    result.data.width = static_cast<std::uint16_t>(result.size.width());
    result.data.height = static_cast<std::uint16_t>(result.size.height());
}

/// A Windows bitmap from its header on, without the head of a file.
character::SharedBytes bitmapOf(const JsonSource& name, const QDir& folder) {
    constexpr qint64 kMost = 262'144;
    QFile file(folder.filePath(name.text()));
    if (!file.open(QIODevice::ReadOnly) || file.size() > kMost) {
        name.report(QStringLiteral("cannot be read, or is larger than 256 KiB"));
        return {};
    }
    const QByteArray bytes = file.readAll();
    return character::SharedBytes(std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
}

void readIcon(JsonSource icon, CharacterSource& result) {
    if (!icon.present())
        return;
    const JsonSource mask = icon.at(QStringLiteral("mask"));
    const JsonSource picture = icon.at(QStringLiteral("picture"));
    result.data.trayIcon = {bitmapOf(mask, result.folder), bitmapOf(picture, result.folder)};
    icon.expectNoMore();
}

void readRig(JsonSource& character, CharacterSource& result, Problems& problems) {
    const JsonSource named = character.at(QStringLiteral("rig"));
    const QString file = named.isText() ? named.text() : QStringLiteral("rig.svg");
    if (!named.isText() && !result.folder.exists(file))
        return;
    result.rig = std::make_unique<Rig>(result.folder.filePath(file), result.size, character, problems);
    QFile drawing(result.folder.filePath(file));
    if (drawing.open(QIODevice::ReadOnly))
        for (const std::uint32_t colour : flatColours(drawing.readAll()))
            result.palette.exact.push_back(colour);
}

void readAnimations(CharacterSource& result, Problems& problems) {
    const QDir folder(result.folder.filePath(QStringLiteral("animations")));
    QStringList files = folder.entryList({QStringLiteral("*.json")}, QDir::Files);
    std::sort(files.begin(), files.end()); // by code points, so that no locale decides
    QSet<QString> names;
    for (const QString& file : files) {
        JsonSource source = readJson(folder.filePath(file), QStringLiteral("animations/") + file, problems);
        for (const QString& name : source.keys()) {
            const JsonSource animation = source.at(name);
            if (names.contains(name.toCaseFolded()))
                animation.report(QStringLiteral("there is another animation of this name"));
            names.insert(name.toCaseFolded());
            result.animations.push_back(readAnimation(name, animation, result.rig.get()));
        }
    }
    if (files.isEmpty() && !folder.exists()) // an empty folder says that there are to be none
        problems.add(folder.path(), QStringLiteral("there are no animations"));
}

const AnimationSource* find(const CharacterSource& source, const QString& name) {
    const auto found =
        std::find_if(source.animations.begin(), source.animations.end(), [&](const auto& animation) {
            return animation.name.compare(name, Qt::CaseInsensitive) == 0;
        });
    return found == source.animations.end() ? nullptr : &*found;
}

bool returnsByName(const AnimationSource& animation) {
    return !animation.returns.isEmpty() && animation.returns != QLatin1String("exit") &&
           animation.returns != QLatin1String("none");
}

/// A return by name must lead back at once, from the pose in which the animation stands.
void checkReturns(const CharacterSource& source, Problems& problems) {
    for (const AnimationSource& animation : source.animations) {
        if (!returnsByName(animation))
            continue;
        const QString where = animation.where + QStringLiteral(", return");
        const AnimationSource* const back = find(source, animation.returns);
        if (back == nullptr)
            problems.add(where, QStringLiteral("there is no animation \"%1\"").arg(animation.returns));
        else if (returnsByName(*back) && animation.fromRig)
            problems.add(where, QStringLiteral("\"%1\" has a return by name itself, which is never played")
                                    .arg(animation.returns));
    }
}

void readStates(JsonSource states, CharacterSource& result) {
    for (const QString& name : states.keys()) {
        const JsonSource list = states.at(name);
        CharacterSource::StateSource state{name, {}};
        for (const JsonSource& animation : list.items()) {
            if (find(result, animation.text()) == nullptr)
                animation.report(QStringLiteral("there is no animation \"%1\"").arg(animation.text()));
            state.animations.append(animation.text());
        }
        result.states.push_back(std::move(state));
    }
}

} // namespace

CharacterSource readCharacterSource(const QString& folder, Problems& problems) {
    CharacterSource result;
    result.folder = QDir(folder);
    JsonSource character = readJson(result.folder.filePath(QStringLiteral("character.json")),
                                    QStringLiteral("character.json"), problems);
    if (!problems.none())
        return result;
    readSettings(character, result.data);
    readSize(character, result);
    result.palette = readPaletteWishes(character.at(QStringLiteral("palette")));
    readIcon(character.at(QStringLiteral("icon")), result);
    readRig(character, result, problems);
    readAnimations(result, problems);
    readStates(character.at(QStringLiteral("states")), result);
    character.expectNoMore();
    checkReturns(result, problems);
    return result;
}

} // namespace brovin::acsc
