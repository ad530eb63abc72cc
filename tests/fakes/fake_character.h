#pragma once

#include "platform/character_service.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace brovin::fakes {

/// A character that writes down what it is asked to do. Show and Hide take effect at once.
class FakeCharacter final : public platform::CharacterRequests,
                            public platform::CharacterPlace,
                            public platform::CharacterVoice {
public:
    std::vector<std::string> requests; ///< "show", "play Wave", "speak Hello", in order
    bool isVisible = false;
    bool isBusy = false;
    int x = 0;
    int y = 0;
    int size = 128;    ///< width and height
    int fineFrom = -1; ///< the left edge of a screen on which it is half as large; -1: none
    platform::Character sides{*this, *this, *this};

    [[nodiscard]] bool visible() const override { return isVisible; }
    [[nodiscard]] bool busy() const override { return isBusy; }
    [[nodiscard]] platform::Area area() const override { return {x, y, size, size}; }
    [[nodiscard]] platform::Area areaOn(const platform::Area& screen) const override {
        const int there = screen.left == fineFrom ? size / 2 : size;
        return {x, y, there, there};
    }
    void put(int left, int top) override {
        x = left;
        y = top;
    }
    bool show() override {
        isVisible = true;
        return note("show");
    }
    bool hide() override {
        isVisible = false;
        return note("hide");
    }
    bool play(const std::string& animation) override { return note("play " + animation); }
    bool speak(const std::string& text) override { return note("speak " + text); }
    bool moveTo(int toX, int toY) override {
        return note("moveTo " + std::to_string(toX) + " " + std::to_string(toY));
    }
    bool gestureAt(int atX, int atY) override {
        return note("gestureAt " + std::to_string(atX) + " " + std::to_string(atY));
    }
    void stop() override { note("stop"); }
    void stopAll() override { note("stopAll"); }
    void setLanguageId(long id) override { note("languageId " + std::to_string(id)); }
    void setTtsModeId(const std::string& id) override { note("ttsModeId " + id); }
    [[nodiscard]] std::vector<std::string> animationNames() const override { return {"Wave", "Read"}; }

private:
    bool note(std::string request) {
        requests.push_back(std::move(request));
        return true;
    }
};

/// Has the one character, under any name, unless it is absent.
class FakeCharacterService final : public platform::CharacterService {
public:
    bool present = false;
    FakeCharacter only;
    std::vector<std::string> loaded;

    std::vector<std::string> installed; ///< file names
    std::vector<std::string> broken;    ///< of these: files that do not load
    std::vector<platform::Area> screenAreas{{0, 0, 1024, 768}};
    platform::CharacterMenu menu;
    platform::Manners manners;
    platform::CharacterEvents events;

    [[nodiscard]] bool available() const override { return present; }
    [[nodiscard]] std::vector<std::string> files() override { return installed; }
    [[nodiscard]] std::vector<platform::Area> screens() const override { return screenAreas; }
    void setMenu(const platform::CharacterMenu& captions) override { menu = captions; }
    void setSize(int percent) override {
        const int grown = 128 * std::max(percent, 100) / 100 - only.size;
        only.put(only.x - grown / 2, only.y - grown); // its feet stay
        only.size += grown;
    }
    void setManners(const platform::Manners& wanted) override { manners = wanted; }
    void setEvents(platform::CharacterEvents tied) override { events = std::move(tied); }
    bool load(const std::string& id, const std::string& fileName) override {
        const bool sound = present && std::find(broken.begin(), broken.end(), fileName) == broken.end();
        if (sound)
            loaded.push_back(id);
        return sound;
    }
    void unload(const std::string& id) override {
        if (std::erase(loaded, id) > 0)
            only.isVisible = false;
    }
    [[nodiscard]] const platform::Character* character(const std::string& id) override {
        return std::find(loaded.begin(), loaded.end(), id) == loaded.end() ? nullptr : &only.sides;
    }
};

} // namespace brovin::fakes
