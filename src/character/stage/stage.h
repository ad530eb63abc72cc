#pragma once

#include "character/character_data.h"
#include "character/name_index.h"
#include "character/stage/act.h"
#include "character/stage/glance.h"
#include "character/stage/idle_behaviour.h"
#include "character/stage/request_queue.h"
#include "character/stage/show_hide_acts.h"
#include "platform/result.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brovin::character {

/// A request that was accepted, or why it was not; then nothing else has changed.
using Asked = platform::Result<RequestHandle, RequestError>;

/// How long a MoveTo takes where nothing else is said.
inline constexpr Milliseconds kUsualMoveTime{1000};

/// One character that acts: it shows itself, moves, plays animations, speaks, and idles when there is nothing
/// to do.
///
/// It runs on one thread and on the caller's clock. `advance` does what is due and says when it wants to be
/// called next; that answer replaces the one before. When something comes up in between, by a call of the
/// program, the user or the voice, the attention callback asks for a call of `advance` soon (not from within
/// the callback, which may come from within any call). Behind each `advance` the events are to be fetched.
class Stage {
public:
    struct Needs {
        Surface& surface;
        BalloonView& balloon;
        SoundOutput& sound;
        Voice& voice;
        platform::Random& chance;
        std::function<void()> attention;
        std::function<TimeOfYear()> today{}; ///< empty: it knows no seasons
    };
    /// The character is hidden at first.
    Stage(std::shared_ptr<const CharacterData> character, const Needs& needs);
    /// Silence, balloon and window are gone at once.
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    Wake advance(Moment now);
    /// The oldest event that has not been fetched; nullopt: there is none.
    [[nodiscard]] std::optional<Event> takeEvent() { return events_.take(); }

    // Requests: they queue up and are carried out one after another.

    RequestHandle show(Manner manner);
    RequestHandle hide(Manner manner);
    /// Refused: the character has no animation of this name.
    Asked play(std::string_view animation);
    /// Text with speech tags. Refused: it asks to repeat the last statement, and for something else besides.
    Asked speak(std::string_view text);
    /// To where the frame's upper left corner shall be; `time` zero or less: at once.
    RequestHandle moveTo(Place place, Milliseconds time);
    RequestHandle gestureAt(Place place);

    /// Ends the request in progress, unless that is a Show or a Hide, and removes all others.
    void stop();
    /// Ends or removes one request.
    RequestError stop(const Request& request);
    /// Ends and removes the requests of these types.
    void stopAll(StopTypes types);

    // At once, beside the queue.

    /// From the moment on in which a Show is the request in progress, although its first picture comes with
    /// the next `advance`, to the moment in which a Hide is complete.
    [[nodiscard]] bool visible() const {
        return presence_.visible() || queue_.running() == RequestKind::Show;
    }
    /// Whether a request is in progress.
    [[nodiscard]] bool busy() const { return !queue_.empty(); }
    [[nodiscard]] VisibilityCause visibilityCause() const { return presence_.visibilityCause(); }
    [[nodiscard]] Place place() const { return presence_.place(); }
    /// Without effect while the user drags the character.
    void setPlace(Place place, MoveCause cause);
    [[nodiscard]] MoveCause moveCause() const { return presence_.moveCause(); }
    void setIdleOn(bool on);
    [[nodiscard]] bool idleOn() const { return idle_.on(); }
    /// While nothing is to move, the character comes, goes and changes its place and its pose at once, does
    /// not idle, and its mouth rests.
    void setStill(bool still);
    /// Whether it looks by itself at what the user does: where his pointer is now and then, and at what he
    /// has dropped it on. At first it does.
    void setCurious(bool curious) { curious_ = curious; }
    void setSoundEffectsOn(bool on) { sounds_.setOn(on); }
    [[nodiscard]] bool soundEffectsOn() const { return sounds_.on(); }
    /// All animations, in the order of the character's file.
    [[nodiscard]] std::vector<std::string> animationNames() const;

    // What the user does.

    void click(const Pointer& pointer);
    void doubleClick(const Pointer& pointer);
    /// The picture follows the pointer from here to `endDrag`.
    void beginDrag(const Pointer& pointer);
    void dragTo(Place pointer);
    void endDrag(const Pointer& pointer);
    /// The user has clicked the balloon away.
    void closeBalloon();
    /// What is being done is interrupted, and the character hides with its animation.
    void hideByUser(VisibilityCause cause);

private:
    RequestHandle ask(RequestKind kind, std::unique_ptr<Act> act);
    [[nodiscard]] StageParts parts();
    Wake carryOn(Moment now);
    [[nodiscard]] Haste haste() const;
    [[nodiscard]] std::optional<std::uint32_t> lookTowards(std::optional<Place> place) const;
    [[nodiscard]] std::optional<std::uint32_t> lookAtPointer() const;
    void lookAtGround();
    void userShowsUp(Event event);

    std::shared_ptr<const CharacterData> character_;
    Surface& surface_;
    Attention attention_;
    EventList events_;
    NameIndex names_;
    SituationTable situations_;
    platform::Random& chance_;
    SoundEffects sounds_;
    Presence presence_;
    Performer performer_;
    Balloon balloon_;
    Narration narration_;
    Glance glance_;
    IdleBehaviour idle_;
    std::optional<std::vector<SpeechSegment>> lastStatement_;
    RequestQueue queue_;
    bool curious_ = true;
    struct Grip {
        double x = 0;
        double y = 0;
    };
    Grip grip_; ///< where the user holds the character, from its upper left corner: pixels of the frame
};

} // namespace brovin::character
