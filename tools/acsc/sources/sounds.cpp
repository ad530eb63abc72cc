#include "acsc/sources/sounds.h"

#include "character/acs_media.h"

#include <QFile>

namespace brovin::acsc {
namespace {

constexpr qsizetype kMostBytes = 16 << 20;

} // namespace

std::uint16_t Sounds::index(const QString& name, const QString& where) {
    const auto known = indices_.find(name);
    if (known != indices_.end())
        return known->second;
    const QByteArray bytes = load(name, where);
    const auto index = static_cast<std::uint16_t>(sounds_.size());
    sounds_.push_back({character::SharedBytes(std::vector<std::uint8_t>(bytes.begin(), bytes.end()))});
    indices_[name] = index;
    return index;
}

QByteArray Sounds::load(const QString& name, const QString& where) {
    const QString wave = QStringLiteral("sounds/%1.wav").arg(name);
    const QString recipe = QStringLiteral("sounds/%1.json").arg(name);
    if (folder_.exists(recipe) && !folder_.exists(wave))
        return synthesise(readJson(folder_.filePath(recipe), recipe, problems_));
    QFile file(folder_.filePath(wave));
    if (!file.open(QIODevice::ReadOnly)) {
        problems_.add(where, QStringLiteral("there is neither \"%1\" nor \"%2\"").arg(wave, recipe));
        return {};
    }
    QByteArray bytes = file.readAll();
    const auto* const data = reinterpret_cast<const std::uint8_t*>(bytes.constData());
    if (!character::isWave({data, static_cast<std::size_t>(bytes.size())}) || bytes.size() > kMostBytes) {
        problems_.add(wave, QStringLiteral("is not a RIFF WAVE file of at most 16 MiB"));
        return {};
    }
    return bytes;
}

} // namespace brovin::acsc
