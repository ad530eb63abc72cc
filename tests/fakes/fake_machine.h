#pragma once

#include "fakes/fake_character.h"
#include "fakes/fake_dialogs.h"
#include "fakes/fake_file_system.h"
#include "fakes/fake_program_folder.h"
#include "fakes/fake_regional.h"
#include "fakes/fake_settings_store.h"
#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/deletion_history.h"
#include "platform/event_pump.h"
#include "platform/landmarks.h"
#include "platform/log_on_entry.h"
#include "platform/notification_area.h"
#include "platform/random.h"
#include "platform/scan_lock.h"
#include "platform/shell.h"
#include "platform/single_instance.h"

#include <deque>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace brovin::fakes {

class FakeClipboard final : public platform::Clipboard {
public:
    std::vector<std::string> texts; ///< all that was set, in order
    bool refuses = false;

    [[nodiscard]] bool setText(const std::string& text) override {
        if (!refuses)
            texts.push_back(text);
        return !refuses;
    }
};

class FakeClock final : public platform::Clock {
public:
    platform::DateTime time{};
    std::chrono::milliseconds sinceStart{};
    std::int64_t utc = 0;

    [[nodiscard]] platform::DateTime now() const override { return time; }
    [[nodiscard]] std::int64_t secondsUtc() const override { return utc; }
    [[nodiscard]] std::chrono::milliseconds elapsed() const override { return sinceStart; }
};

/// Draws what the test has laid ready, then 0 for ever.
class FakeRandom final : public platform::Random {
public:
    std::deque<double> draws;
    std::vector<std::uint64_t> seeds;

    [[nodiscard]] double next() override {
        if (draws.empty())
            return 0;
        const double first = draws.front();
        draws.pop_front();
        return first;
    }
    void seed(std::uint64_t value) override { seeds.push_back(value); }
};

/// Lets a test act as the user during a long job.
class FakeEventPump final : public platform::EventPump {
public:
    std::function<void()> onPump;

    void pump() override {
        if (onPump)
            onPump();
    }
};

class FakeNotificationArea final : public platform::NotificationArea {
public:
    bool present = true;
    bool shown = false;
    std::vector<std::string> tips;

    [[nodiscard]] bool available() const override { return present; }
    bool add(const std::string& tip) override {
        shown = present;
        tips.push_back(tip);
        return present;
    }
    void setTip(const std::string& tip) override { tips.push_back(tip); }
    void remove() override { shown = false; }
};

class FakeScanLock final : public platform::ScanLock {
public:
    bool heldElsewhere = false;
    int holders = 0;

    [[nodiscard]] std::unique_ptr<Hold> tryHold() override {
        if (heldElsewhere || holders > 0)
            return nullptr;
        return std::make_unique<Counted>(holders);
    }

private:
    class Counted final : public Hold {
    public:
        explicit Counted(int& holders) : holders_(holders) { ++holders_; }
        Counted(const Counted&) = delete;
        Counted& operator=(const Counted&) = delete;
        ~Counted() override { --holders_; }

    private:
        int& holders_;
    };
};

class FakeShell final : public platform::Shell {
public:
    std::vector<std::string> opened;
    int foregrounds = 0;
    bool ended = false;
    bool opens = true; ///< there is a program for every document

    bool openDocument(const std::string& path) override {
        opened.push_back(path);
        return opens;
    }
    void setForegroundWindow() override { ++foregrounds; }
    void endProgram() override { ended = true; }
};

class FakeSingleInstance final : public platform::SingleInstance {
public:
    bool first = true;
    bool answers = true;                ///< the copy that runs
    std::vector<platform::Errand> sent; ///< to that one

    [[nodiscard]] bool isFirst() override { return first; }
    [[nodiscard]] bool sendToFirst(platform::Errand errand) override {
        if (answers)
            sent.push_back(errand);
        return answers;
    }
};

class FakeLogOnEntry final : public platform::LogOnEntry {
public:
    std::string program; ///< what it starts; "": there is none
    bool refuses = false;

    [[nodiscard]] bool present() const override { return !program.empty(); }
    bool add(const std::string& toStart) override {
        if (!refuses)
            program = toStart;
        return !refuses;
    }
    bool remove() override { return !refuses && !std::exchange(program, {}).empty(); }
};

/// Homes, a system folder and a disk; no links.
struct FakeLandmarks final : platform::Landmarks {
    [[nodiscard]] std::string realPath(const std::string& path) const override { return path; }
    [[nodiscard]] std::string home() const override { return "/home/jo"; }
    [[nodiscard]] std::vector<std::string> otherHomes() const override { return {"/root", "/home/al"}; }
    [[nodiscard]] std::vector<std::string> systemFolders() const override { return {"/usr", "/var/lib"}; }
    [[nodiscard]] std::vector<std::string> programFolders() const override { return {"/home/jo/.data/b"}; }
    [[nodiscard]] bool isDisk(const std::string& path) const override { return path == "/mnt/stick"; }
};

/// Keeps what it is told.
class FakeHistory final : public platform::DeletionHistory {
public:
    std::vector<platform::DeletedShare> shares;
    std::vector<platform::Score> bars;
    std::string refusal; ///< "": it takes all
    std::string damaged;

    platform::Status append(platform::DateTime /*when*/,
                            std::span<const platform::DeletedShare> more) override {
        if (!refusal.empty())
            return platform::Failure{5, refusal};
        shares.insert(shares.end(), more.begin(), more.end());
        return platform::Done{};
    }
    platform::Result<std::vector<platform::Score>> score(platform::ScoreBy /*by*/,
                                                         std::size_t /*most*/) override {
        return bars;
    }
    std::string takeDamaged() override { return std::exchange(damaged, {}); }
};

/// A whole machine in memory.
struct FakeMachine {
    FakeSettingsStore settings;
    FakeFileSystem files;
    FakeLandmarks landmarks;
    FakeProgramFolder folder;
    FakeDialogs dialogs;
    FakeShell shell;
    FakeNotificationArea tray;
    FakeClipboard clipboard;
    FakeCharacterService characters;
    FakeLogOnEntry logOn;
    FakeSingleInstance instance;
    FakeScanLock scanLock;
    FakeRegional regional;
    FakeLetters letters;
    FakeClock clock;
    FakeRandom random;
    FakeEventPump pump;
    FakeHistory history;
};

} // namespace brovin::fakes
