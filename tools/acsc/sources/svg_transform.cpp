#include "acsc/sources/svg_transform.h"

#include <QRegularExpression>

#include <cmath>
#include <vector>

namespace brovin::acsc {
namespace {

std::optional<QTransform> oneTransform(const QString& name, const std::vector<double>& v) {
    QTransform t;
    const auto count = v.size();
    if (name == QLatin1String("matrix") && count == 6)
        return QTransform(v[0], v[1], v[2], v[3], v[4], v[5]);
    if (name == QLatin1String("translate") && (count == 1 || count == 2))
        return t.translate(v[0], count == 2 ? v[1] : 0);
    if (name == QLatin1String("scale") && (count == 1 || count == 2))
        return t.scale(v[0], count == 2 ? v[1] : v[0]);
    if (name == QLatin1String("rotate") && count == 1)
        return t.rotate(v[0]);
    if (name == QLatin1String("rotate") && count == 3)
        return t.translate(v[1], v[2]).rotate(v[0]).translate(-v[1], -v[2]);
    constexpr double kRadians = 3.14159265358979323846 / 180;
    if (name == QLatin1String("skewX") && count == 1)
        return t.shear(std::tan(v[0] * kRadians), 0);
    if (name == QLatin1String("skewY") && count == 1)
        return t.shear(0, std::tan(v[0] * kRadians));
    return std::nullopt;
}

} // namespace

std::optional<QTransform> parseTransform(const QString& text) {
    static const QRegularExpression function(QStringLiteral("\\s*([a-zA-Z]+)\\s*\\(([^)]*)\\)\\s*,?"));
    static const QRegularExpression gap(QStringLiteral("[\\s,]+"));
    QTransform result;
    qsizetype at = 0;
    while (at < text.trimmed().size()) {
        const auto match = function.match(text, at, QRegularExpression::NormalMatch,
                                          QRegularExpression::AnchorAtOffsetMatchOption);
        if (!match.hasMatch())
            return std::nullopt;
        std::vector<double> values;
        for (const QString& word : match.captured(2).split(gap, Qt::SkipEmptyParts)) {
            bool good = false;
            values.push_back(word.toDouble(&good));
            if (!good)
                return std::nullopt;
        }
        const auto one = oneTransform(match.captured(1), values);
        if (!one)
            return std::nullopt;
        result = *one * result; // the one that is written last is applied first
        at = match.capturedEnd();
    }
    return result;
}

QByteArray transformText(const QTransform& transform) {
    QByteArray text = "matrix(";
    for (const double value : {transform.m11(), transform.m12(), transform.m21(), transform.m22(),
                               transform.dx(), transform.dy()}) {
        // Without this a vanishing negative number would be written as "-0.0000", which is another text.
        const double rounded = std::round(value * 1e5) / 1e5 + 0.0;
        text += QByteArray::number(rounded, 'f', 5) + ' ';
    }
    text.back() = ')';
    return text;
}

} // namespace brovin::acsc
