#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace brovin::acsc {

/// How the way to a key is gone.
enum class Ease : std::uint8_t { Linear, In, Out, InOut, OutBack, InBack, Bounce, Step };

[[nodiscard]] std::optional<Ease> easeNamed(const QString& name);
[[nodiscard]] QString easeNames();

/// The part of the way that is done after a part of the time, both 0 to 1; beyond where the movement swings
/// over.
[[nodiscard]] double eased(Ease ease, double time);

} // namespace brovin::acsc
