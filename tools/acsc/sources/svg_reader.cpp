#include "acsc/sources/svg_reader.h"

#include "acsc/sources/svg_transform.h"

#include <QFile>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <algorithm>
#include <utility>

namespace brovin::acsc {
namespace {

/// What the renderer does not draw, or not the same on every machine.
const QStringList& undrawable() {
    static const QStringList names{QStringLiteral("filter"), QStringLiteral("clipPath"),
                                   QStringLiteral("mask"),   QStringLiteral("pattern"),
                                   QStringLiteral("text"),   QStringLiteral("image"),
                                   QStringLiteral("style"),  QStringLiteral("script")};
    return names;
}

/// What is not shown where it stands, but used by what is.
bool isShared(const QByteArray& name) {
    return name == "defs" || name == "linearGradient" || name == "radialGradient";
}

QByteArray escaped(QStringView text) {
    return text.toString().toHtmlEscaped().toUtf8();
}

} // namespace

void SvgReader::read(const QString& path, const QString& shownName, QSize frame) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problems_.add(shownName, QStringLiteral("cannot be read (%1)").arg(file.errorString()));
        return;
    }
    QXmlStreamReader xml(&file);
    xml.setNamespaceProcessing(false);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement()) {
            begin(xml, shownName, frame);
        } else if (xml.isEndElement()) {
            if (open_.back().part || open_.size() == 1)
                endLayer();
            text("</" + xml.qualifiedName().toUtf8() + ">");
            const auto part = open_.back().part;
            if (part)
                rig_.pieces_.push_back({Rig::Piece::Kind::End, {}, *part});
            open_.pop_back();
            if (part)
                beginLayer();
            if (open_.size() <= sharedSince_)
                sharedSince_ = 0;
        } else if (xml.isCharacters()) {
            text(escaped(xml.text()));
        }
    }
    finishLayers();
    if (xml.hasError())
        problems_.add(shownName, QStringLiteral("line %1: %2").arg(xml.lineNumber()).arg(xml.errorString()));
}

void SvgReader::text(const QByteArray& bytes) {
    if (rig_.pieces_.empty() || rig_.pieces_.back().kind != Rig::Piece::Kind::Text)
        rig_.pieces_.push_back({Rig::Piece::Kind::Text, {}, 0});
    rig_.pieces_.back().text += bytes;
    (sharedSince_ > 0 ? shared_ : layer_) += bytes;
}

void SvgReader::beginLayer() {
    layer_.clear();
    layerShows_ = false;
    for (std::size_t i = 1; i < open_.size(); ++i)
        layer_ += open_[i].tag;
}

void SvgReader::endLayer() {
    if (!layerShows_)
        return;
    std::optional<std::size_t> part;
    for (auto open = open_.rbegin(); open != open_.rend(); ++open) {
        layer_ += "</" + open->name + ">";
        if (!part)
            part = open->part;
    }
    rig_.layers_.push_back({part, layer_});
}

void SvgReader::finishLayers() {
    for (Rig::Layer& layer : rig_.layers_)
        layer.svg = root_ + shared_ + layer.svg;
    if (refers_)
        rig_.layers_.clear();
}

void SvgReader::begin(const QXmlStreamReader& xml, const QString& shownName, QSize frame) {
    checkElement(xml, shownName, frame);
    const QXmlStreamAttributes attributes = xml.attributes();
    const QString id = attributes.value(QLatin1String("id")).toString();
    const bool isPart = xml.qualifiedName() == QLatin1String("g") && !id.isEmpty();
    const auto transform = parseTransform(attributes.value(QLatin1String("transform")).toString());
    if (!transform)
        problems_.add(shownName,
                      QStringLiteral("line %1: the transform is not understood").arg(xml.lineNumber()));
    Open open = open_.empty() ? Open{} : open_.back();
    const QTransform around = open.around;
    QByteArray tag = "<" + xml.qualifiedName().toUtf8();
    for (const QXmlStreamAttribute& attribute : attributes) {
        const QString name = attribute.qualifiedName().toString();
        if (isPart && (name == QLatin1String("transform") || name == QLatin1String("opacity")))
            continue;
        tag += " " + name.toUtf8() + "=\"" + escaped(attribute.value()) + "\"";
    }
    const QByteArray name = xml.qualifiedName().toUtf8();
    if (open_.empty())
        root_ = tag + ">";
    if (!isPart) {
        if (sharedSince_ == 0 && isShared(name))
            sharedSince_ = open_.size();
        layerShows_ = layerShows_ || (sharedSince_ == 0 && name != "g" && name != "svg");
        refers_ = refers_ || name == "use";
        text(tag + ">");
        open_.push_back({transform.value_or(QTransform()) * around, std::nullopt, tag + ">", name});
        if (open_.size() == 1)
            beginLayer();
        return;
    }
    endLayer();
    Part part;
    part.name = id;
    for (auto outer = open_.rbegin(); outer != open_.rend() && !part.parent; ++outer)
        part.parent = outer->part;
    part.drawn = transform.value_or(QTransform());
    part.around = around;
    part.pivot = QPointF(frame.width() / 2.0, frame.height() / 2.0);
    if (attributes.hasAttribute(QLatin1String("opacity")))
        part.opacity = attributes.value(QLatin1String("opacity")).toDouble();
    if (rig_.findPart(id))
        problems_.add(shownName, QStringLiteral("there are two groups \"%1\"").arg(id));
    const std::size_t index = rig_.parts_.size();
    const QByteArray drawn = " transform=\"" + transformText(part.drawn) + "\">";
    open_.push_back({part.drawn * around, index, tag + drawn, name});
    beginLayer();
    rig_.parts_.push_back(std::move(part));
    rig_.pieces_.push_back({Rig::Piece::Kind::Begin, tag, index});
}

void SvgReader::checkElement(const QXmlStreamReader& xml, const QString& shownName, QSize frame) {
    const QString name = xml.qualifiedName().toString();
    if (undrawable().contains(name))
        problems_.add(shownName,
                      QStringLiteral("line %1: <%2> cannot be drawn").arg(xml.lineNumber()).arg(name));
    if (!open_.empty())
        return;
    const QString expected = QStringLiteral("0 0 %1 %2").arg(frame.width()).arg(frame.height());
    const QString box = xml.attributes().value(QLatin1String("viewBox")).toString().simplified();
    if (name != QLatin1String("svg") || box != expected)
        problems_.add(shownName,
                      QStringLiteral("the drawing must be an <svg> with viewBox=\"%1\"").arg(expected));
}

} // namespace brovin::acsc
