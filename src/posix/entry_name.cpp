#include "posix/entry_name.h"

#include "posix/unicode_case.h"
#include "text/utf8.h"

#include <cstdint>
#include <cstring>

namespace brovin::posix {
namespace {

constexpr char32_t kServersCarriageReturn = 0xF00D;

// ASCII names, as most are, go eight bytes at a time. In what follows each byte of a word is below 0x80, so
// that no sum of two carries into the next.
using Word = std::uint64_t;

constexpr Word eightTimes(unsigned byte) {
    return Word{0x0101010101010101} * byte;
}
constexpr Word kHighBits = eightTimes(0x80);

/// The high bit of each byte from 'A' to 'Z'.
constexpr Word upperCase(Word word) {
    return (word + eightTimes(0x80 - 'A')) & ~(word + eightTimes(0x80 - 'Z' - 1)) & kHighBits;
}

/// The high bit of each carriage return.
constexpr Word carriageReturns(Word word) {
    return (kHighBits - (word ^ eightTimes('\r'))) & kHighBits;
}

constexpr Word shownAscii(Word word) {
    const Word returns = carriageReturns(word) >> 7U;
    return (word | (upperCase(word) >> 2U)) ^ (returns * ('\r' ^ '?'));
}

Word wordAt(const char* bytes) {
    Word word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

/// Hands over the places of all words in so many bytes; the last one laps over the one before. False: there
/// are too few for one word.
template <class Use>
bool eachWord(std::size_t bytes, Use use) {
    if (bytes < sizeof(Word))
        return false;
    for (std::size_t at = 0; at < bytes - sizeof(Word); at += sizeof(Word))
        use(at);
    use(bytes - sizeof(Word));
    return true;
}

enum class Letters { Shown, Ascii, Others };

/// Whether a name can be shown as it is, and if not, whether it is ASCII.
Letters lettersOf(std::string_view name) {
    Word all = 0;
    Word changing = 0;
    const auto look = [&all, &changing](Word word) {
        all |= word;
        word &= ~kHighBits;
        changing |= upperCase(word) | carriageReturns(word);
    };
    if (!eachWord(name.size(), [&](std::size_t at) { look(wordAt(name.data() + at)); })) {
        for (const char c : name)
            look(static_cast<unsigned char>(c));
    }
    if ((all & kHighBits) != 0)
        return Letters::Others;
    return changing == 0 ? Letters::Shown : Letters::Ascii;
}

void appendShownAscii(std::string_view name, std::string& memory) {
    const std::size_t begin = memory.size();
    memory.append(name);
    char* const shown = &memory[begin];
    const auto change = [shown](std::size_t at) {
        const Word word = shownAscii(wordAt(shown + at));
        std::memcpy(shown + at, &word, sizeof word);
    };
    if (!eachWord(name.size(), change)) {
        for (std::size_t at = 0; at < name.size(); ++at)
            shown[at] = static_cast<char>(shownAscii(static_cast<unsigned char>(shown[at])));
    }
}

char32_t shownCharacter(char32_t c) {
    return c == U'\r' || c == kServersCarriageReturn ? U'?' : lowerCase(c);
}

} // namespace

std::string_view shownName(std::string_view trueName, std::string& memory) {
    const Letters letters = lettersOf(trueName);
    if (letters == Letters::Shown)
        return trueName;
    const std::size_t begin = memory.size();
    if (letters == Letters::Ascii)
        appendShownAscii(trueName, memory);
    else
        text::appendMapped(memory, trueName, shownCharacter);
    return std::string_view(memory).substr(begin);
}

} // namespace brovin::posix
