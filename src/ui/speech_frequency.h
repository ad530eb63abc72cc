#pragma once

#include "app/settings.h"
#include "ui/frm_options.h"

namespace brovin::ui {

/// The nearer end for a value that lies outside the bounds.
[[nodiscard]] double clamp(double value, double lower, double upper);

/// The slider's parts when the fill is so wide: the knob's centre on the fill's end, and the fill from blue
/// when it is empty to red when it is full.
[[nodiscard]] Slider::Parts sliderParts(const Slider::Track& track, double fillWidth);

/// The value that a fill of this width stands for: the nearest whole number, halves to the even neighbour.
[[nodiscard]] int sliderValue(const Slider::Track& track, double fillWidth);

/// How often the character speaks by itself, as the user sets it with the slider.
class SpeechFrequency {
public:
    SpeechFrequency(FrmOptions& form, app::Settings& settings) : form_(form), settings_(settings) {}

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

    FrmOptions& form_;
    app::Settings& settings_;
    bool dragging_ = false;
    double grip_ = 0; ///< from the knob's left edge to the mouse, while dragging
};

} // namespace brovin::ui
