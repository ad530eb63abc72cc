#include "character/stage/request.h"

#include "character/letter_case.h"

#include <algorithm>
#include <string>

namespace brovin::character {
namespace {

struct Description {
    RequestError error;
    std::string_view text;
};

constexpr Description kDescriptions[] = {
    {RequestError::None, ""},
    {RequestError::UnknownAnimation, "The character does not have this animation."},
    {RequestError::NoAnimationForState, "The character has no animation for this state."},
    {RequestError::CharacterHidden, "The character is hidden."},
    {RequestError::InvalidAnimation, "The animation is damaged or has no frames."},
    {RequestError::BeingDragged, "The character cannot be moved while it is being dragged."},
    {RequestError::RequestNotFound, "There is no such request any more."},
    {RequestError::OtherCharactersRequest, "The request is another character's."},
    {RequestError::RemovedFromQueue, "The request was removed before its turn."},
    {RequestError::Interrupted, "The request was interrupted by the program."},
    {RequestError::InterruptedByHiding, "The request was interrupted because the character was hidden."},
    {RequestError::RepeatWithOtherText, "The tag that repeats the last statement must stand alone."},
};

struct StopName {
    std::string_view name;
    StopTypes type;
};

constexpr StopName kStopNames[] = {{"play", kStopPlay}, {"move", kStopMove}, {"speak", kStopSpeak}};

StopTypes typeNamed(std::string_view name) {
    const auto* const found = std::find_if(std::begin(kStopNames), std::end(kStopNames),
                                           [name](const StopName& row) { return row.name == name; });
    return found == std::end(kStopNames) ? 0 : found->type;
}

} // namespace

std::string_view describe(RequestError error) {
    for (const Description& row : kDescriptions)
        if (row.error == error)
            return row.text;
    return "";
}

StopTypes parseStopTypes(std::string_view names) {
    std::string plain = foldedCase(names);
    std::erase_if(plain, [](char c) { return c == ' ' || c == '\t'; });
    if (plain.empty())
        return kStopEverything;
    StopTypes types = 0;
    for (std::string_view rest = plain; !rest.empty();) {
        const std::size_t comma = std::min(rest.find(','), rest.size());
        types |= typeNamed(rest.substr(0, comma));
        rest.remove_prefix(std::min(comma + 1, rest.size()));
    }
    return types;
}

StopTypes stopTypeOf(RequestKind kind) {
    switch (kind) {
    case RequestKind::Show:
    case RequestKind::Hide:
        return kStopShowAndHide;
    case RequestKind::Play:
        return kStopPlay;
    case RequestKind::Speak:
        return kStopSpeak;
    case RequestKind::MoveTo:
        return kStopMove;
    case RequestKind::GestureAt:
        break;
    }
    return 0;
}

} // namespace brovin::character
