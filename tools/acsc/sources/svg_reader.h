#pragma once

#include "acsc/problems.h"
#include "acsc/sources/rig.h"

#include <QSize>
#include <QString>
#include <QXmlStreamReader>

namespace brovin::acsc {

/// Takes a drawing apart into its parts and the text between them.
class SvgReader {
public:
    SvgReader(Rig& rig, Problems& problems) : rig_(rig), problems_(problems) {}
    void read(const QString& path, const QString& shownName, QSize frame);

private:
    struct Open {
        QTransform around; ///< of what lies in it
        std::optional<std::size_t> part;
    };
    void begin(const QXmlStreamReader& xml, const QString& shownName, QSize frame);
    void checkElement(const QXmlStreamReader& xml, const QString& shownName, QSize frame);
    void text(const QByteArray& bytes);

    Rig& rig_;
    Problems& problems_;
    std::vector<Open> open_;
};

} // namespace brovin::acsc
