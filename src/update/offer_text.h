#pragma once

#include "language/message_table.h"
#include "update/answers.h"

#include <string>
#include <string_view>

namespace brovin::update {

/// What is said of an offer's size behind other words, " - Size: 345 KB"; empty when it was not told.
[[nodiscard]] std::string sizeText(const language::MessageTable& messages, const ProgramOffer& offer);

/// A list that is divided by "|", a line each.
[[nodiscard]] std::string changesText(std::string_view list);

} // namespace brovin::update
