#include "companion/standing.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace brovin::companion {
namespace {

using platform::Area;

/// One side of an area, from `begin` up to `end`.
struct Span {
    int begin;
    int end;

    bool operator==(const Span&) const = default;
};

Span across(const Area& area) {
    return {area.left, area.left + area.width};
}
Span down(const Area& area) {
    return {area.top, area.top + area.height};
}

/// Negative: what lies between the two.
int shared(Span a, Span b) {
    return std::min(a.end, b.end) - std::max(a.begin, b.begin);
}

/// How far apart they are, in the direction in which that is more; 0: not at all.
int distance(const Area& a, const Area& b) {
    return std::max({-shared(across(a), across(b)), -shared(down(a), down(b)), 0});
}

/// Doubled, so that no half is cut off an odd size.
bool moreThanHalfBeyond(Span character, Span screen) {
    const int middle = character.begin + character.end;
    return middle < 2 * screen.begin || middle > 2 * screen.end;
}

/// Where something of this length begins that shall lie in `room`.
int movedInto(int begin, int length, Span room) {
    return std::max(std::min(begin, room.end - length), room.begin);
}

/// The same share of the way through another room, of something that has another length there.
int likewise(Span character, Span room, int otherLength, Span other) {
    const std::int64_t play = std::max(room.end - room.begin - (character.end - character.begin), 1);
    const std::int64_t otherPlay = std::max(other.end - other.begin - otherLength, 0);
    const auto at = other.begin + (character.begin - room.begin) * otherPlay / play;
    return movedInto(static_cast<int>(at), otherLength, other);
}

} // namespace

std::int64_t overlap(const Area& a, const Area& b) {
    const std::int64_t width = std::max(shared(across(a), across(b)), 0);
    return width * std::max(shared(down(a), down(b)), 0);
}

const Area& screenUnder(const Area& character, const Screens& screens) {
    return *std::max_element(screens.begin(), screens.end(), [&character](const Area& a, const Area& b) {
        return overlap(character, a) < overlap(character, b);
    });
}

bool isLost(const Area& character, const Screens& screens) {
    return std::none_of(screens.begin(), screens.end(), [&character](const Area& screen) {
        return !moreThanHalfBeyond(across(character), across(screen)) &&
               !moreThanHalfBeyond(down(character), down(screen));
    });
}

Area broughtBack(Area character, const Screens& screens) {
    const Area& under = screenUnder(character, screens);
    const Area& nearest =
        overlap(character, under) > 0
            ? under
            : *std::min_element(screens.begin(), screens.end(), [&character](const Area& a, const Area& b) {
                  return distance(character, a) < distance(character, b);
              });
    character.left = movedInto(character.left, character.width, across(nearest));
    character.top = movedInto(character.top, character.height, down(nearest));
    return character;
}

Area onOneScreen(Area character, const Screens& screens) {
    const Area most = screenUnder(character, screens);
    for (const Area& other : screens) {
        if (overlap(character, other) == 0)
            continue;
        if (shared(across(most), across(other)) <= 0 && down(most) != down(other))
            character.left = movedInto(character.left, character.width, across(most));
        if (shared(down(most), down(other)) <= 0 && across(most) != across(other))
            character.top = movedInto(character.top, character.height, down(most));
    }
    return character;
}

Area nextScreen(const Area& character, Screens screens) {
    const Area here = screenUnder(character, screens);
    const auto place = [](const Area& screen) { return std::pair(screen.left, screen.top); };
    std::sort(screens.begin(), screens.end(),
              [place](const Area& a, const Area& b) { return place(a) < place(b); });
    const auto behind = std::find_if(screens.begin(), screens.end(),
                                     [&](const Area& screen) { return place(here) < place(screen); });
    return behind == screens.end() ? screens.front() : *behind;
}

Area likewiseOn(const Area& screen, const Area& character, Area there, const Screens& screens) {
    const Area& here = screenUnder(character, screens);
    there.left = likewise(across(character), across(here), there.width, across(screen));
    there.top = likewise(down(character), down(here), there.height, down(screen));
    return there;
}

} // namespace brovin::companion
