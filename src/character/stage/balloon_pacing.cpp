#include "character/stage/balloon_pacing.h"

#include "character/stage/text_breaks.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace brovin::character {
namespace {

constexpr Milliseconds kHideDelay{2000};
constexpr Milliseconds kHideDelayPerCharacter{50};
constexpr Milliseconds kLongestHideDelay{6000};

} // namespace

BalloonPacing::BalloonPacing(std::string text, const BalloonSettings& settings, Space space,
                             const MeasureText& measure)
    : text_(std::move(text)), lines_(breakLines(text_, space.width, measure)), autoPace_(settings.autoPace),
      width_(space.width), height_(settings.lines) {
    const auto most = static_cast<std::size_t>(std::max(space.mostLines, 1));
    if (settings.sizeToText)
        height_ = std::clamp<std::size_t>(lines_.size(), 1, most);
}

BalloonPage BalloonPacing::page(std::size_t reached) const {
    // The lines that have begun: the text reached goes beyond their first byte.
    const auto begun = std::partition_point(lines_.begin(), lines_.end(),
                                            [reached](const TextLine& line) { return line.begin < reached; });
    const auto spoken = static_cast<std::size_t>(begun - lines_.begin());
    const std::size_t first = spoken > height_ ? spoken - height_ : 0;
    const std::size_t end = autoPace_ ? spoken : std::min(first + height_, lines_.size());

    BalloonPage page{{}, width_, static_cast<int>(height_)};
    const std::size_t limit = autoPace_ ? reached : text_.size();
    for (std::size_t i = first; i < end; ++i) {
        const std::size_t lineEnd = std::max(std::min(lines_[i].end, limit), lines_[i].begin);
        page.lines.push_back(text_.substr(lines_[i].begin, lineEnd - lines_[i].begin));
    }
    return page;
}

Milliseconds BalloonPacing::hideDelay() const {
    Milliseconds delay = kHideDelay;
    for (std::string_view rest = text_; !rest.empty() && delay < kLongestHideDelay;) {
        rest.remove_prefix(leadingCharacter(rest));
        delay += kHideDelayPerCharacter;
    }
    return std::min(delay, kLongestHideDelay);
}

} // namespace brovin::character
