#include "acsc/file/settings_writer.h"

#include "acsc/sources/settings_source.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace brovin::acsc {
namespace {

QString plainText(const std::string& text) {
    return QString::fromStdString(text);
}

QString guidString(const character::Guid& guid) {
    return plainText(character::guidText(guid));
}

QString colourText(const character::Colour& colour) {
    const auto rgb = std::uint32_t{colour.red} << 16U | std::uint32_t{colour.green} << 8U | colour.blue;
    return QStringLiteral("#%1").arg(rgb, 6, 16, QLatin1Char('0'));
}

QString versionText(const character::Version& version) {
    return QStringLiteral("%1.%2").arg(version.major).arg(version.minor);
}

QJsonValue voiceOf(const character::CharacterData& data) {
    if (!data.voice)
        return QJsonValue::Null;
    const character::VoiceSettings& settings = *data.voice;
    QJsonObject voice{{QStringLiteral("engine"), guidString(settings.engine)},
                      {QStringLiteral("mode"), guidString(settings.mode)}};
    if (settings.wordsPerMinute)
        voice[QStringLiteral("speed")] = *settings.wordsPerMinute;
    if (settings.pitchHertz)
        voice[QStringLiteral("pitch")] = *settings.pitchHertz;
    if (settings.traits) {
        const char* const genders[] = {"neutral", "female", "male"};
        voice[QStringLiteral("language")] = languageName(settings.traits->language);
        voice[QStringLiteral("gender")] =
            QString::fromLatin1(genders[static_cast<std::size_t>(settings.traits->gender)]);
        voice[QStringLiteral("age")] = settings.traits->ageYears;
        voice[QStringLiteral("dialect")] = plainText(settings.traits->dialect);
        voice[QStringLiteral("style")] = plainText(settings.traits->style);
    }
    return voice;
}

QJsonValue balloonOf(const character::CharacterData& data) {
    if (!data.balloon)
        return QJsonValue::Null;
    const character::BalloonSettings& balloon = *data.balloon;
    return QJsonObject{{QStringLiteral("lines"), balloon.lines},
                       {QStringLiteral("columns"), balloon.charactersPerLine},
                       {QStringLiteral("text"), colourText(balloon.text)},
                       {QStringLiteral("background"), colourText(balloon.background)},
                       {QStringLiteral("border"), colourText(balloon.border)},
                       {QStringLiteral("font"), plainText(balloon.fontName)},
                       {QStringLiteral("height"), balloon.fontHeightPixels},
                       {QStringLiteral("weight"), balloon.fontWeight},
                       {QStringLiteral("italic"), balloon.italic},
                       {QStringLiteral("sizeToText"), balloon.sizeToText},
                       {QStringLiteral("autoHide"), balloon.autoHide},
                       {QStringLiteral("autoPace"), balloon.autoPace}};
}

QString textsText(const character::CharacterData& data) {
    JsonMembers texts;
    for (const character::LocalizedInfo& info : data.info)
        texts.add(languageName(info.language),
                  QJsonObject{{QStringLiteral("name"), plainText(info.name)},
                              {QStringLiteral("description"), plainText(info.description)},
                              {QStringLiteral("extra"), plainText(info.extraData)}});
    return texts.text();
}

QString statesText(const character::CharacterData& data) {
    JsonMembers states;
    for (const character::State& state : data.states) {
        QJsonArray names;
        for (const std::uint32_t animation : state.animations)
            names.append(plainText(data.animations[animation].name));
        states.add(plainText(state.name), names);
    }
    return states.text();
}

QJsonObject paletteOf(const character::CharacterData& data) {
    QJsonArray entries;
    for (const character::Colour& colour : data.palette)
        entries.append(colourText(colour));
    return {{QStringLiteral("entries"), entries}, {QStringLiteral("transparent"), data.transparentIndex}};
}

} // namespace

void JsonMembers::add(const QString& key, const QJsonValue& value) {
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    addText(key, QString::fromUtf8(list.mid(1, list.size() - 2)));
}

void JsonMembers::addText(const QString& key, const QString& json) {
    const QByteArray list = QJsonDocument(QJsonArray{key}).toJson(QJsonDocument::Compact);
    members_.append(QString::fromUtf8(list.mid(1, list.size() - 2)) + QStringLiteral(": ") + json);
}

QString JsonMembers::text() const {
    return QStringLiteral("{\n") + members_.join(QStringLiteral(",\n")) + QStringLiteral("\n}");
}

QString settingsText(const character::CharacterData& data) {
    JsonMembers settings;
    settings.add(QStringLiteral("guid"), guidString(data.guid));
    settings.add(QStringLiteral("version"), versionText(data.animationSetVersion));
    settings.add(QStringLiteral("format"), versionText(data.formatVersion));
    settings.add(QStringLiteral("standard"), data.standardAnimations);
    settings.add(QStringLiteral("size"), QJsonArray{data.width, data.height});
    settings.addText(QStringLiteral("texts"), textsText(data));
    settings.add(QStringLiteral("voice"), voiceOf(data));
    settings.add(QStringLiteral("balloon"), balloonOf(data));
    if (data.trayIcon)
        settings.add(QStringLiteral("icon"),
                     QJsonObject{{QStringLiteral("mask"), QString::fromLatin1(kIconMask)},
                                 {QStringLiteral("picture"), QString::fromLatin1(kIconPicture)}});
    settings.addText(QStringLiteral("states"), statesText(data));
    settings.add(QStringLiteral("palette"), paletteOf(data));
    return settings.text() + QLatin1Char('\n');
}

} // namespace brovin::acsc
