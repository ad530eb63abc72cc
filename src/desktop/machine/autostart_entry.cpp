#include "desktop/machine/autostart_entry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <utility>

namespace brovin::desktop {
namespace {

/// What any string value is written with: a folder's name may hold a line's end, behind which would stand a
/// key of its own (Desktop Entry Specification).
QByteArray stringValue(QByteArray text) {
    return text.replace("\\", "\\\\").replace("\n", "\\n").replace("\r", "\\r").replace("\t", "\\t");
}

/// A command's path as the Exec key wants it: in double quotes, with the characters escaped that are special
/// there, and "%" doubled.
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
    return stringValue(std::move(quoted));
}

} // namespace

bool AutostartEntry::present() const {
    QFile entry(file_);
    if (!entry.open(QIODevice::ReadOnly))
        return false;
    constexpr qint64 kMost = 65536;
    bool starts = false;
    bool inEntry = false;
    for (const QByteArray& line : entry.read(kMost).split('\n')) {
        if (line.startsWith('['))
            inEntry = line.trimmed() == "[Desktop Entry]";
        else if (inEntry && line.startsWith("Exec="))
            starts = line.size() > 5;
        else if (inEntry && line.trimmed() == "Hidden=true")
            return false; // as good as deleted (Desktop Entry Specification)
    }
    return starts;
}

bool AutostartEntry::add(const std::string& program) {
    // Where the program has been removed since, the desktop passes over the entry.
    const QByteArray there = stringValue(QByteArray::fromStdString(program));
    QSaveFile entry(file_);
    if (!QDir().mkpath(QFileInfo(file_).path()) || !entry.open(QIODevice::WriteOnly))
        return false;
    entry.write("[Desktop Entry]\nType=Application\nName=Brovin\nExec=" + execValue(program) +
                "\nTryExec=" + there + "\nIcon=org.kestrelworks.brovin\nTerminal=false\n");
    return entry.commit();
}

bool AutostartEntry::remove() {
    return QFile::remove(file_);
}

} // namespace brovin::desktop
