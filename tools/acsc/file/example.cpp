#include "acsc/file/example.h"

#include "acsc/file/example_files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QUuid>

namespace brovin::acsc {
namespace {

/// The example is called Dot, in German Punkt; its identifier is the only one in braces.
QString renamed(QString text, const QString& name) {
    static const QRegularExpression guid(QStringLiteral("\\{[0-9A-F-]{36}\\}"));
    const QByteArray list = QJsonDocument(QJsonArray{name}).toJson(QJsonDocument::Compact);
    const QString quoted = QString::fromUtf8(list.mid(1, list.size() - 2));
    text.replace(guid, QUuid::createUuid().toString().toUpper());
    text.replace(QLatin1String("\"Dot\""), quoted);
    return text.replace(QLatin1String("\"Punkt\""), quoted);
}

} // namespace

void writeExample(const QString& folder, Problems& problems) {
    const QDir target(folder);
    const QString name = QFileInfo(QDir::cleanPath(folder)).fileName();
    if (name.isEmpty() || name.size() > 255 || (target.exists() && !target.isEmpty())) {
        problems.add(folder, QStringLiteral("is no name for a folder, or is there already and not empty"));
        return;
    }
    for (const auto& example : kExampleFiles) {
        const QString path = target.filePath(QString::fromLatin1(example.name));
        const QByteArray text = renamed(QString::fromUtf8(example.text), name).toUtf8();
        QFile file(path);
        if (!QDir().mkpath(QFileInfo(path).path()) || !file.open(QIODevice::WriteOnly) ||
            file.write(text) != text.size() || !file.flush())
            problems.add(path, QStringLiteral("cannot be written (%1)").arg(file.errorString()));
    }
}

} // namespace brovin::acsc
