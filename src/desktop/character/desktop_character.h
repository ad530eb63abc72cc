#pragma once

#include "character/stage/stage.h"
#include "desktop/character/balloon_window.h"
#include "desktop/character/character_audio.h"
#include "desktop/character/character_window.h"
#include "desktop/character/stage_driver.h"
#include "platform/character_service.h"

#include <functional>
#include <memory>

namespace brovin::desktop {

/// One character that is loaded: its windows, its voice, and the stage that they belong to. It can end at any
/// time, and everything of it is gone at once.
class DesktopCharacter final : public platform::CharacterRequests,
                               public platform::CharacterPlace,
                               public platform::CharacterVoice {
public:
    struct Needs {
        CharacterAudio audio;
        platform::Random& chance;
        int percent = 0; ///< of the size; 0: by the screen
        std::function<void(character::Event)> tell;
        std::function<void()> nextScreen; ///< chosen in the menu
        CharacterWindow::Chosen chosen;   ///< of the rest of the menu
    };
    DesktopCharacter(std::shared_ptr<const character::CharacterData> data, Needs needs);
    ~DesktopCharacter() override;

    [[nodiscard]] const platform::Character& sides() const { return sides_; }
    [[nodiscard]] const character::Guid& guid() const { return data_->guid; }
    /// Where it is, shown or not, and where it is with a balloon.
    [[nodiscard]] QRect frame() const { return {window_.place(), window_.size()}; }
    [[nodiscard]] QRect frameWithBalloon() const { return frame() | balloon_.reach(); }
    void setMenu(const platform::CharacterMenu& menu) { window_.setMenu(menu); }
    void setSize(int percent) { window_.setPercent(percent); }
    void setManners(const platform::Manners& manners);

    [[nodiscard]] bool visible() const override { return stage_.visible(); }
    [[nodiscard]] bool busy() const override { return stage_.busy(); }
    [[nodiscard]] platform::Area area() const override;
    [[nodiscard]] platform::Area areaOn(const platform::Area& screen) const override;
    void put(int left, int top) override;
    bool show() override;
    bool hide() override;
    bool play(const std::string& animation) override;
    bool speak(const std::string& text) override;
    bool moveTo(int x, int y) override;
    bool gestureAt(int x, int y) override;
    void stop() override { stage_.stop(); }
    void stopAll() override { stage_.stopAll(character::kStopEverything); }
    void setLanguageId(long id) override;
    void setTtsModeId(const std::string& id) override;
    [[nodiscard]] std::vector<std::string> animationNames() const override;

private:
    void speakIn(character::LanguageId language);

    std::shared_ptr<const character::CharacterData> data_;
    CharacterAudio audio_;
    CharacterWindow window_;
    BalloonWindow balloon_;
    character::Stage stage_;
    StageDriver driver_;
    platform::Character sides_{*this, *this, *this};
};

} // namespace brovin::desktop
