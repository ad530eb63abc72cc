#pragma once

#include "ui/control.h"

namespace brovin::ui {

/// A colour, each part from 0 to 255.
struct Colour {
    int red = 0;
    int green = 0;
    int blue = 0;
    bool operator==(const Colour&) const = default;
};

/// A slider in its parts: a track, a fill in it that begins at its left edge, and a knob whose centre lies on
/// the fill's right end. The shell says where the track is and draws the parts; the program says how wide the
/// fill is and where the knob stands. All lengths are in the frame's coordinates.
class Slider : public Control {
public:
    using Control::Control;

    struct Track {
        double left = 0;
        double top = 0;
        double width = 0;
        double height = 0;
        double knobWidth = 0;
        bool operator==(const Track&) const = default;
    };
    struct Parts {
        double fillWidth = 0;
        double knobLeft = 0;
        Colour fillColour;
        bool operator==(const Parts&) const = default;
    };

    /// A mouse button (1: the left one) goes down on the knob; the mouse moves; a button comes up.
    Event<int, double> mouseDown;
    Event<double> mouseMove;
    Event<> mouseUp;
    /// A key or an assistive technology asks for a value.
    Event<int> choose;
    /// The track is another one.
    Event<> resize;

    static constexpr int kMaximum = 200;

    /// The value that is announced, 0 to kMaximum.
    [[nodiscard]] int value() const { return value_; }
    void setValue(int value) { change(value_, value); }

    [[nodiscard]] const Track& track() const { return track_; }
    void setTrack(const Track& track) {
        if (change(track_, track))
            resize();
    }
    [[nodiscard]] const Parts& parts() const { return parts_; }
    void setParts(const Parts& parts) { change(parts_, parts); }

private:
    int value_ = 0;
    Track track_{0, 0, kMaximum, 1, 0};
    Parts parts_;
};

} // namespace brovin::ui
