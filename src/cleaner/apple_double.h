#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace brovin::cleaner {

/// How much of a "._" file is looked at, in bytes. Writers keep everything but long contents within the first
/// page, so that the names and sizes of what a file carries are there.
inline constexpr std::size_t kAppleDoubleHead = 4096;

/// What a "._" file carries of the file beside it: the half of an AppleDouble pair that holds everything but
/// the contents. Format: "AppleSingle/AppleDouble Formats for Foreign Files", version 2 (RFC 1740, appendix
/// A); the attributes stand behind the Finder's 32 bytes, under the mark "ATTR".
struct AppleDouble {
    /// An extended attribute, such as a Finder tag or a comment.
    struct Attribute {
        std::string name;         ///< as it is stored; any bytes
        std::uint32_t length = 0; ///< of the value, in bytes, as the file says

        bool operator==(const Attribute&) const = default;
    };

    /// Bytes in the resource fork; 0 when there is none, and when it is the usual placeholder, which has
    /// neither data nor resources.
    std::uint64_t resourceFork = 0;
    /// Type, creator, label or place on the desktop: one of the Finder's 32 bytes is set.
    bool finderInfo = false;
    /// Parts of other kinds: comments of an older system, icons, dates, names.
    std::uint32_t otherParts = 0;
    std::vector<Attribute> attributes;
    /// A length or a place in it cannot be true. What could be read before is kept; nobody should believe
    /// that it is all.
    bool damaged = false;

    /// Nothing of the user's goes with it.
    [[nodiscard]] bool nothingLost() const {
        return resourceFork == 0 && !finderInfo && otherParts == 0 && attributes.empty() && !damaged;
    }
};

/// Reads the beginning of a file, at most kAppleDoubleHead bytes, of `fileSize` bytes in all. nullopt: it is
/// no AppleDouble, whatever its name says. The bytes may be hostile: at most as many attributes are taken as
/// can stand in the head.
[[nodiscard]] std::optional<AppleDouble> readAppleDouble(std::span<const std::uint8_t> head,
                                                         std::uint64_t fileSize);

} // namespace brovin::cleaner
