#include "acsc/sources/json_source.h"

#include <QByteArray>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>
#include <utility>

namespace brovin::acsc {
namespace {

constexpr int kMarkLength = 8;

} // namespace

JsonSource::JsonSource(QJsonValue value, QString where, Problems& problems)
    : value_(std::move(value)), object_(value_.toObject()), where_(std::move(where)), problems_(&problems) {
    markedKeys_ = object_.keys();
    for (const QString& marked : markedKeys_) {
        const QString key = marked.mid(kMarkLength);
        if (keys_.contains(key))
            report(QStringLiteral("the key \"%1\" stands there twice").arg(key));
        keys_.append(key);
    }
}

double JsonSource::number(const Range& range, double otherwise) const {
    if (!value_.isDouble()) {
        report(QStringLiteral("a number is expected"));
        return otherwise;
    }
    const double value = value_.toDouble();
    if (std::isfinite(value) && value >= range.lowest && value <= range.highest)
        return value;
    report(QStringLiteral("%1 is not between %2 and %3").arg(value).arg(range.lowest).arg(range.highest));
    return otherwise;
}

QString JsonSource::text() const {
    if (!value_.isString())
        report(QStringLiteral("a text is expected"));
    return value_.toString();
}

std::vector<JsonSource> JsonSource::items() const {
    if (present() && !value_.isArray())
        report(QStringLiteral("a list is expected"));
    std::vector<JsonSource> result;
    const QJsonArray array = value_.toArray();
    for (qsizetype i = 0; i < array.size(); ++i)
        result.emplace_back(array.at(i), where_ + QStringLiteral("[%1]").arg(i), *problems_);
    return result;
}

JsonSource JsonSource::at(const QString& key) {
    known_.insert(key);
    const QString joint = where_.contains(QLatin1Char(',')) ? QStringLiteral(".") : QStringLiteral(", ");
    const qsizetype index = keys_.indexOf(key);
    return {index < 0 ? QJsonValue(QJsonValue::Undefined) : object_.value(markedKeys_[index]),
            where_ + joint + key, *problems_};
}

double JsonSource::number(const QString& key, double otherwise, const Range& range) {
    const JsonSource member = at(key);
    return member.present() ? member.number(range, otherwise) : otherwise;
}

int JsonSource::whole(const QString& key, int otherwise, const Range& range) {
    const JsonSource member = at(key);
    if (!member.present())
        return otherwise;
    const double value = member.number(range, otherwise);
    if (value != std::floor(value))
        member.report(QStringLiteral("a whole number is expected"));
    return static_cast<int>(value);
}

std::optional<double> JsonSource::optionalNumber(const QString& key, const Range& range) {
    const JsonSource member = at(key);
    return member.present() ? std::optional(member.number(range, 0)) : std::nullopt;
}

QString JsonSource::text(const QString& key, const QString& otherwise) {
    const JsonSource member = at(key);
    return member.present() ? member.text() : otherwise;
}

bool JsonSource::flag(const QString& key, bool otherwise) {
    const JsonSource member = at(key);
    if (member.present() && !member.value_.isBool())
        member.report(QStringLiteral("true or false is expected"));
    return member.value_.toBool(otherwise);
}

std::vector<JsonSource> JsonSource::items(const QString& key) {
    return at(key).items();
}

void JsonSource::expectObject() const {
    if (!value_.isObject())
        report(QStringLiteral("an object {...} is expected"));
}

void JsonSource::expectNoMore() const {
    expectObject();
    for (const QString& key : keys_)
        if (!known_.contains(key))
            report(QStringLiteral("the key \"%1\" is unknown").arg(key));
}

JsonSource readJson(const QString& path, const QString& shownName, Problems& problems) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problems.add(shownName, QStringLiteral("cannot be read (%1)").arg(file.errorString()));
        return {QJsonObject(), shownName, problems};
    }
    const QByteArray bytes = file.readAll();
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        const auto line = bytes.left(error.offset).count('\n') + 1;
        problems.add(shownName, document.isNull()
                                    ? QStringLiteral("line %1: %2").arg(line).arg(error.errorString())
                                    : QStringLiteral("an object {...} is expected"));
        return {QJsonObject(), shownName, problems};
    }
    return {QJsonDocument::fromJson(withMarkedNames(bytes)).object(), shownName, problems};
}

QByteArray withMarkedNames(const QByteArray& json) {
    QByteArray marked;
    QByteArray open; // of each bracket that is open, which
    int count = 0;
    bool nameNext = false;
    for (qsizetype i = 0; i < json.size(); ++i) {
        const char c = json.at(i);
        marked += c;
        if (c == '{' || c == '[')
            open += c;
        else if (c == '}' || c == ']')
            open.chop(1);
        if (c == '{' || c == ',')
            nameNext = open.endsWith('{');
        if (c != '"')
            continue;
        if (std::exchange(nameNext, false))
            marked += QByteArray::number(count++).rightJustified(kMarkLength, '0');
        for (++i; i < json.size() && json.at(i) != '"'; ++i) {
            marked += json.at(i);
            if (json.at(i) == '\\' && i + 1 < json.size())
                marked += json.at(++i);
        }
        marked += '"';
    }
    return marked;
}

} // namespace brovin::acsc
