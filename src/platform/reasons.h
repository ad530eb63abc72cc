#pragma once

namespace brovin::platform::reason {

// Why a machine beneath an update failed, where the system has no words for it. A `Failure` carries one of
// these, so that language files can have a text in its place.
inline constexpr const char* kNoProgram = "It is neither a package nor a program";
inline constexpr const char* kNoChance = "There is no chance in this machine";
inline constexpr const char* kNoRequests = "The part of the program for web requests is not installed";
inline constexpr const char* kNoHistory = "The part of the program for the score is not installed";
inline constexpr const char* kOthersFolder = "The folder for downloads belongs to somebody else";
inline constexpr const char* kNothingSaid = "The server has nothing to say";
inline constexpr const char* kOtherRequest = "Another request is under way";
inline constexpr const char* kTooLong = "The answer is too long";
inline constexpr const char* kTooSlow = "The server is too slow";
inline constexpr const char* kSilent = "The server is silent";
inline constexpr const char* kEnding = "The program ends";
inline constexpr const char* kUnsafeAddress = "The address is not a safe one";
inline constexpr const char* kLedOn = "The server leads on and on";
inline constexpr const char* kLedAstray = "The server leads to an address that is not a safe one";
inline constexpr const char* kAnswered = "The server answered %1"; ///< %1: the failure's number
inline constexpr const char* kTooMuch = "More came than the server had announced";
inline constexpr const char* kTooLittle = "Less came than the server had announced";
inline constexpr const char* kNoInstaller = "There is no installer";

} // namespace brovin::platform::reason
