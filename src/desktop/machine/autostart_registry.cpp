#include "desktop/machine/autostart_registry.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace brovin::desktop {
namespace {

/// A command's path as the Exec key wants it: in double quotes, with the characters escaped that are special
/// there, then with backslashes doubled as in any string value, and "%" doubled (Desktop Entry
/// Specification).
QByteArray execValue(const std::string& path) {
    QByteArray quoted = "\"";
    for (const char c : path) {
        if (c == '"' || c == '`' || c == '$' || c == '\\')
            quoted += '\\';
        quoted += c;
        if (c == '%')
            quoted += c;
    }
    quoted += '"';
    return quoted.replace("\\", "\\\\");
}

} // namespace

QString AutostartRegistry::fileOf(std::string_view valueName) const {
    const QString name = QString::fromUtf8(valueName.data(), static_cast<qsizetype>(valueName.size()));
    return folder_ + QLatin1Char('/') + name.toLower() + QStringLiteral(".desktop");
}

std::optional<std::string> AutostartRegistry::read(std::string_view /*keyPath*/, std::string_view valueName) {
    QFile entry(fileOf(valueName));
    if (!entry.open(QIODevice::ReadOnly))
        return std::nullopt;
    constexpr qint64 kMost = 65536;
    const QByteArray content = entry.read(kMost);
    std::optional<std::string> command;
    bool inEntry = false;
    for (const QByteArray& line : content.split('\n')) {
        if (line.startsWith('['))
            inEntry = line.trimmed() == "[Desktop Entry]";
        else if (inEntry && line.startsWith("Exec="))
            command = line.mid(5).toStdString();
        else if (inEntry &&
                 line.trimmed() == "Hidden=true") // as good as deleted (Desktop Entry Specification)
            return std::nullopt;
    }
    return command;
}

bool AutostartRegistry::write(std::string_view /*keyPath*/, std::string_view valueName,
                              const std::string& value) {
    QSaveFile entry(fileOf(valueName));
    if (!QDir().mkpath(folder_) || !entry.open(QIODevice::WriteOnly))
        return false;
    const QByteArray name(valueName.data(), static_cast<qsizetype>(valueName.size()));
    entry.write("[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + execValue(value) +
                "\nIcon=org.kestrelworks.brovin\nTerminal=false\n");
    return entry.commit();
}

bool AutostartRegistry::remove(std::string_view /*keyPath*/, std::string_view valueName) {
    return QFile::remove(fileOf(valueName));
}

} // namespace brovin::desktop
