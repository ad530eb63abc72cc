#include "acsc/problems.h"

namespace brovin::acsc {

void Problems::add(const QString& where, const QString& what) {
    const QString line = where + QStringLiteral(": ") + what;
    if (!list_.contains(line))
        list_.append(line);
}

void Problems::warn(const QString& where, const QString& what) {
    const QString line = where + QStringLiteral(": ") + what;
    if (!warnings_.contains(line))
        warnings_.append(line);
}

} // namespace brovin::acsc
