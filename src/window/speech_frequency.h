#pragma once

#include "settings/settings.h"
#include "ui/pages/character_page.h"

#include <cstdint>

namespace brovin::window {

/// The nearer end for a value that lies outside the bounds.
[[nodiscard]] double clamp(double value, double lower, double upper);

/// The slider's parts when the fill is so wide: the knob's centre on the fill's end, and the fill from blue
/// when it is empty to red when it is full.
[[nodiscard]] ui::Slider::Parts sliderParts(const ui::Slider::Track& track, double fillWidth);

/// The value that a fill of this width stands for: the nearest whole number, halves to the even neighbour.
[[nodiscard]] int sliderValue(const ui::Slider::Track& track, double fillWidth);

/// How often the character speaks by itself, as the user sets it with the slider.
class SpeechFrequency {
public:
    SpeechFrequency(ui::CharacterPage& page, settings::Settings& settings);

    /// How often the character speaks, 0 to 200 where the slider has set it.
    std::int16_t speechFreq = 0;

    /// Draws the slider from the value that is held.
    void drawSpeechFreq();

    void picSlide_MouseDown(int button, double x);
    void picSlide_MouseMove(double x);
    void picSlide_MouseUp();
    /// A click beside the knob counts where it is on the track.
    void frmFreq_MouseUp(double x, double y);
    /// A value chosen by a key; one beyond an end becomes that end.
    void picSlide_Choose(int value);

private:
    void store(int value);

    ui::CharacterPage& page_;
    settings::Settings& settings_;
    bool dragging_ = false;
    double grip_ = 0; ///< from the knob's left edge to the mouse, while dragging
};

} // namespace brovin::window
