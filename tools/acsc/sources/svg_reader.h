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
        QByteArray tag; ///< as it begins in a drawing of its own, unmoved
        QByteArray name;
    };
    void begin(const QXmlStreamReader& xml, const QString& shownName, QSize frame);
    void checkElement(const QXmlStreamReader& xml, const QString& shownName, QSize frame);
    void text(const QByteArray& bytes);
    void beginLayer();
    void endLayer();
    void finishLayers();

    Rig& rig_;
    Problems& problems_;
    std::vector<Open> open_;
    QByteArray shared_;           ///< definitions, which every layer may need
    std::size_t sharedSince_ = 0; ///< how many elements are open around the one at hand; 0: none is
    QByteArray layer_;            ///< without the drawing's own tag, which comes before what is shared
    bool layerShows_ = false;
    QByteArray root_;
    bool refers_ = false; ///< an element shows another one, which may lie in another layer
};

} // namespace brovin::acsc
