#include "character/stage/stage.h"

#include "character/letter_case.h"
#include "character/stage/move_act.h"
#include "character/stage/play_act.h"
#include "character/stage/speak_act.h"

#include <cmath>
#include <utility>

namespace brovin::character {
namespace {

/// The animations of a state that this engine alone knows, in small letters.
std::vector<std::uint32_t> playable(const CharacterData& character, std::string_view state) {
    std::vector<std::uint32_t> found;
    for (const State& candidate : character.states)
        if (foldedCase(candidate.name) == state)
            for (const std::uint32_t animation : candidate.animations)
                if (!character.animations[animation].frames.empty())
                    found.push_back(animation);
    return found;
}

} // namespace

Stage::Stage(std::shared_ptr<const CharacterData> character, const Needs& needs)
    : character_(std::move(character)), surface_(needs.surface), attention_(needs.attention),
      events_(attention_), names_(character_->animations), situations_(*character_), chance_(needs.chance),
      sounds_(needs.sound), presence_(needs.surface, events_),
      performer_({*character_, situations_, needs.chance, needs.surface, sounds_}),
      balloon_(needs.balloon, character_->balloon, events_),
      narration_({needs.voice, balloon_, performer_, needs.chance, events_, attention_,
                  character_->voice.has_value()}),
      glance_(*character_),
      idle_({situations_, performer_, sounds_, needs.chance, events_, [this] { return lookAtPointer(); },
             needs.today, playable(*character_, "resting"), playable(*character_, "idlinglate"),
             playable(*character_, "idlingwinter")}),
      queue_(events_) {}

std::optional<std::uint32_t> Stage::lookTowards(std::optional<Place> place) const {
    if (!place)
        return std::nullopt;
    return glance_.towards(presence_.wayTo(*place, character_->width, character_->height));
}

std::optional<std::uint32_t> Stage::lookAtPointer() const {
    return lookTowards(curious_ ? surface_.pointer() : std::nullopt);
}

/// A request, so that what the program has it say about its new place is said while it looks there.
void Stage::lookAtGround() {
    const bool free = queue_.empty() || (queue_.size() == 1 && queue_.running() == RequestKind::Play);
    if (!curious_ || !free || !idle_.on() || performer_.still())
        return;
    auto look = lookTowards(surface_.ground());
    if (!look)
        look = glance_.down();
    if (look)
        ask(RequestKind::Play, std::make_unique<PlayAct>(parts(), *look));
}

Stage::~Stage() {
    attention_.beginCall(); // nobody is to be asked for anything any more
    narration_.stop();
    sounds_.stop();
    balloon_.hide();
    if (presence_.visible())
        surface_.setShown(Shown::No);
}

Wake Stage::advance(Moment now) {
    attention_.beginCall();
    const Wake acting = carryOn(now);
    const Wake hiding = balloon_.advance(now); // behind the acts, which set its time
    attention_.endCall();
    return sooner(acting, hiding);
}

/// Goes round until there is nothing left to be done at this moment.
Wake Stage::carryOn(Moment now) {
    for (;;) {
        Wake wake = performer_.advance(now, haste());
        const RequestQueue::Progress progress = queue_.advance(now);
        wake = sooner(wake, progress.wake);
        if (progress.ended)
            continue;
        if (queue_.empty() && presence_.visible() && !presence_.dragged())
            wake = sooner(wake, idle_.advance(now));
        if (!performer_.pending())
            return wake;
    }
}

Haste Stage::haste() const {
    if (queue_.running() == RequestKind::Show && queue_.size() > 1)
        return Haste::Entrance;
    if (queue_.running() == RequestKind::Speak)
        return Haste::Pose;
    return queue_.empty() ? Haste::None : Haste::WayBack;
}

StageParts Stage::parts() {
    return {*character_, situations_, chance_,    presence_,     performer_,
            sounds_,     balloon_,    narration_, lastStatement_};
}

RequestHandle Stage::ask(RequestKind kind, std::unique_ptr<Act> act) {
    idle_.interrupt(WithoutExits::Cut);
    attention_.ask();
    return queue_.add(kind, std::move(act));
}

RequestHandle Stage::show(Manner manner) {
    return ask(RequestKind::Show, std::make_unique<ShowAct>(parts(), manner));
}

RequestHandle Stage::hide(Manner manner) {
    return ask(RequestKind::Hide, std::make_unique<HideAct>(parts(), manner, VisibilityCause::ProgramHid));
}

Asked Stage::play(std::string_view animation) {
    const auto index = names_.find(animation);
    if (!index)
        return RequestError::UnknownAnimation;
    return ask(RequestKind::Play, std::make_unique<PlayAct>(parts(), *index));
}

Asked Stage::speak(std::string_view text) {
    auto segments = parseSpeech(text);
    if (repetitionIn(segments) == Repetition::Mixed)
        return RequestError::RepeatWithOtherText;
    return ask(RequestKind::Speak, std::make_unique<SpeakAct>(parts(), std::move(segments)));
}

RequestHandle Stage::moveTo(Place place, Milliseconds time) {
    return ask(RequestKind::MoveTo, std::make_unique<MoveAct>(parts(), nearestAllowed(place), time));
}

RequestHandle Stage::gestureAt(Place place) {
    return ask(RequestKind::GestureAt, std::make_unique<PlayAct>(parts(), place));
}

void Stage::stop() {
    queue_.stop();
    attention_.ask();
}

RequestError Stage::stop(const Request& request) {
    attention_.ask();
    return queue_.stop(request);
}

void Stage::stopAll(StopTypes types) {
    queue_.stopAll(types);
    attention_.ask();
}

void Stage::setPlace(Place place, MoveCause cause) {
    if (presence_.dragged() || presence_.place() == nearestAllowed(place))
        return;
    presence_.put(place);
    presence_.reportMove(cause);
}

void Stage::setIdleOn(bool on) {
    idle_.setOn(on);
    attention_.ask();
}

void Stage::setStill(bool still) {
    if (performer_.still() == still)
        return;
    performer_.setStill(still);
    idle_.interrupt(WithoutExits::Cut);
    attention_.ask();
}

std::vector<std::string> Stage::animationNames() const {
    std::vector<std::string> names;
    for (const Animation& animation : character_->animations)
        names.push_back(animation.name);
    return names;
}

/// A balloon that only waits to disappear does so, and the character is no longer alone.
void Stage::userShowsUp(Event event) {
    if (!narration_.speaking())
        balloon_.hide();
    // Nothing may follow that would show another picture, so that eyes must not be left half closed.
    idle_.interrupt(WithoutExits::PlayOn);
    events_.add(std::move(event));
}

void Stage::click(const Pointer& pointer) {
    userShowsUp(event::Clicked{pointer});
}

void Stage::doubleClick(const Pointer& pointer) {
    userShowsUp(event::DoubleClicked{pointer});
}

void Stage::beginDrag(const Pointer& pointer) {
    if (!presence_.visible() || presence_.dragged())
        return;
    const double scale = surface_.scale();
    grip_ = {(pointer.at.x - presence_.place().x) / scale, (pointer.at.y - presence_.place().y) / scale};
    presence_.setDragged(true);
    userShowsUp(event::DragStarted{pointer});
}

void Stage::dragTo(Place pointer) {
    if (!presence_.dragged())
        return;
    const double scale = surface_.scale(); // another one on another monitor
    presence_.put({pointer.x - static_cast<int>(std::lround(grip_.x * scale)),
                   pointer.y - static_cast<int>(std::lround(grip_.y * scale))});
}

void Stage::endDrag(const Pointer& pointer) {
    if (!presence_.dragged())
        return;
    dragTo(pointer.at);
    presence_.setDragged(false);
    presence_.reportMove(MoveCause::User);
    userShowsUp(event::DragCompleted{pointer});
    lookAtGround();
}

void Stage::closeBalloon() {
    balloon_.hide();
}

void Stage::hideByUser(VisibilityCause cause) {
    if (!presence_.visible())
        return;
    queue_.interruptByHiding();
    ask(RequestKind::Hide, std::make_unique<HideAct>(parts(), Manner::Animated, cause));
}

} // namespace brovin::character
