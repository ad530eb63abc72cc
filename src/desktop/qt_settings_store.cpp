#include "desktop/qt_settings_store.h"

#include <QFile>
#include <QStringList>

namespace brovin::desktop {
namespace {

QString keyOf(std::string_view section, std::string_view key) {
    return QString::fromUtf8(section.data(), static_cast<qsizetype>(section.size())) + QLatin1Char('/') +
           QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
}

/// An unquoted comma in a line that was edited by hand makes a list of it; here it is a text like any other.
QString textOf(const QVariant& value) {
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(QStringLiteral(", "))
                                                    : value.toString();
}

/// Whether there are lines that mean nothing in an INI file: the rest of a line that was cut off, for
/// instance. The next write would drop them without a word.
bool hasLostLines(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    bool continued = false;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().trimmed();
        const bool remark = line.isEmpty() || line.startsWith(';') || line.startsWith('#');
        const bool section = line.startsWith('[') && line.endsWith(']');
        if (!continued && !remark && !section && !line.contains('='))
            return true;
        continued = line.endsWith('\\');
    }
    return false;
}

} // namespace

QtSettingsStore::QtSettingsStore(const QString& path)
    : path_(path), file_(std::make_unique<QSettings>(path, QSettings::IniFormat)) {
    if (file_->status() != QSettings::FormatError && !hasLostLines(path))
        return;
    const QString copy = path + QStringLiteral(".damaged");
    QFile::remove(copy);
    if (QFile::copy(path, copy))
        damagedCopy_ = copy;
}

std::string QtSettingsStore::location() const {
    return path_.toStdString();
}

std::optional<std::string> QtSettingsStore::read(std::string_view section, std::string_view key) {
    const QVariant value = file_->value(keyOf(section, key));
    return value.isValid() ? std::optional(textOf(value).toStdString()) : std::nullopt;
}

bool QtSettingsStore::write(std::string_view section, std::span<const platform::SettingsEntry> entries) {
    file_->sync(); // another copy of the program may have scanned meanwhile
    bool differs = false;
    for (const auto& entry : entries) {
        const QString key = keyOf(section, entry.key);
        const QVariant stored = file_->value(key);
        const QString value = QString::fromStdString(entry.value);
        if (stored.isValid() && textOf(stored) == value)
            continue;
        file_->setValue(key, value);
        differs = true;
    }
    if (!differs)
        return true; // what is stored needs no second write
    file_->sync();
    return file_->status() != QSettings::AccessError;
}

} // namespace brovin::desktop
