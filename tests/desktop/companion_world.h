#pragma once

#include "character/acs_reader.h"
#include "desktop/character/bubble.h"
#include "desktop/character/character_window.h"
#include "desktop/character_world.h"
#include "desktop/desktop_world.h"
#include "desktop/voice/espeak_voice.h"
#include "language/language_file.h"

#include <QCheckBox>
#include <QClipboard>
#include <QHash>
#include <QListWidget>
#include <QRegularExpression>
#include <QSettings>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace brovin::tests {

/// What characters were given to be heard, in this order.
struct Heard {
    std::vector<std::string> texts;
    std::vector<std::uint32_t> sounds;
    std::vector<std::string> voices; ///< which would speak, after each change of the language
};

/// The machine's own voice, which says how it is called, but speaks without a sound and in no time.
class NotingVoice final : public character::Voice {
public:
    NotingVoice(const character::CharacterData& data, Heard& heard) : own_(data), heard_(heard) {
        saying_.setSingleShot(true);
        saying_.callOnTimeout([this] {
            listener_->wordReached(length_);
            listener_->speechEnded();
        });
    }
    void setLanguage(long id) {
        own_.choice().setLanguageId(id);
        heard_.voices.push_back(own_.choice().voiceName());
    }
    [[nodiscard]] bool available() const override { return true; }
    [[nodiscard]] bool say(const std::vector<character::SpokenRun>& runs,
                           character::VoiceListener& listener) override {
        std::string& text = heard_.texts.emplace_back();
        for (const auto& run : runs)
            text += run.text;
        length_ = text.size();
        listener_ = &listener;
        saying_.start(300);
        return true;
    }
    void silence() override { saying_.stop(); }

private:
    voice::EspeakVoice own_;
    Heard& heard_;
    character::VoiceListener* listener_ = nullptr;
    std::size_t length_ = 0; ///< of what it is saying
    QTimer saying_;
};

class NotingSounds final : public character::SoundOutput {
public:
    explicit NotingSounds(Heard& heard) : heard_(heard) {}
    character::Milliseconds play(std::uint32_t sound) override {
        heard_.sounds.push_back(sound);
        return character::Milliseconds{0};
    }
    void stop() override {}

private:
    Heard& heard_;
};

/// What the shipped language files let a character say.
class Phrases {
public:
    explicit Phrases(const QString& languageFile) {
        QFile file(languageFile);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        for (const std::string& line : language::linesOf(file.readAll().toStdString()))
            if (const auto keyed = language::keyedLine(line))
                lists_[QString::fromStdString(std::string(keyed->key))] +=
                    QString::fromStdString(std::string(keyed->value));
    }
    /// The value of a key that is no list.
    [[nodiscard]] QString value(const QString& key) const { return lists_.value(key); }

    /// Whether a text that was heard is a phrase of one of the lists or one part of it, tokens filled in.
    [[nodiscard]] bool have(const QStringList& lists, const std::string& heard) const {
        static const QRegularExpression speechTag(R"(\\[^\\]*\\)");
        static const QRegularExpression token(R"(\\&[a-z]+\\&)"); // as it is when escaped
        const QString said = QString::fromStdString(heard).simplified();
        for (const QString& list : lists)
            for (QString phrase : value(list).split(QRegularExpression("[|+]"), Qt::SkipEmptyParts)) {
                phrase = QRegularExpression::escape(phrase.remove(speechTag).simplified());
                if (QRegularExpression("^" + phrase.replace(token, ".*") + "$").match(said).hasMatch())
                    return true;
            }
        return false;
    }

private:
    QHash<QString, QString> lists_;
};

/// A character file as it is read; empty where it cannot be.
inline character::CharacterData readFile(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    const QByteArray bytes = file.readAll();
    auto data = character::readCharacter(
        character::SharedBytes(std::vector<std::uint8_t>(bytes.begin(), bytes.end())));
    EXPECT_TRUE(data);
    return data ? std::move(*data) : character::CharacterData{};
}

/// The program as it ships, with its character, used by real input. The window stands at the left, the
/// character beside it at the right.
struct CompanionWorld : DesktopWorld {
    Heard heard;

    static inline const QString kShipped = QStringLiteral(BROVIN_PROGRAM_FOLDER);
    static inline const QString kPeedy = kShipped + "/msagent/chars/peedy.acs";

    CompanionWorld() {
        places.installedFolder = BROVIN_PROGRAM_FOLDER;
        makeFile("config/Brovin/Brovin.conf", "[Settings]\nAgentX=860\nAgentY=500\n");
        audio = [this](const auto& data) {
            auto voice = std::make_unique<NotingVoice>(*data, heard);
            NotingVoice* const noting = voice.get();
            return desktop::CharacterAudio{std::move(voice),
                                           std::make_unique<NotingSounds>(heard),
                                           [noting](auto language) { noting->setLanguage(language); },
                                           {},
                                           {}};
        };
    }
    ~CompanionWorld() { program.reset(); } // whose characters note what they do until they end
    CompanionWorld(const CompanionWorld&) = delete;
    CompanionWorld& operator=(const CompanionWorld&) = delete;

    /// Starts the program and opens its window by the icon.
    void open() {
        start();
        ASSERT_TRUE(waitUntil([this] { return !program->trayIcon().isEmpty(); }));
        ASSERT_TRUE(waitUntil([] { return figure() != nullptr; })) << "the character";
        input(at(program->trayIcon().center()) + kClick);
        ASSERT_TRUE(waitUntil([this] { return program->window().isActiveWindow(); }));
        program->window().move(10, 40);
        letPass(200);
    }

    /// A file in the user's own folder of characters.
    [[nodiscard]] QString ownCharacter(const QString& name) const {
        return QString::fromStdString(places.ownFolder + "/msagent/chars/") + name;
    }

    [[nodiscard]] QString stored(const char* key) const {
        return QSettings(QString::fromStdString(places.settingsFile), QSettings::IniFormat)
            .value(QStringLiteral("Settings/") + key)
            .toString();
    }

    /// The character's window; null while there is nothing to be seen of it.
    [[nodiscard]] static desktop::CharacterWindow* figure() {
        auto* const window = CharacterWorld::window<desktop::CharacterWindow>();
        return window != nullptr && window->isVisible() ? window : nullptr;
    }
    [[nodiscard]] static bool balloonIsOpen() {
        const auto* const bubble = CharacterWorld::window<desktop::Bubble>();
        return bubble != nullptr && bubble->isVisible();
    }

    void press(const char* name) const {
        QWidget* const pressed = widget(name);
        ASSERT_TRUE(waitUntil([&] { return pressed->isVisible() && program->window().isActiveWindow(); }))
            << name;
        const QPoint middle = pressed->rect().center();
        const bool box =
            qobject_cast<QCheckBox*>(pressed) != nullptr; // which does not hear clicks beside its text
        input(at(pressed->mapToGlobal(box ? QPoint(10, middle.y()) : middle)) + kClick);
    }
    void turnTo(std::size_t page) const {
        press(form().imgTabs[page].name().c_str());
        EXPECT_TRUE(waitUntil([&] { return widget(form().picTab[page].name().c_str())->isVisible(); }))
            << page;
    }
    /// Clicks the row of a list that begins with a text.
    void choose(const char* list, const QString& text) const {
        auto* const shown = qobject_cast<QListWidget*>(widget(list));
        const auto rows = shown->findItems(text, Qt::MatchStartsWith);
        ASSERT_FALSE(rows.isEmpty()) << text.toStdString();
        shown->scrollToItem(rows.first());
        letPass(100);
        const QRect row = shown->visualItemRect(rows.first());
        input(at(shown->viewport()->mapToGlobal(QPoint(30, row.center().y()))) + kClick);
        EXPECT_EQ(text.toStdString(), shown->currentItem()->text().left(text.size()).toStdString());
    }
    /// Moves the knob of the slider by the mouse.
    void dragKnob(int pixels) const {
        const ui::Slider& slider = form().picSlide;
        const ui::Slider::Track& track = slider.track();
        const QPointF knob(track.left + slider.parts().fillWidth, track.top + track.height / 2);
        const QStringList half{"mousemove_relative", "--", QString::number(pixels / 2), "3", "sleep", "0.1"};
        input(at(widget("picSlide")->mapToGlobal(knob.toPoint())) + QStringList{"mousedown", "1"} + half +
              half + QStringList{"mouseup", "1"});
    }
    /// Puts a text into a line by the clipboard, as long texts come there.
    void paste(const char* line, const QString& text) const {
        QGuiApplication::clipboard()->setText(text);
        press(line);
        input({"key", "ctrl+a", "ctrl+v"});
    }
    /// Presses a button until the character obeys, which it does seven times in ten; else it says why not.
    bool insist(const char* button, const std::function<bool()>& obeyed) {
        for (int i = 0; i < 12; ++i) {
            heard.texts.clear();
            press(button);
            EXPECT_TRUE(waitUntil([&] { return obeyed() || !heard.texts.empty(); })) << button;
            if (obeyed())
                return true;
        }
        return false;
    }
    /// What the character says first after something has been done.
    std::string saidAfter(const std::function<void()>& act) {
        heard.texts.clear();
        act();
        EXPECT_TRUE(waitUntil([this] { return !heard.texts.empty(); }));
        return heard.texts.empty() ? std::string() : heard.texts.front();
    }

    static inline const QStringList kClick{"click", "1"};
};

} // namespace brovin::tests
