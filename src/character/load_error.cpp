#include "character/load_error.h"

namespace brovin::character {

LoadError damaged(std::string_view where, const ByteReader& in) {
    return {LoadProblem::Damaged, where, in.reason(), in.position()};
}

std::string message(const LoadError& error) {
    std::string text(error.where);
    text.append(" ").append(error.reason);
    return text.append(" (at byte ").append(std::to_string(error.position)).append(").");
}

} // namespace brovin::character
