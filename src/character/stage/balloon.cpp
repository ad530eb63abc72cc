#include "character/stage/balloon.h"

#include <string_view>
#include <utility>

namespace brovin::character {

void Balloon::open(std::string text, std::size_t firstWordEnd) {
    view_.beginStatement(text);
    if (!settings_)
        return;
    const int width = settings_->charactersPerLine * view_.averageCharacterWidth();
    pacing_.emplace(std::move(text), *settings_, BalloonPacing::Space{width, view_.mostLines()},
                    [this](std::string_view piece) { return view_.textWidth(piece); });
    page_ = {};
    show(pacing_->page(firstWordEnd));
    events_.add(event::BalloonShown{});
}

void Balloon::reveal(std::size_t reached) {
    if (pacing_)
        show(pacing_->page(reached));
}

void Balloon::finish(Moment now) {
    if (!pacing_)
        return;
    show(pacing_->lastPage());
    if (settings_->autoHide)
        hideAt_ = now + pacing_->hideDelay();
}

void Balloon::hide() {
    if (!pacing_)
        return;
    pacing_.reset();
    hideAt_.reset();
    view_.hide();
    events_.add(event::BalloonHidden{});
}

Wake Balloon::advance(Moment now) {
    if (hideAt_ && *hideAt_ <= now)
        hide();
    return hideAt_;
}

void Balloon::show(BalloonPage page) {
    if (page == page_)
        return;
    page_ = std::move(page);
    view_.show(page_);
}

} // namespace brovin::character
