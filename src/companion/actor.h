#pragma once

#include "platform/character_service.h"

#include <string>

namespace brovin::companion {

/// The character by name and, while it is loaded, in person. A request to nobody, and one that the service
/// refuses, is lost without a word: a missing animation must not keep a message from the user.
class Actor {
public:
    /// The chosen character's name, loaded or not.
    std::string name;
    /// Null while none is loaded.
    const platform::Character* character = nullptr;

    /// It says nothing, whoever asks it to.
    bool quiet = false;

    [[nodiscard]] bool visible() const { return character != nullptr && character->place.visible(); }
    void show() {
        leaving_ = false;
        if (character != nullptr)
            character->requests.show();
    }
    void hide() {
        leaving_ = true;
        if (character != nullptr)
            character->requests.hide();
    }
    void stop() const {
        if (character != nullptr)
            character->requests.stop();
    }
    void stopAll() const {
        if (character != nullptr)
            character->requests.stopAll();
    }
    void play(const std::string& animation) const {
        if (character != nullptr)
            character->requests.play(animation);
    }
    /// False: nobody will say it.
    bool speak(const std::string& text) const {
        return !quiet && character != nullptr && character->requests.speak(text);
    }
    void moveTo(int x, int y) const {
        if (character != nullptr)
            character->requests.moveTo(x, y);
    }
    void gestureAt(int x, int y) const {
        if (character != nullptr)
            character->requests.gestureAt(x, y);
    }
    /// Makes it ready to perform: a hidden character appears, a visible one stops what it is doing, unless
    /// that is to be heard out.
    void prepare() {
        hearOut_ = hearOut_ && character != nullptr && character->requests.busy();
        if (visible() && !hearOut_)
            stop();
        else
            show(); // also behind what is heard out, which may end with a Hide
    }
    /// Stops in the middle of what it is doing. Who has come for one remark leaves.
    void breakOff() {
        const bool leaves = leaving_ && visible();
        stop();
        if (leaves)
            hide();
    }
    /// What it has been asked for is news: it is done to its end before anything else is told.
    void hearOut() { hearOut_ = true; }

private:
    bool hearOut_ = false;
    bool leaving_ = false; ///< the last that it was asked for is to hide
};

} // namespace brovin::companion
