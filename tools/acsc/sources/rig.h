#pragma once

#include "acsc/movement/pose.h"
#include "acsc/sources/json_source.h"

#include <QByteArray>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QTransform>

#include <map>
#include <optional>
#include <vector>

namespace brovin::acsc {

/// A group of the drawing that has an id: what can be moved and switched.
struct Part {
    QString name;
    std::optional<std::size_t> parent;
    QPointF pivot;      ///< in the drawing's coordinates
    QTransform drawn;   ///< its own transform attribute
    QTransform around;  ///< of all that it lies in, as drawn: its parent's coordinates to the drawing's
    double opacity = 1; ///< as drawn
    QRectF bounds;      ///< as drawn, in the drawing's coordinates
    std::optional<std::size_t> switchIndex; ///< the switch that shows and hides it
    std::size_t choice = 0;                 ///< the choice of that switch that shows it
};

/// A set of parts of which one is drawn, or none.
struct Switch {
    QString name;
    QStringList choices; ///< the first is the usual one
};

/// A drawing that can be posed: `rig.svg` and what `character.json` says about it.
class Rig {
public:
    /// Reads the drawing and the members "pivots", "switches", "mouths" and "poses" of `character`.
    Rig(const QString& path, QSize frame, JsonSource& character, Problems& problems);

    [[nodiscard]] const std::vector<Part>& parts() const { return parts_; }
    [[nodiscard]] const std::vector<Switch>& switches() const { return switches_; }
    [[nodiscard]] std::optional<std::size_t> findPart(const QString& name) const;
    [[nodiscard]] std::optional<std::size_t> findSwitch(const QString& name) const;
    /// nullptr: no such pose.
    [[nodiscard]] const Pose* findPose(const QString& name) const;
    [[nodiscard]] const Pose& neutral() const { return neutral_; }
    [[nodiscard]] std::optional<std::size_t> mouthSwitch() const { return mouthSwitch_; }

    /// What lies in a part, or in none, between two other parts: a drawing of its own, unmoved.
    struct Layer {
        std::optional<std::size_t> part;
        QByteArray svg;
    };
    /// The drawing from back to front; empty: it refers to itself and cannot be taken apart.
    [[nodiscard]] const std::vector<Layer>& layers() const { return layers_; }
    [[nodiscard]] bool visible(const Pose& pose, std::size_t part) const;
    /// Of what lies directly in it.
    [[nodiscard]] double opacity(const Pose& pose, std::size_t part) const;
    /// Where the pose moves the drawing's points of a part.
    [[nodiscard]] QTransform movement(const Pose& pose, std::size_t part) const;
    /// The drawing in that pose. Two poses that look alike may still differ in text.
    [[nodiscard]] QByteArray svg(const Pose& pose) const;

private:
    friend class SvgReader;
    /// A piece of the drawing's text, or the beginning or end of a part.
    struct Piece {
        enum class Kind { Text, Begin, End } kind;
        QByteArray text; ///< of a beginning: the tag without the attributes that the pose decides
        std::size_t part = 0;
    };

    void readPivots(JsonSource source);
    void readSwitches(JsonSource& character);
    void addSwitch(const QString& name, JsonSource choices, const QStringList& order);
    void readPoses(JsonSource source);
    void measure(Problems& problems, const QString& shownName);
    [[nodiscard]] QTransform ownMovement(const Part& part, const Placement& placement) const;

    std::vector<Piece> pieces_;
    std::vector<Layer> layers_;
    std::vector<Part> parts_;
    std::vector<Switch> switches_;
    std::map<QString, Pose> poses_;
    Pose neutral_;
    std::optional<std::size_t> mouthSwitch_;
};

/// Reads "x", "rotate" and so on of a key or a pose; what is missing stays nullopt.
struct PartialPlacement {
    std::optional<double> fields[kPlacementFieldCount];
};
[[nodiscard]] PartialPlacement readPlacement(JsonSource& source);

} // namespace brovin::acsc
