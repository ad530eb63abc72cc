#pragma once

#include "character/stage/balloon_view.h"
#include "fakes/fake_stage_log.h"

#include <string>
#include <string_view>

namespace brovin::fakes {

/// A balloon whose characters, that is bytes, are ten pixels wide. Writes down its lines: "balloon one /
/// two".
class FakeStageBalloon final : public character::BalloonView {
public:
    explicit FakeStageBalloon(StageLog& log) : log_(log) {}

    int screenLines = 20; ///< that half the screen holds

    [[nodiscard]] int textWidth(std::string_view text) const override {
        return 10 * static_cast<int>(text.size());
    }
    [[nodiscard]] int averageCharacterWidth() const override { return 10; }
    [[nodiscard]] int mostLines() const override { return screenLines; }
    void show(const character::BalloonPage& page) override {
        std::string text;
        for (const std::string& line : page.lines)
            text += (text.empty() ? "" : " / ") + line;
        log_.add("balloon " + text);
    }
    void hide() override { log_.add("balloon gone"); }

private:
    StageLog& log_;
};

} // namespace brovin::fakes
