#pragma once

#include "desktop/voice/espeak_voice.h"
#include "voice/sound_server.h"
#include "voice/statement.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace brovin::voice {

/// Writes down what it is told, and when.
struct Listener final : character::VoiceListener {
    struct Line {
        Clock::time_point at;
        std::string what;
    };
    std::vector<Line> lines;
    int ended = 0;
    std::function<void()> onWord;

    void wordReached(std::size_t offset) override {
        lines.push_back({Clock::now(), "word " + std::to_string(offset)});
        if (onWord)
            onWord();
    }
    void soundReached(std::string_view ipa) override { lines.push_back({Clock::now(), std::string(ipa)}); }
    void bookmarkReached(std::int32_t number) override {
        lines.push_back({Clock::now(), "mark " + std::to_string(number)});
    }
    void speechEnded() override {
        lines.push_back({Clock::now(), "end"});
        ++ended;
    }
};

/// A character whose voice can be heard.
class HeardTest : public ::testing::Test {
protected:
    HeardTest() {
        EXPECT_TRUE(server->running());
        EXPECT_TRUE(voice.choice().setTtsModeId("English (America)+m1"));
        EXPECT_TRUE(voice.available());
    }
    bool awaitEnd(std::chrono::milliseconds longest = std::chrono::seconds{20}) {
        return passUntil([this] { return listener.ended > 0; }, longest);
    }

    EspeakVoice voice{character::CharacterData{}};
    Listener listener;

public:
    static SoundServer* server;
};

} // namespace brovin::voice
