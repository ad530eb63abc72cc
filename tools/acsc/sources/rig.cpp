#include "acsc/sources/rig.h"

#include "acsc/sources/svg_reader.h"
#include "acsc/sources/svg_transform.h"

#include <QFileInfo>
#include <QSvgRenderer>

#include <algorithm>

namespace brovin::acsc {
namespace {

constexpr Range kWayRange{-4096, 4096};
constexpr Range kAngleRange{-36000, 36000};
constexpr Range kScaleRange{-20, 20};

template <class List>
std::optional<std::size_t> findByName(const List& list, const QString& name) {
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const auto& item) { return item.name == name; });
    if (found == list.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - list.begin());
}

} // namespace

Rig::Rig(const QString& path, QSize frame, JsonSource& character, Problems& problems) {
    const QString shownName = QFileInfo(path).fileName();
    SvgReader(*this, problems).read(path, shownName, frame);
    readPivots(character.at(QStringLiteral("pivots")));
    readSwitches(character);
    neutral_.parts.resize(parts_.size());
    neutral_.choices.resize(switches_.size());
    poses_[QStringLiteral("neutral")] = neutral_;
    readPoses(character.at(QStringLiteral("poses")));
    if (problems.none())
        measure(problems, shownName);
}

std::optional<std::size_t> Rig::findPart(const QString& name) const {
    return findByName(parts_, name);
}

std::optional<std::size_t> Rig::findSwitch(const QString& name) const {
    return findByName(switches_, name);
}

const Pose* Rig::findPose(const QString& name) const {
    const auto found = poses_.find(name);
    return found == poses_.end() ? nullptr : &found->second;
}

void Rig::readPivots(JsonSource source) {
    for (const QString& name : source.keys()) {
        const JsonSource pivot = source.at(name);
        const auto values = pivot.items();
        const auto part = findPart(name);
        if (!part)
            pivot.report(QStringLiteral("the drawing has no group with this id"));
        else if (values.size() != 2)
            pivot.report(QStringLiteral("[x, y] is expected"));
        else
            parts_[*part].pivot = {values[0].number(kWayRange), values[1].number(kWayRange)};
    }
}

void Rig::readSwitches(JsonSource& character) {
    JsonSource switches = character.at(QStringLiteral("switches"));
    for (const QString& name : switches.keys()) {
        JsonSource choices = switches.at(name);
        const QStringList& order = choices.keys();
        addSwitch(name, choices, order);
    }
    JsonSource mouths = character.at(QStringLiteral("mouths"));
    if (!mouths.present())
        return;
    const QStringList order{QStringLiteral("closed"), QStringLiteral("wide1"), QStringLiteral("wide2"),
                            QStringLiteral("wide3"),  QStringLiteral("wide4"), QStringLiteral("medium"),
                            QStringLiteral("narrow")};
    for (const QString& name : order)
        if (!mouths.has(name))
            mouths.report(QStringLiteral("\"%1\" is missing").arg(name));
    if (findSwitch(QStringLiteral("mouth")))
        mouths.report(QStringLiteral("there is a switch \"mouth\" beside it"));
    mouthSwitch_ = switches_.size();
    addSwitch(QStringLiteral("mouth"), mouths, order);
    for (const QString& name : order)
        static_cast<void>(mouths.at(name));
    mouths.expectNoMore();
}

void Rig::addSwitch(const QString& name, JsonSource choices, const QStringList& order) {
    choices.expectObject();
    const std::size_t index = switches_.size();
    for (qsizetype i = 0; i < order.size(); ++i) {
        const JsonSource choice = choices.at(order[i]);
        if (!choice.present() || choice.isNull())
            continue;
        const auto part = findPart(choice.text());
        if (!part) {
            choice.report(QStringLiteral("the drawing has no group \"%1\"").arg(choice.text()));
            continue;
        }
        if (parts_[*part].switchIndex && (*parts_[*part].switchIndex != index))
            choice.report(QStringLiteral("the group belongs to another switch as well"));
        parts_[*part].switchIndex = index;
        parts_[*part].choice = static_cast<std::size_t>(i);
    }
    if (order.isEmpty())
        choices.report(QStringLiteral("a switch needs choices"));
    switches_.push_back({name, order});
}

void Rig::readPoses(JsonSource source) {
    for (const QString& name : source.keys()) {
        JsonSource description = source.at(name);
        Pose pose = neutral_;
        JsonSource moved = description.at(QStringLiteral("parts"));
        for (const QString& partName : moved.keys()) {
            JsonSource placement = moved.at(partName);
            const PartialPlacement fields = readPlacement(placement);
            placement.expectNoMore();
            const auto part = findPart(partName);
            if (!part)
                placement.report(QStringLiteral("the drawing has no group with this id"));
            for (std::size_t f = 0; part && f < kPlacementFieldCount; ++f)
                if (fields.fields[f])
                    pose.parts[*part].*kPlacementFields[f] = *fields.fields[f];
        }
        JsonSource switched = description.at(QStringLiteral("switches"));
        for (const QString& switchName : switched.keys()) {
            const JsonSource to = switched.at(switchName);
            const auto index = findSwitch(switchName);
            const auto choice = index ? switches_[*index].choices.indexOf(to.text()) : -1;
            if (choice < 0)
                to.report(QStringLiteral("there is no such switch or no such choice"));
            else
                pose.choices[*index] = static_cast<std::size_t>(choice);
        }
        description.expectNoMore();
        poses_[name] = pose;
    }
}

PartialPlacement readPlacement(JsonSource& source) {
    PartialPlacement result;
    const auto both = source.optionalNumber(QStringLiteral("scale"), kScaleRange);
    result.fields[0] = source.optionalNumber(QStringLiteral("x"), kWayRange);
    result.fields[1] = source.optionalNumber(QStringLiteral("y"), kWayRange);
    result.fields[2] = source.optionalNumber(QStringLiteral("rotate"), kAngleRange);
    result.fields[3] = source.optionalNumber(QStringLiteral("scaleX"), kScaleRange);
    result.fields[4] = source.optionalNumber(QStringLiteral("scaleY"), kScaleRange);
    result.fields[5] = source.optionalNumber(QStringLiteral("opacity"), {0, 1});
    for (const std::size_t scale : {3U, 4U})
        if (!result.fields[scale])
            result.fields[scale] = both;
    return result;
}

void Rig::measure(Problems& problems, const QString& shownName) {
    const QByteArray all = [&] {
        QByteArray text;
        for (const Piece& piece : pieces_)
            text += piece.kind == Piece::Kind::Begin
                        ? piece.text + " transform=\"" + transformText(parts_[piece.part].drawn) + "\">"
                        : piece.text;
        return text;
    }();
    QSvgRenderer renderer(all);
    if (!renderer.isValid()) {
        problems.add(shownName, QStringLiteral("the drawing cannot be rendered"));
        return;
    }
    for (Part& part : parts_)
        part.bounds = renderer.transformForElement(part.name).mapRect(renderer.boundsOnElement(part.name));
}

bool Rig::visible(const Pose& pose, std::size_t part) const {
    for (std::optional<std::size_t> at = part; at; at = parts_[*at].parent) {
        const Part& one = parts_[*at];
        if (pose.parts[*at].opacity <= 0 || (one.switchIndex && pose.choices[*one.switchIndex] != one.choice))
            return false;
    }
    return true;
}

double Rig::opacity(const Pose& pose, std::size_t part) const {
    double result = 1;
    for (std::optional<std::size_t> at = part; at; at = parts_[*at].parent)
        result *= parts_[*at].opacity * pose.parts[*at].opacity;
    return result;
}

QTransform Rig::ownMovement(const Part& part, const Placement& placement) const {
    QTransform t;
    t.translate(part.pivot.x() + placement.x, part.pivot.y() + placement.y);
    t.rotate(placement.rotate);
    t.scale(placement.scaleX, placement.scaleY);
    t.translate(-part.pivot.x(), -part.pivot.y());
    return t;
}

QTransform Rig::movement(const Pose& pose, std::size_t part) const {
    QTransform result;
    for (std::optional<std::size_t> at = part; at; at = parts_[*at].parent)
        result *= ownMovement(parts_[*at], pose.parts[*at]);
    return result;
}

QByteArray Rig::svg(const Pose& pose) const {
    QByteArray text;
    std::optional<std::size_t> hiddenUntil;
    for (const Piece& piece : pieces_) {
        if (hiddenUntil) {
            if (piece.kind == Piece::Kind::End && piece.part == *hiddenUntil)
                hiddenUntil.reset();
            continue;
        }
        if (piece.kind == Piece::Kind::Begin && !visible(pose, piece.part)) {
            hiddenUntil = piece.part;
            continue;
        }
        text += piece.text;
        if (piece.kind != Piece::Kind::Begin)
            continue;
        const Part& part = parts_[piece.part];
        const Placement& placement = pose.parts[piece.part];
        const QTransform moved = part.around * ownMovement(part, placement) * part.around.inverted();
        const double opacity = part.opacity * placement.opacity;
        if (!(part.drawn * moved).isIdentity())
            text += " transform=\"" + transformText(part.drawn * moved) + "\"";
        if (opacity < 1)
            text += " opacity=\"" + QByteArray::number(opacity, 'f', 4) + "\"";
        text += ">";
    }
    return text;
}

} // namespace brovin::acsc
