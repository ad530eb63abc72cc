#pragma once

#include "acsc/problems.h"
#include "acsc/sources/json_source.h"
#include "character/character_data.h"

#include <QByteArray>
#include <QDir>

#include <cstdint>
#include <map>
#include <vector>

namespace brovin::acsc {

/// The sounds that the animations name: files "sounds/NAME.wav", or recipes "sounds/NAME.json".
class Sounds {
public:
    Sounds(const QDir& folder, Problems& problems) : folder_(folder), problems_(problems) {}

    /// The index of a sound, which is read when it is first asked for.
    [[nodiscard]] std::uint16_t index(const QString& name, const QString& where);
    [[nodiscard]] std::vector<character::Sound> take() { return std::move(sounds_); }

private:
    [[nodiscard]] QByteArray load(const QString& name, const QString& where);

    QDir folder_;
    Problems& problems_;
    std::map<QString, std::uint16_t> indices_;
    std::vector<character::Sound> sounds_;
};

/// A RIFF WAVE file, 22050 Hz, 16 bit, mono, of what a recipe describes; the same bytes for the same recipe.
[[nodiscard]] QByteArray synthesise(JsonSource recipe);

} // namespace brovin::acsc
