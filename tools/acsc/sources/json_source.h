#pragma once

#include "acsc/problems.h"

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace brovin::acsc {

struct Range {
    double lowest;
    double highest;
};

/// A JSON value that knows where it stands ("wave.json, Wave, tracks.head[2]"), so that whatever is wrong
/// with it can be told with its place. Reads give a usable value even when they report a problem.
class JsonSource {
public:
    JsonSource(QJsonValue value, QString where, Problems& problems);

    [[nodiscard]] const QString& where() const { return where_; }
    [[nodiscard]] bool present() const { return !value_.isUndefined(); }
    [[nodiscard]] bool isNull() const { return value_.isNull(); }
    [[nodiscard]] bool isText() const { return value_.isString(); }
    [[nodiscard]] bool isFalse() const { return value_.isBool() && !value_.toBool(); }
    [[nodiscard]] bool isObject() const { return value_.isObject(); }
    [[nodiscard]] bool isArray() const { return value_.isArray(); }
    void report(const QString& what) const { problems_->add(where_, what); }

    /// The value itself.
    [[nodiscard]] double number(const Range& range, double otherwise = 0) const;
    [[nodiscard]] QString text() const;
    [[nodiscard]] std::vector<JsonSource> items() const;

    /// A member of the object. It counts as known from then on.
    [[nodiscard]] JsonSource at(const QString& key);
    [[nodiscard]] bool has(const QString& key) const { return keys_.contains(key); }
    /// The names of the members, in the order of the file.
    [[nodiscard]] const QStringList& keys() const { return keys_; }
    [[nodiscard]] double number(const QString& key, double otherwise, const Range& range);
    [[nodiscard]] int whole(const QString& key, int otherwise, const Range& range);
    [[nodiscard]] std::optional<double> optionalNumber(const QString& key, const Range& range);
    [[nodiscard]] QString text(const QString& key, const QString& otherwise = {});
    [[nodiscard]] bool flag(const QString& key, bool otherwise);
    [[nodiscard]] std::vector<JsonSource> items(const QString& key);

    /// Reports that this is no object, and the members that nothing asked for.
    void expectObject() const;
    void expectNoMore() const;

private:
    QJsonValue value_;
    QJsonObject object_; ///< its member names have a mark before them that keeps their order
    QStringList keys_;
    QStringList markedKeys_;
    QString where_;
    Problems* problems_;
    QSet<QString> known_;
};

/// The file's object, a problem where it cannot be read. `shownName` is what problems call it.
[[nodiscard]] JsonSource readJson(const QString& path, const QString& shownName, Problems& problems);

/// JSON text whose member names have their position before them, since the JSON library sorts members by
/// name.
[[nodiscard]] QByteArray withMarkedNames(const QByteArray& json);

} // namespace brovin::acsc
