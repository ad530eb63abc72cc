#include "acsc/movement/easing.h"

#include <QStringList>

namespace brovin::acsc {
namespace {

constexpr struct {
    const char* name;
    Ease ease;
} kEases[] = {
    {"linear", Ease::Linear},    {"in", Ease::In},          {"out", Ease::Out},       {"in-out", Ease::InOut},
    {"out-back", Ease::OutBack}, {"in-back", Ease::InBack}, {"bounce", Ease::Bounce}, {"step", Ease::Step},
};

/// Swings back by a tenth of the way before it goes.
double inBack(double t) {
    constexpr double kSwing = 1.70158;
    return t * t * ((kSwing + 1) * t - kSwing);
}

/// Falls, and jumps up three times, lower each time.
double bounce(double t) {
    constexpr double kHeight = 7.5625;
    constexpr double kSpan = 2.75;
    if (t < 1 / kSpan)
        return kHeight * t * t;
    const double centre = t < 2 / kSpan ? 1.5 : t < 2.5 / kSpan ? 2.25 : 2.625;
    const double floor = t < 2 / kSpan ? 0.75 : t < 2.5 / kSpan ? 0.9375 : 0.984375;
    const double u = t - centre / kSpan;
    return kHeight * u * u + floor;
}

} // namespace

std::optional<Ease> easeNamed(const QString& name) {
    for (const auto& row : kEases)
        if (name == QLatin1String(row.name))
            return row.ease;
    return std::nullopt;
}

QString easeNames() {
    QStringList names;
    for (const auto& row : kEases)
        names.append(QString::fromLatin1(row.name));
    return names.join(QStringLiteral(", "));
}

double eased(Ease ease, double time) {
    switch (ease) {
    case Ease::Linear:
        return time;
    case Ease::In:
        return time * time;
    case Ease::Out:
        return time * (2 - time);
    case Ease::InOut:
        return time * time * (3 - 2 * time);
    case Ease::OutBack:
        return 1 - inBack(1 - time);
    case Ease::InBack:
        return inBack(time);
    case Ease::Bounce:
        return bounce(time);
    case Ease::Step:
        return time < 1 ? 0 : 1;
    }
    return time;
}

} // namespace brovin::acsc
