#pragma once

#include "character/character_data.h"

#include <QByteArray>
#include <QJsonValue>
#include <QString>
#include <QStringList>

namespace brovin::acsc {

/// The text of a JSON object whose members stay in the order in which they are added.
class JsonMembers {
public:
    void add(const QString& key, const QJsonValue& value);
    void addText(const QString& key, const QString& json); ///< JSON text as it is
    [[nodiscard]] QString text() const;

private:
    QStringList members_;
};

/// Where the pictures of a character's own icon lie, below its folder.
inline constexpr const char* kIconMask = "icon/mask.dib";
inline constexpr const char* kIconPicture = "icon/picture.dib";

/// The text of `character.json` without a drawing; the opposite of `readSettings`.
[[nodiscard]] QString settingsText(const character::CharacterData& data);

} // namespace brovin::acsc
