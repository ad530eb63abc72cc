#pragma once

#include <functional>
#include <string>
#include <vector>

namespace brovin::platform {

/// A part of the desktop, which all screens share: pixels from the upper left corner of the main screen.
struct Area {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Area&) const = default;
};

/// An entry of a menu. Captions have "&" before the access key.
struct MenuEntry {
    std::string caption; ///< empty: a line between groups
    bool checked = false;
    std::function<void()> chosen{};   ///< called like an event of a character
    std::vector<MenuEntry> entries{}; ///< of the menu that it opens
};

/// What the character's menu offers besides Hide.
struct CharacterMenu {
    std::string nextScreen; ///< caption; only there while there are several screens
    std::vector<MenuEntry> more;
};

/// How loud characters are, in percent; 0 is silence.
struct Loudness {
    int voice = 100;
    int sounds = 100;

    bool operator==(const Loudness&) const = default;
};

/// How they behave on this desktop, at this moment.
struct Manners {
    Loudness loudness;
    bool still = false;   ///< nothing is to move: they change from pose to pose
    bool readOut = false; ///< what they say is announced to screen readers, too
    /// Nobody can see them: their time stands still, and nothing of them costs anything. What they are asked
    /// for begins, and goes on afterwards.
    bool paused = false;
    bool curious = true; ///< they look by themselves at what the user does with the mouse

    bool operator==(const Manners&) const = default;
};

/// A mouse button over a character.
struct CharacterClick {
    std::string id;
    int button = 0; ///< 1 left, 2 right, 4 middle
    int shift = 0;  ///< 1 Shift, 2 Ctrl, 4 Alt, added up
    int x = 0;      ///< pixels on the screen
    int y = 0;
};

/// Why a character was hidden, where the program makes a difference.
inline constexpr int kHiddenByItsMenu = 7;

/// What the user does with a character. The service calls these one at a time on the program's thread, never
/// from within a call of its own operations; while a message box is open they wait.
struct CharacterEvents {
    std::function<void(const CharacterClick& click)> click;
    std::function<void(const CharacterClick& click)> dragStart;
    std::function<void(const CharacterClick& click)> dragComplete;
    std::function<void(const std::string& id, int cause)> hide;
    std::function<void(const std::string& id)> nextScreen; ///< chosen in the character's menu
    std::function<void()> screensChanged;                  ///< one has come, gone, moved or changed its size
};

/// What a character can be asked to do. Show, hide, play, speak, moveTo and gestureAt are requests: they
/// queue and run one after another. False: the service refused the request (no such animation, for instance).
class CharacterRequests {
public:
    virtual ~CharacterRequests() = default;

    virtual bool show() = 0;
    virtual bool hide() = 0;
    virtual bool play(const std::string& animation) = 0;
    virtual bool speak(const std::string& text) = 0;
    /// Pixels from the upper left corner of the main screen, here and below.
    virtual bool moveTo(int x, int y) = 0;
    virtual bool gestureAt(int x, int y) = 0;
    /// Stops what the character is doing and empties its queue; a Show or Hide in progress runs to its end.
    virtual void stop() = 0;
    /// Stops everything and empties the queue.
    virtual void stopAll() = 0;

    /// Whether a request is in progress or waits.
    [[nodiscard]] virtual bool busy() const = 0;
    /// All animations, in the order of the character's file.
    [[nodiscard]] virtual std::vector<std::string> animationNames() const = 0;
};

/// Where a character is.
class CharacterPlace {
public:
    virtual ~CharacterPlace() = default;

    [[nodiscard]] virtual bool visible() const = 0;
    /// What it takes up, also while it is hidden.
    [[nodiscard]] virtual Area area() const = 0;
    /// The same, as large as it is on one of the service's screens: they may be of unlike scale.
    [[nodiscard]] virtual Area areaOn(const Area& screen) const = 0;
    /// Puts its upper left corner there at once.
    virtual void put(int left, int top) = 0;
};

/// How a character speaks.
class CharacterVoice {
public:
    virtual ~CharacterVoice() = default;

    /// By a number that language files give; one that names no language changes nothing.
    virtual void setLanguageId(long id) = 0;
    virtual void setTtsModeId(const std::string& id) = 0;
};

/// A loaded animated character, side by side.
struct Character {
    CharacterRequests& requests;
    CharacterPlace& place;
    CharacterVoice& voice;
};

/// Loads characters by name. May be absent on a machine: then it has no character to give.
class CharacterService {
public:
    virtual ~CharacterService() = default;

    /// Whether this machine can show characters at all.
    [[nodiscard]] virtual bool available() const = 0;

    /// The names of all character files, with their endings, sorted; of a user's and an installed file of the
    /// same name, one.
    [[nodiscard]] virtual std::vector<std::string> files() = 0;
    /// All screens, the main one first. Empty: the machine has none at this moment.
    [[nodiscard]] virtual std::vector<Area> screens() const = 0;
    virtual void setMenu(const CharacterMenu& menu) = 0;
    /// How large characters are: pixels of the screen for a hundred of their own; 0: as many as the screen's
    /// scale makes of them. One that is loaded keeps its feet where they are.
    virtual void setSize(int percent) = 0;
    /// At once, also for what is being said.
    virtual void setManners(const Manners& manners) = 0;
    virtual void setEvents(CharacterEvents events) = 0;

    /// Loads a character file from the characters folder under an id; upper and lower case in the file's name
    /// make no difference. False: missing or broken.
    virtual bool load(const std::string& id, const std::string& fileName) = 0;
    virtual void unload(const std::string& id) = 0;
    /// The loaded character; null when there is none under this id. Lives until it is unloaded.
    [[nodiscard]] virtual const Character* character(const std::string& id) = 0;
};

} // namespace brovin::platform
