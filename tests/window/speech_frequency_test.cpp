#include "window/speech_frequency.h"

#include "fakes/fake_settings_store.h"

#include <gtest/gtest.h>

namespace brovin::window {
namespace {

/// A track from 20 to 420 at the height 10 to 20, with a knob of 30.
struct SliderWorld {
    SliderWorld() { form.picSlide.setTrack({20, 10, 400, 10, 30}); }
    [[nodiscard]] const ui::Slider::Parts& parts() const { return form.picSlide.parts(); }

    fakes::FakeSettingsStore store;
    settings::Settings settings{store};
    ui::FrmOptions form;
    SpeechFrequency slider{form, settings};
};

TEST(SpeechFrequency, drawsFromBlueToRed) {
    constexpr std::tuple<int, ui::Slider::Parts> kCases[] = {
        {0, {0, 5, {0, 0, 255}}},       {25, {50, 55, {31, 0, 223}}},   {100, {200, 205, {127, 0, 127}}},
        {200, {400, 405, {255, 0, 0}}}, {300, {400, 405, {255, 0, 0}}}, {-7, {0, 5, {0, 0, 255}}},
    };
    for (const auto& [value, parts] : kCases) {
        SliderWorld world;
        world.slider.speechFreq = static_cast<std::int16_t>(value);
        world.slider.drawSpeechFreq();
        EXPECT_EQ(parts, world.parts()) << value;
        EXPECT_EQ(value, world.slider.speechFreq) << "drawing changes no value";
    }
}

TEST(SpeechFrequency, followsTheDraggedKnobBetweenTheEnds) {
    constexpr std::tuple<double, int, std::string_view> kCases[] = {
        {120, 50, "to the right"},
        {9000, 200, "beyond the right end"},
        {-9000, 0, "beyond the left end"},
        {21, 0, "half of a step goes to the even neighbour"},
        {23, 2, "upwards too"},
    };
    for (const auto& [to, value, why] : kCases) {
        SliderWorld world;
        world.slider.drawSpeechFreq();
        world.slider.picSlide_MouseDown(1, 20 + 7); // beside the knob's centre: that much it stays behind
        world.slider.picSlide_MouseMove(500);
        EXPECT_EQ("", world.store.setting("SpeechFreq")) << "nothing is stored on the way";
        world.slider.picSlide_MouseMove(to + 7);
        world.slider.picSlide_MouseUp();
        EXPECT_EQ(value, world.slider.speechFreq) << why;
        EXPECT_EQ(std::to_string(value), world.store.setting("SpeechFreq")) << why;
        const auto parts = world.parts();
        world.slider.picSlide_MouseMove(300);
        EXPECT_EQ(parts, world.parts()) << "the drag is over";
    }
    SliderWorld world;
    world.slider.drawSpeechFreq();
    world.slider.picSlide_MouseDown(2, 20);
    world.slider.picSlide_MouseMove(300);
    EXPECT_EQ(0, world.parts().fillWidth) << "the right button does not drag";
}

TEST(SpeechFrequency, jumpsToAClickOnTheTrackOnly) {
    constexpr std::tuple<double, double, int> kCases[] = {
        {20, 10, 0}, {420, 20, 200}, {121, 15, 50}, {123, 15, 52},
        {19, 15, 7}, {421, 15, 7},   {120, 9, 7},   {120, 21, 7}, // beside it
    };
    for (const auto& [x, y, value] : kCases) {
        SliderWorld world;
        world.slider.speechFreq = 7;
        world.slider.frmFreq_MouseUp(x, y);
        EXPECT_EQ(value, world.slider.speechFreq) << x << ", " << y;
    }
}

} // namespace
} // namespace brovin::window
