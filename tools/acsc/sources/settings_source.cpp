#include "acsc/sources/settings_source.h"

#include "text/language_ids.h"

#include <QUuid>

#include <algorithm>

namespace brovin::acsc {
namespace {

using character::Colour;

character::Guid readGuid(const JsonSource& source) {
    character::Guid guid;
    if (!source.present())
        return guid;
    const QUuid uuid = QUuid::fromString(source.text());
    if (uuid.isNull() && !source.text().startsWith(QLatin1String("{00000000")))
        source.report(QStringLiteral("a GUID \"{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}\" is expected"));
    guid.first = uuid.data1;
    guid.second = uuid.data2;
    guid.third = uuid.data3;
    std::copy(std::begin(uuid.data4), std::end(uuid.data4), guid.rest.begin());
    return guid;
}

std::uint32_t readRgb(const JsonSource& source, std::uint32_t otherwise) {
    if (!source.present())
        return otherwise;
    const QString text = source.text();
    bool good = false;
    const std::uint32_t value = text.mid(1).toUInt(&good, 16);
    if (!good || text.size() != 7 || text[0] != QLatin1Char('#'))
        source.report(QStringLiteral("a colour \"#rrggbb\" is expected"));
    return 0xFF000000U | value;
}

void readColour(const JsonSource& source, Colour& colour) {
    const std::uint32_t otherwise =
        std::uint32_t{colour.red} << 16U | std::uint32_t{colour.green} << 8U | colour.blue;
    const std::uint32_t rgb = readRgb(source, otherwise);
    colour = {static_cast<std::uint8_t>(rgb >> 16U), static_cast<std::uint8_t>(rgb >> 8U),
              static_cast<std::uint8_t>(rgb)};
}

character::Version readVersion(const JsonSource& source, character::Version otherwise) {
    if (!source.present())
        return otherwise;
    const QStringList parts = source.text().split(QLatin1Char('.'));
    bool major = false;
    bool minor = false;
    const character::Version version{parts.value(0).toUShort(&major), parts.value(1).toUShort(&minor)};
    if (!major || !minor || parts.size() != 2)
        source.report(QStringLiteral("a version \"2.0\" is expected"));
    return version;
}

void readTexts(JsonSource& character, character::CharacterData& data) {
    const QString name = character.text(QStringLiteral("name"));
    JsonSource texts = character.at(QStringLiteral("texts"));
    for (const QString& language : texts.keys()) {
        JsonSource entry = texts.at(language);
        character::LocalizedInfo info;
        const auto id = languageId(language);
        info.language = id.value_or(0);
        if (!id)
            entry.report(QStringLiteral("the language is unknown; its number \"0x0409\" will do as well"));
        info.name = entry.text(QStringLiteral("name"), name).toStdString();
        info.description = entry.text(QStringLiteral("description")).toStdString();
        info.extraData = entry.text(QStringLiteral("extra")).toStdString();
        entry.expectNoMore();
        data.info.push_back(std::move(info));
    }
    if (data.info.empty() && !name.isEmpty())
        data.info.push_back({0x0409, name.toStdString(), {}, {}});
}

void readTraits(JsonSource& voice, character::VoiceSettings& settings) {
    if (!voice.has(QStringLiteral("language")) && !voice.has(QStringLiteral("gender")))
        return;
    character::VoiceTraits traits;
    const QString language = voice.text(QStringLiteral("language"), QStringLiteral("en"));
    const auto id = languageId(language);
    traits.language = id.value_or(0);
    if (!id)
        voice.report(QStringLiteral("the language \"%1\" is unknown").arg(language));
    const QStringList genders{QStringLiteral("neutral"), QStringLiteral("female"), QStringLiteral("male")};
    const auto gender = genders.indexOf(voice.text(QStringLiteral("gender"), genders.first()));
    if (gender < 0)
        voice.report(QStringLiteral("\"gender\" is none of %1").arg(genders.join(QStringLiteral(", "))));
    traits.gender = static_cast<character::Gender>(std::max<qsizetype>(gender, 0));
    traits.ageYears = static_cast<std::uint16_t>(voice.whole(QStringLiteral("age"), 0, {0, 65535}));
    traits.dialect = voice.text(QStringLiteral("dialect")).toStdString();
    traits.style = voice.text(QStringLiteral("style")).toStdString();
    settings.traits = traits;
}

void readVoice(JsonSource voice, character::CharacterData& data) {
    if (voice.isNull() || voice.isFalse())
        return;
    character::VoiceSettings settings;
    settings.engine = readGuid(voice.at(QStringLiteral("engine")));
    settings.mode = readGuid(voice.at(QStringLiteral("mode")));
    if (const auto speed = voice.optionalNumber(QStringLiteral("speed"), {50, 400}))
        settings.wordsPerMinute = static_cast<std::uint16_t>(*speed);
    if (const auto pitch = voice.optionalNumber(QStringLiteral("pitch"), {40, 500}))
        settings.pitchHertz = static_cast<std::uint16_t>(*pitch);
    readTraits(voice, settings);
    if (voice.present())
        voice.expectNoMore();
    data.voice = settings;
}

void readBalloon(JsonSource balloon, character::CharacterData& data) {
    if (balloon.isNull() || balloon.isFalse())
        return;
    character::BalloonSettings settings;
    const auto small = [&](const char* key, std::uint8_t& value, const Range& range) {
        value = static_cast<std::uint8_t>(balloon.whole(QString::fromLatin1(key), value, range));
    };
    small("lines", settings.lines, {1, 128});
    small("columns", settings.charactersPerLine, {8, 255});
    small("height", settings.fontHeightPixels, {1, 200});
    readColour(balloon.at(QStringLiteral("text")), settings.text);
    readColour(balloon.at(QStringLiteral("background")), settings.background);
    readColour(balloon.at(QStringLiteral("border")), settings.border);
    settings.fontName = balloon.text(QStringLiteral("font")).toStdString();
    settings.fontWeight = static_cast<std::uint16_t>(balloon.whole(QStringLiteral("weight"), 400, {0, 1000}));
    settings.italic = balloon.flag(QStringLiteral("italic"), settings.italic);
    settings.sizeToText = balloon.flag(QStringLiteral("sizeToText"), settings.sizeToText);
    settings.autoHide = balloon.flag(QStringLiteral("autoHide"), settings.autoHide);
    settings.autoPace = balloon.flag(QStringLiteral("autoPace"), settings.autoPace);
    if (balloon.present())
        balloon.expectNoMore();
    data.balloon = settings;
}

} // namespace

void readSettings(JsonSource& character, character::CharacterData& data) {
    const JsonSource guid = character.at(QStringLiteral("guid"));
    if (!guid.present())
        guid.report(QStringLiteral("is missing; every character needs one of its own"));
    data.guid = readGuid(guid);
    data.animationSetVersion = readVersion(character.at(QStringLiteral("version")), data.animationSetVersion);
    data.formatVersion = readVersion(character.at(QStringLiteral("format")), data.formatVersion);
    data.standardAnimations = character.flag(QStringLiteral("standard"), true);
    readTexts(character, data);
    readVoice(character.at(QStringLiteral("voice")), data);
    readBalloon(character.at(QStringLiteral("balloon")), data);
}

PaletteWishes readPaletteWishes(JsonSource palette) {
    PaletteWishes wishes;
    for (const JsonSource& colour : palette.items(QStringLiteral("exact")))
        wishes.exact.push_back(readRgb(colour, 0));
    for (const JsonSource& colour : palette.items(QStringLiteral("entries")))
        wishes.entries.push_back(readRgb(colour, 0));
    if (wishes.entries.size() > 256)
        palette.report(QStringLiteral("a palette has at most 256 entries"));
    wishes.transparent =
        static_cast<std::uint8_t>(palette.whole(QStringLiteral("transparent"), 10, {0, 255}));
    if (palette.present())
        palette.expectNoMore();
    return wishes;
}

std::optional<character::LanguageId> languageId(const QString& name) {
    if (const auto known = text::languageId(name.toStdString()))
        return known;
    bool good = false;
    const auto number = name.startsWith(QLatin1String("0x")) ? name.mid(2).toUShort(&good, 16) : ushort{0};
    return good ? std::optional<character::LanguageId>(number) : std::nullopt;
}

QString languageName(character::LanguageId language) {
    const auto tag = text::exactLanguageTag(language);
    if (!tag)
        return QStringLiteral("0x%1").arg(language, 4, 16, QLatin1Char('0'));
    const QString name = QString::fromStdString(*tag);
    const qsizetype country = name.indexOf(QLatin1Char('-'));
    return country < 0 ? name : name.left(country) + name.mid(country).toUpper();
}

} // namespace brovin::acsc
