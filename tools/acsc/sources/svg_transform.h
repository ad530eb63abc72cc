#pragma once

#include <QString>
#include <QTransform>

#include <optional>

namespace brovin::acsc {

/// The content of an SVG transform attribute; nullopt: not understood.
[[nodiscard]] std::optional<QTransform> parseTransform(const QString& text);

/// The same as text.
[[nodiscard]] QByteArray transformText(const QTransform& transform);

} // namespace brovin::acsc
