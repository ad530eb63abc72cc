#pragma once

#include "character/stage/surface.h"
#include "fakes/fake_stage_log.h"

#include <functional>
#include <string>
#include <utility>

namespace brovin::fakes {

/// Writes down pictures, by the names that the test gives to frames, with "+4" for mouth 4; "shown", "gone",
/// and places where the test asks for them.
class FakeStageSurface final : public character::Surface {
public:
    using NameOf = std::function<std::string(const character::Frame&)>;

    FakeStageSurface(StageLog& log, NameOf nameOf) : log_(log), nameOf_(std::move(nameOf)) {}

    bool logsPlaces = false;
    character::Shown shown = character::Shown::No;
    character::Place place;

    void showFrame(const character::Frame& frame, const character::MouthOverlay* mouth) override {
        log_.add("frame " + nameOf_(frame) +
                 (mouth == nullptr ? "" : "+" + std::to_string(static_cast<int>(mouth->mouth))));
    }
    void setPlace(character::Place to) override {
        place = to;
        if (logsPlaces)
            log_.add("at " + std::to_string(to.x) + "," + std::to_string(to.y));
    }
    void setShown(character::Shown isShown) override {
        shown = isShown;
        log_.add(isShown == character::Shown::Yes ? "shown" : "gone");
    }

private:
    StageLog& log_;
    NameOf nameOf_;
};

} // namespace brovin::fakes
