#include "window/speech_frequency.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

namespace brovin::window {
namespace {

constexpr int kLeftButton = 1;

double halfKnob(const ui::Slider::Track& track) {
    return track.knobWidth / 2;
}

} // namespace

double clamp(double value, double lower, double upper) {
    return value < lower ? lower : value > upper ? upper : value;
}

ui::Slider::Parts sliderParts(const ui::Slider::Track& track, double fillWidth) {
    constexpr double kBrightest = 255;
    const double ratio = track.width > 0 ? fillWidth / track.width : 0;
    const auto red = static_cast<int>(ratio * kBrightest);
    const auto blue = static_cast<int>((1 - ratio) * kBrightest);
    return {fillWidth, track.left + fillWidth - halfKnob(track), {red, 0, blue}};
}

int sliderValue(const ui::Slider::Track& track, double fillWidth) {
    // In the usual rounding mode, nearbyint takes a half to its even neighbour.
    return track.width > 0 ? static_cast<int>(std::nearbyint(fillWidth / track.width * ui::Slider::kMaximum))
                           : 0;
}

SpeechFrequency::SpeechFrequency(ui::CharacterPage& page, settings::Settings& settings)
    : page_(page), settings_(settings) {
    page_.picSlide.mouseDown = [this](int button, double x) { picSlide_MouseDown(button, x); };
    page_.picSlide.mouseMove = [this](double x) { picSlide_MouseMove(x); };
    page_.picSlide.mouseUp = [this] { picSlide_MouseUp(); };
    page_.picSlide.choose = [this](int value) { picSlide_Choose(value); };
    page_.picSlide.resize = [this] { drawSpeechFreq(); };
    page_.frmFreq.mouseUp = [this](double x, double y) { frmFreq_MouseUp(x, y); };
}

void SpeechFrequency::drawSpeechFreq() {
    // A value from a settings file may be any number; the slider shows the nearer end then.
    const int value = std::clamp<int>(speechFreq, 0, ui::Slider::kMaximum);
    const ui::Slider::Track& track = page_.picSlide.track();
    page_.picSlide.setValue(value);
    page_.picSlide.setParts(sliderParts(track, value * track.width / ui::Slider::kMaximum));
}

void SpeechFrequency::picSlide_MouseDown(int button, double x) {
    if (button != kLeftButton)
        return;
    dragging_ = true;
    grip_ = x - page_.picSlide.parts().knobLeft;
}

void SpeechFrequency::picSlide_MouseMove(double x) {
    if (!dragging_)
        return;
    const ui::Slider::Track& track = page_.picSlide.track();
    const double leftmost = track.left - halfKnob(track);
    const double knobLeft = clamp(x - grip_, leftmost, leftmost + track.width);
    page_.picSlide.setParts(sliderParts(track, knobLeft - leftmost));
}

void SpeechFrequency::picSlide_MouseUp() {
    dragging_ = false;
    store(sliderValue(page_.picSlide.track(), page_.picSlide.parts().fillWidth));
}

void SpeechFrequency::frmFreq_MouseUp(double x, double y) {
    const ui::Slider::Track& track = page_.picSlide.track();
    const double along = x - track.left;
    const double down = y - track.top;
    if (along >= 0 && along <= track.width && down >= 0 && down <= track.height)
        store(sliderValue(track, along));
}

void SpeechFrequency::picSlide_Choose(int value) {
    store(std::clamp(value, 0, ui::Slider::kMaximum));
}

void SpeechFrequency::store(int value) {
    speechFreq = static_cast<std::int16_t>(value);
    settings_.write(settings::setting::kSpeechFreq, std::to_string(value));
    drawSpeechFreq();
}

} // namespace brovin::window
