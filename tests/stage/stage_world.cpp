#include "stage/stage_world.h"

#include <array>
#include <cstdio>
#include <utility>

namespace brovin::character {

TestCharacter usualCharacter() {
    TestCharacter character;
    const auto open = {Mouth::OpenWide1, Mouth::OpenWide4};
    character.animation("Show", {{}, {}})
        .animation("Hide", {{}, {}})
        .animation("RestPose", {{.ms = 0, .mouths = open}})
        .animation("Wave", {{}, {.exit = 2, .mouths = open}, {.ms = 0, .pictured = false}})
        .animation("Blink", {{.ms = 200}})
        .animation("ReadReturn", {{}})
        .animation("Read", {{}, {}})
        .ledBackBy("ReadReturn")
        .animation("Search", {{.exit = 2}, {.exit = 2, .branches = {{0, 100}}}, {}}, Transition::ExitBranches)
        .animation("MoveLeft", {{}, {}})
        .animation("GestureLeft", {{}})
        .animation("Broken", {});
    character.state("Showing", {"Show"}).state("Hiding", {"Hide"}).state("Speaking", {"RestPose"});
    return character;
}

StageWorld::StageWorld(const TestCharacter& character)
    : data(std::make_shared<const CharacterData>(character.data)),
      surface(log, [this](const Frame& frame) { return TestCharacter::nameOf(*data, frame); }),
      stage(std::make_unique<Stage>(data, Stage::Needs{surface, balloon, sound, voice, chance,
                                                       [this] { asked = true; }, [this] { return today; }})) {
}

Lines StageWorld::pass(Milliseconds time) {
    const Moment end = log.now + time;
    for (;;) {
        while (std::exchange(asked, false) || (wake && *wake <= log.now))
            call();
        if (!wake || *wake > end)
            break;
        log.now = *wake;
    }
    log.now = end;
    return log.take();
}

void StageWorld::call() {
    ++calls;
    wake = stage->advance(log.now);
    while (const auto event = stage->takeEvent())
        if (logsEvents)
            tell(*event);
}

void StageWorld::appear() {
    stage->show(Manner::Fast);
    settle();
}

namespace {

std::string text(Place place) {
    return std::to_string(place.x) + "," + std::to_string(place.y);
}

std::string text(const Pointer& pointer) {
    return std::to_string(pointer.button) + " " + std::to_string(pointer.shift) + " " + text(pointer.at);
}

std::string text(const std::weak_ptr<const Request>& request) {
    return std::to_string(static_cast<int>(request.lock()->kind));
}

struct EventText {
    std::string operator()(const event::Clicked& e) const { return "click " + text(e.pointer); }
    std::string operator()(const event::DoubleClicked& e) const { return "double click " + text(e.pointer); }
    std::string operator()(const event::DragStarted& e) const { return "drag start " + text(e.pointer); }
    std::string operator()(const event::DragCompleted& e) const { return "drag complete " + text(e.pointer); }
    std::string operator()(const event::Appeared& e) const { return "show " + cause(e.cause); }
    std::string operator()(const event::Disappeared& e) const { return "hide " + cause(e.cause); }
    std::string operator()(const event::Moved& e) const {
        return "move " + text(e.place) + " " + cause(e.cause);
    }
    std::string operator()(const event::BalloonShown& /*e*/) const { return "balloon shown"; }
    std::string operator()(const event::BalloonHidden& /*e*/) const { return "balloon hidden"; }
    std::string operator()(const event::BookmarkReached& e) const {
        return "bookmark " + std::to_string(e.bookmark);
    }
    std::string operator()(const event::IdleStarted& /*e*/) const { return "idle"; }
    std::string operator()(const event::IdleEnded& /*e*/) const { return "idle over"; }
    std::string operator()(const event::RequestStarted& e) const { return "start " + text(e.request); }
    std::string operator()(const event::RequestEnded& e) const { return "end " + text(e.request); }

    template <class Cause>
    static std::string cause(Cause cause) {
        return std::to_string(static_cast<int>(cause));
    }
};

} // namespace

void StageWorld::tell(const Event& event) {
    log.add(std::visit(EventText{}, event));
}

std::string outcomeOf(const RequestHandle& request) {
    constexpr std::array kNames = {"complete", "failed", "pending", "interrupted", "in progress"};
    std::string outcome = kNames.at(static_cast<std::size_t>(request->status));
    if (request->error != RequestError::None) {
        std::array<char, 16> number{};
        std::snprintf(number.data(), number.size(), " %08X", static_cast<unsigned>(request->error));
        outcome += number.data();
    }
    return outcome;
}

Lines untimed(const Lines& lines) {
    Lines result;
    for (const std::string& line : lines)
        result.push_back(line.substr(line.find(' ') + 1));
    return result;
}

} // namespace brovin::character
