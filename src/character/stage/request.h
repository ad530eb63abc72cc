#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace brovin::character {

enum class RequestKind : std::uint8_t { Show, Hide, Play, Speak, MoveTo, GestureAt };

enum class RequestStatus : std::uint8_t { Complete, Failed, Pending, Interrupted, InProgress };

/// Why a call was refused or a request did not complete, by the numbers that programs know.
enum class RequestError : std::uint32_t {
    None = 0,
    UnknownAnimation = 0x80042003,
    NoAnimationForState = 0x80042004,
    CharacterHidden = 0x8004200A,
    InvalidAnimation = 0x8004200F,
    BeingDragged = 0x80042010,
    RequestNotFound = 0x80042101,
    OtherCharactersRequest = 0x80042103,
    RemovedFromQueue = 0x80042108,
    Interrupted = 0x8004210C,
    InterruptedByHiding = 0x8004210D,
    RepeatWithOtherText = 0x8004210E,
};

/// An English sentence; empty for None.
[[nodiscard]] std::string_view describe(RequestError error);

class RequestQueue;

/// What a caller sees of something that it asked for.
struct Request {
    RequestKind kind = RequestKind::Show;
    RequestStatus status = RequestStatus::Pending;
    RequestError error = RequestError::None;
    const RequestQueue* queue = nullptr; ///< whose request it is; only to be compared
};

/// Keeping it is what makes the caller hear of the request's start and end.
using RequestHandle = std::shared_ptr<const Request>;

/// What `stopAll` may be limited to; the values add up.
using StopTypes = std::uint32_t;
inline constexpr StopTypes kStopPlay = 0x01;
inline constexpr StopTypes kStopMove = 0x02;
inline constexpr StopTypes kStopSpeak = 0x04;
inline constexpr StopTypes kStopShowAndHide = 0x20;
inline constexpr StopTypes kStopEverything = 0xFFFFFFFF;

/// The types that a list such as "Play, Speak" names, without regard to case and blanks. Names that are
/// unknown, or of requests that do not exist here, stand for nothing. An empty text means everything.
[[nodiscard]] StopTypes parseStopTypes(std::string_view names);

/// The one bit that stands for requests of a kind; gestures have none and are stopped only with everything.
[[nodiscard]] StopTypes stopTypeOf(RequestKind kind);

} // namespace brovin::character
