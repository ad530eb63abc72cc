#pragma once

#include <QString>
#include <QStringList>

namespace brovin::acsc {

/// What is wrong with a character's sources, in words for its author. Reading goes on after a problem, so
/// that one run shows all of them; nothing is written as long as there is one.
class Problems {
public:
    /// `where` names the file, the animation and the key, as far as they are known.
    void add(const QString& where, const QString& what);

    /// What the author should know, but what keeps nothing from being written.
    void warn(const QString& where, const QString& what);

    [[nodiscard]] const QStringList& warnings() const { return warnings_; }
    [[nodiscard]] bool none() const { return list_.isEmpty(); }
    [[nodiscard]] const QStringList& list() const { return list_; }

private:
    QStringList list_;
    QStringList warnings_;
};

} // namespace brovin::acsc
